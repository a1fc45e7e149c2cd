#include "drivers/fluke74x/download_prompts.h"

using namespace Qt::StringLiterals;

namespace kelvane::Module74xInterface {

bool definePrompts(Dpclnk3& link, StatusRule& rule, DefinedPrompts& defined) {
    defined.numbers.clear();
    for (int row = 0; row < defined.prompts.count; ++row) {
        const auto& prompt = defined.prompts.list[row];
        auto& numbers = defined.numbers.emplace_back();
        if (!rule.passes(
                link.MEM3promptDefn(numbers, prompt.key, prompt.prompt, u"ordinary"_s, u"helvr12"_s)))
            return false;
    }
    return true;
}

bool placePrompts(Dpclnk3& link, StatusRule& rule, const TaskReference& task, const DefinedPrompts& defined,
                  QStringView type) {
    for (int row = 0; row < defined.prompts.count; ++row) {
        const auto& prompt = defined.prompts.list[row];
        qint32 place = 0;
        if (prompt.prompt_type == type && !prompt.prompt.isEmpty() &&
            !rule.passes(link.MEM3promptTemplate(task.task, task.atom, place, defined.numbers[row])))
            return false;
    }
    return true;
}

} // namespace kelvane::Module74xInterface
