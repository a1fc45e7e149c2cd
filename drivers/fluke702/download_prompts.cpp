#include "drivers/fluke702/download_prompts.h"

namespace kelvane::Module702Interface {

bool definePrompts(Session& session, Dpclnk& link, StatusRule& rule, const QString& asset,
                   FlukePrompts& prompts) {
    return prompts.read(session, asset, [&](const FlukePrompt& prompt) {
        return rule.passes(link.MEMpromptDefn(prompt.key, prompt.prompt));
    });
}

bool placeBefore(Dpclnk& link, StatusRule& rule, const FlukePrompts& prompts) {
    for (int p = 0; p < prompts.count; ++p) {
        const auto& prompt = prompts.list[p];
        if (prompt.prompt_type == u"PRE" && !rule.passes(link.MEMprompt(prompt.key)))
            return false;
    }
    return true;
}

bool placeAfter(Dpclnk& link, StatusRule& rule, const FlukePrompts& prompts) {
    for (int p = 0; p < prompts.count; ++p) {
        if (prompts.list[p].prompt_type == u"PST")
            return rule.passes(link.MEMprompt(prompts.list[p].key));
    }
    return true;
}

} // namespace kelvane::Module702Interface
