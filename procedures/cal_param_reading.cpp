#include "procedures/cal_param_reading.h"

#include "data/assets/assets.h"
#include "data/custom_dialog.h"
#include "data/routine.h"
#include "procedures/column_values.h"
#include "procedures/strategies.h"
#include "resources/strings.h"
#include "resources/text_id.h"

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

void readMessages(Session& session, const QString& instrument, StoredCalParams& stored) {
    const auto ofInstrument = [mtag = ModuleGlobals::mtagOf(session, instrument)](const Sql& type) {
        return u"select pname from mt.hvm_kv_proc_prompts where prompt_type = " + type + u" and mtag = " +
               mtag;
    };
    const auto available = [&](const Sql& type) {
        return u"select pname from mt.hvm_kv_prompts where pname not in (" + ofInstrument(type) + u")";
    };
    const auto displayed = [&](const Sql& type) { return ofInstrument(type) + u" order by prompt_seq asc"; };
    Routine routine(session, u"FormCalParam,LoadPrompts"_s);
    routine.run([&] {
        stored.available.pre = columnValues(routine, available(u"'PRE'"));
        stored.available.post = columnValues(routine, available(u"'PST'"));
        stored.displayed.pre = columnValues(routine, displayed(u"'PRE'"));
        stored.displayed.post = columnValues(routine, displayed(u"'PST'"));
    });
}

std::optional<StoredCalParams> readCalParams(Session& session, Routine& routine, const QString& instrument) {
    const ReportWatch reports(session);
    StoredCalParams stored;
    stored.strategies = strategyNames(routine);
    stored.record = ModuleGlobals::GetCalParams(session, instrument);
    readMessages(session, instrument, stored);
    if (reports.sawReport())
        return {};
    return stored;
}

/// Asks for an instrument number until the inventory knows it; nothing when the user gives up.
std::optional<QString> askInstrument(Session& session, Routine& routine) {
    for (;;) {
        const auto entry =
            ModuleGlobals::CustomDialog(session, text(TextId::calibrationParameters),
                                        text(TextId::instrumentNumberPrompt), true, 0, 0, 0, QString());
        if (entry == cancelled)
            return {};
        if (routine.hasRow(ModuleGlobals::mtagQuery(session, entry)))
            return entry;
        if (session.ui.messageBox(text(TextId::instrumentNumberInvalid), text(TextId::calibrationParameters),
                                  box::warningRetryCancel) != BoxAnswer::retry)
            return {};
    }
}

} // namespace

std::optional<QString> askForInstrument(Session& session) {
    Routine routine(session, u"MDIFormMain,GetAsset"_s);
    return routine.resultOf([&] { return askInstrument(session, routine); }).value_or(std::nullopt);
}

std::optional<QString> askForCloneTarget(Session& session) {
    Routine routine(session, u"FormCalParam,CommandClone"_s);
    const auto ask = [&]() -> std::optional<QString> {
        const auto target = askInstrument(session, routine);
        if (!target)
            return {};
        const bool hasParameters = routine.hasRow(u"select mtag from mt.hvm_kv_tag_config where mtag = " +
                                                  ModuleGlobals::mtagOf(session, *target));
        if (hasParameters &&
            session.ui.messageBox(text(TextId::confirmConfigurationOverwrite),
                                  text(TextId::calibrationParameters), box::warningYesNo) != BoxAnswer::yes)
            return {};
        return target;
    };
    return routine.resultOf(ask).value_or(std::nullopt);
}

bool loadCalParams(Session& session, const QString& instrument,
                   const std::function<void(const StoredCalParams&)>& show) {
    bool isShown = false;
    Routine routine(session, u"FormCalParam,LoadControls"_s);
    routine.run([&] {
        const auto stored = readCalParams(session, routine, instrument);
        if (!stored)
            return;
        show(*stored);
        isShown = true;
    });
    return isShown;
}

} // namespace kelvane
