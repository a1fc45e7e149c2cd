#include "drivers/fluke_prompts.h"

#include "data/parameters/cal_params.h"
#include "data/parameters/prompt_macros.h"
#include "data/small_routines.h"

namespace kelvane {

using namespace ModuleGlobals;

bool FlukePrompts::read(Session& session, const QString& asset,
                        const std::function<bool(const FlukePrompt&)>& take) {
    const auto stored = GetPrompts(session, asset, 2, {});
    count = 0;
    for (const auto& entry : stored) {
        auto& prompt = list[count];
        prompt.pname = entry.pname;
        prompt.prompt = DPCsafePrompt(UUTPromptTextPrepare(session, entry.prompt, asset));
        prompt.prompt_type = entry.prompt_type;
        prompt.key = RandomString(session, 10);
        if (!take(prompt))
            return false;
        ++count;
    }
    return true;
}

} // namespace kelvane
