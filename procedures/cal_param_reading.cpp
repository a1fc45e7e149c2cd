#include "procedures/cal_param_reading.h"

#include "data/assets/assets.h"
#include "procedures/column_values.h"

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

} // namespace

std::optional<StoredCalParams> readCalParams(Session& session, Routine& routine, const QString& instrument) {
    const ReportWatch reports(session);
    StoredCalParams stored;
    stored.strategies =
        columnValues(routine, u"select distinct(tp_name) from mt.hvm_kv_proc_points order by tp_name asc");
    stored.record = ModuleGlobals::GetCalParams(session, instrument);
    readMessages(session, instrument, stored);
    if (reports.sawReport())
        return {};
    return stored;
}

bool hasStoredCalParams(const Session& session, Routine& routine, const QString& instrument) {
    return routine.hasRow(u"select mtag from mt.hvm_kv_tag_config where mtag = " +
                          ModuleGlobals::mtagOf(session, instrument));
}

} // namespace kelvane
