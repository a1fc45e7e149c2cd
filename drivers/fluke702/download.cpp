#include "data/parameters/cal_params.h"
#include "data/routine.h"
#include "data/tolerances/tolerances.h"
#include "drivers/asset_entries.h"
#include "drivers/fluke702/download_item.h"
#include "drivers/fluke702/download_prompts.h"
#include "drivers/fluke702/driver.h"
#include "drivers/fluke702/link.h"
#include "drivers/fluke702/setup_state.h"
#include "drivers/fluke702/task_values.h"
#include "resources/strings.h"
#include "resources/text_id.h"

using namespace Qt::StringLiterals;

namespace kelvane::Module702Interface {

namespace {

constexpr qsizetype maxPoints = 50;

/// More points than the library takes, or none, make no strategy.
bool defineStrategy(Dpclnk& link, StatusRule& rule, Download702Item& item, const QList<float>& points) {
    if (points.isEmpty() || points.size() > maxPoints)
        return true;
    return rule.passes(link.MEMstrategyDefn(item.strategyId, item.strategyName,
                                            static_cast<qint16>(points.size()), points.constData()));
}

bool writeTask(Dpclnk& link, StatusRule& rule, const Download702Item& item, const FlukePrompts& prompts,
               bool manual) {
    const auto tag = item.asset.left(29);
    const auto serial = item.serial.isEmpty() ? text(TextId::serialNumberNone) : item.serial;
    return rule.passes(link.MEMstartTask(tag)) && placeBefore(link, rule, prompts) &&
           rule.passes(link.MEMtemplate(item.strategyId, manual ? 1 : 0, tag, serial, item.stateId)) &&
           placeAfter(link, rule, prompts) && rule.passes(link.MEMendTask());
}

/// Writes one instrument into the image. False when a status ended it.
bool loadInstrument(Fluke702& driver, StatusRule& rule, Download702Item& item, CarriedValues& carried) {
    auto& session = driver.session;
    FlukePrompts prompts;
    if (!definePrompts(session, driver.link, rule, item.asset, prompts))
        return false;
    item.tolerance = ModuleGlobals::TranslateSpanTestTolSingle(session, item.asset);
    const auto points = ModuleGlobals::GetTestPointList(session, item.asset);
    prepareTaskValues(item, carried);
    return defineStrategy(driver.link, rule, item, points) &&
           saveSetupState(driver.link, rule, item, carried) &&
           writeTask(driver.link, rule, item, prompts, carried.manual);
}

QString download(Fluke702& driver, const QString& task) {
    auto& session = driver.session;
    FixedList<Download702Item, 500> items;
    int count = 0;
    const ReportWatch reading(session);
    QList<AssetEntry> entries;
    if (const auto failure = readPackage(session, task, entries); !failure.isEmpty())
        return failure;
    for (const auto& entry : entries)
        items[count++] = gatherItem(session, entry);
    if (reading.sawReport())
        return text(TextId::downloadListUnreadable);

    driver.link.MEMclear();
    driver.link.DPCclose();
    CarriedValues carried;
    for (int i = 0; i < count; ++i) {
        StatusRule rule(session, DPCStatusText, items[i].asset);
        if (!loadInstrument(driver, rule, items[i], carried))
            return rule.failure();
        // The calibrator is still as it was: only the image in the library has been written to.
        if (reading.sawReport())
            return text(TextId::instrumentDataUnreadable).arg(items[i].asset);
    }

    const auto failure = Communicate702(driver, modeDownload);
    if (failure.isEmpty())
        registerInUse(session, driver.Calibrator702Serial, entries);
    session.ui.setNormalPointer();
    return failure;
}

} // namespace

QString Fluke702_download(Fluke702& driver, const QString& task) {
    if (const auto missing = driver.link.missing(); !missing.isEmpty())
        return missing;
    QString result;
    Routine routine(driver.session, u"Module702Interface,Fluke702_download"_s);
    routine.run([&] { result = download(driver, task); });
    return result;
}

} // namespace kelvane::Module702Interface
