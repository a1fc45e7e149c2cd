#include "drivers/fluke_prompts.h"

#include "data/parameters/cal_params.h"
#include "data/parameters/prompt_macros.h"
#include "data/small_routines.h"

#include <utility>

namespace kelvane {

using namespace ModuleGlobals;

bool FlukePrompts::read(Session& session, const QString& asset,
                        const std::function<bool(const FlukePrompt&)>& take) {
    const int stored = GetPrompts(session, asset, 2, {});
    for (count = 0; count < stored; ++count) {
        const auto& entry = std::as_const(session.PromptList)[count];
        auto& prompt = list[count];
        prompt.pname = entry.pname;
        prompt.prompt = DPCsafePrompt(UUTPromptTextPrepare(session, entry.prompt, asset));
        prompt.prompt_type = entry.prompt_type;
        prompt.key = RandomString(session, 10);
        if (!take(prompt))
            return false;
    }
    return true;
}

} // namespace kelvane
