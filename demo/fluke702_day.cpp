#include "demo/fluke702_day.h"

#include "demo/fluke_day.h"
#include "drivers/fluke702/driver.h"
#include "testkit/fluke702_runs.h"

using namespace Qt::StringLiterals;

namespace kelvane::demo {

void runFluke702Day(DemoWorkstation& station, const QString& memory, const QDate& day) {
    const auto& runs = fluke702Runs();
    FlukeDay work(station, Module702Interface::identity.name.toString(), runs, memory, day);
    work.listMeasured();
    work.calibrate(u"upload; of one record the calibrator thinks worse"_s, runs.measured);
    work.uploadAgain(runs.measured);

    // The isolator's output is a thermocouple like its input: someone reads it with a standard.
    const auto& manual = runs.manual.first();
    work.openDownloadList();
    work.list(manual.first());
    work.list(manual.last(), u"PM-030"_s);
    work.calibrate(u"upload; of one record the calibrator thinks better"_s, manual);
}

} // namespace kelvane::demo
