// A workstation in a process of its own that makes records of one instrument through the program's routines.
// Usage: record_command SOURCE NAME DATE COUNT: the lines of each record name the workstation and the
// record's number. Errors go to the standard error output.

#include "data/assets/assets.h"
#include "data/records/field_dictionary.h"
#include "drivers/instrument_work.h"
#include "drivers/new_record.h"
#include "platform/database/odbc_connection.h"
#include "testkit/quiet_operator.h"
#include "tests/end_to_end/connected_workstation.h"
#include "tests/end_to_end/recorded_together.h"

#include <QCoreApplication>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// What the command is carried out with.
struct Arguments {
    QString source;
    QString name;
    QString date;
    int count = 0;
};

void fill(Session& session, InstrumentWork& work, const Arguments& arguments, int number) {
    work.entry.driver = arguments.name;
    work.entry.asset = togetherAsset;
    work.entry.mtag = ModuleGlobals::CheckAsset(session, togetherAsset);
    work.entry.date = arguments.date;
    work.entry.time = togetherTime(number);
    work.entry.readings = togetherLines(arguments.name, number);
    work.entry.raw = {{"number"_L1, number}};
    ModuleGlobals::SetCalDataFields(session, work.record, togetherAsset);
    const FieldValue fields[] = {{u"C2301", work.entry.date},
                                 {u"C2333", work.entry.time},
                                 {u"C2323", u"Y"_s},
                                 {u"C2307", arguments.name}};
    fillFields(work.record, fields);
    int row = 0;
    for (const auto& line : std::as_const(work.entry.readings))
        work.record.RecordResults[row++] = line;
    row = 0;
    for (const auto& standard : togetherStandards(arguments.name, number))
        work.record.RecordStandards[row++] = standard;
}

int carryOut(const Arguments& arguments) {
    QuietOperator ui;
    const SystemClock clock;
    ConnectedWorkstation workplace(ui, clock, arguments.source, {}, odbcConnections());
    workplace.start();
    for (int number = 0; number < arguments.count; ++number) {
        InstrumentWork work(workplace.session, u"Test,RecordTogether"_s);
        fill(workplace.session, work, arguments, number);
        if (work.finish().end != RecordOutcome::End::made)
            ui.reportedErrors << u"no record %1"_s.arg(number);
    }
    for (const auto& complaint : std::as_const(ui.reportedErrors))
        std::fprintf(stderr, "%s\n", qPrintable(complaint));
    return ui.reportedErrors.isEmpty() ? 0 : 1;
}

} // namespace

} // namespace kelvane::testing

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const auto arguments = QCoreApplication::arguments();
    if (arguments.size() != 5)
        return 2;
    return kelvane::testing::carryOut({arguments[1], arguments[2], arguments[3], arguments[4].toInt()});
}
