#include "demo/fluke74x_day.h"

#include "demo/fluke_day.h"
#include "drivers/fluke74x/driver.h"
#include "testkit/fluke74x_runs.h"

using namespace Qt::StringLiterals;

namespace kelvane::demo {

void runFluke74xDay(DemoWorkstation& station, const QString& memory, const QDate& day) {
    const auto& runs = fluke74xRuns();
    FlukeDay work(station, Module74xInterface::identity.name.toString(), runs, memory, day);
    work.listMeasured();
    work.calibrate(u"upload; two runs of one instrument are two records"_s, runs.measured);
    work.uploadAgain(runs.measured);

    const QStringList descriptions{u"upload what was read manually"_s, u"upload what was applied manually"_s};
    for (qsizetype part = 0; part < runs.manual.size(); ++part) {
        work.openDownloadList();
        for (const auto& run : runs.manual[part])
            work.list(run);
        work.calibrate(descriptions[part], runs.manual[part]);
    }
}

} // namespace kelvane::demo
