#include "drivers/fluke702/download_prompts.h"

#include "data/parameters/cal_params.h"
#include "data/parameters/prompt_macros.h"
#include "data/small_routines.h"

#include <utility>

namespace kelvane::Module702Interface {

using namespace ModuleGlobals;

bool DownloadPrompts::define(Fluke702& driver, StatusRule& rule, const QString& asset) {
    auto& session = driver.session;
    count_ = GetPrompts(session, asset, 2, {});
    for (int p = 0; p < count_; ++p) {
        const auto& stored = std::as_const(session.PromptList)[p];
        auto& own = prompts_[p];
        own.pname = stored.pname;
        own.prompt = DPCsafePrompt(UUTPromptTextPrepare(session, stored.prompt, asset));
        own.prompt_type = stored.prompt_type;
        own.key = RandomString(session, 10);
        if (!rule.passes(driver.link.MEMpromptDefn(own.key, own.prompt)))
            return false;
    }
    return true;
}

bool DownloadPrompts::placeBefore(Dpclnk& link, StatusRule& rule) const {
    for (int p = 0; p < count_; ++p) {
        if (prompts_[p].prompt_type == u"PRE" && !rule.passes(link.MEMprompt(prompts_[p].key)))
            return false;
    }
    return true;
}

bool DownloadPrompts::placeAfter(Dpclnk& link, StatusRule& rule) const {
    for (int p = 0; p < count_; ++p) {
        if (prompts_[p].prompt_type == u"PST")
            return rule.passes(link.MEMprompt(prompts_[p].key));
    }
    return true;
}

} // namespace kelvane::Module702Interface
