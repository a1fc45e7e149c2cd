#include "data/parameters/cal_params.h"
#include "data/routine.h"
#include "data/tolerances/tolerances.h"
#include "drivers/asset_entries.h"
#include "drivers/fluke74x/download_item.h"
#include "drivers/fluke74x/download_prompts.h"
#include "drivers/fluke74x/driver.h"
#include "drivers/fluke74x/link.h"
#include "drivers/fluke74x/setup_state.h"
#include "drivers/fluke74x/standard_strategies.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace kelvane::Module74xInterface {

namespace {

using Status = Dpclnk3::Status;

constexpr Status noSuchStrategy = 2001;
constexpr qsizetype maxPoints = 50;
constexpr qsizetype maxTagLength = 29;

/// Writes the instruments of a list into the image. Steps give false when a status ended the work; `failure`
/// then has its text.
class Image {
  public:
    explicit Image(Fluke74x& driver)
        : session_(driver.session), link_(driver.link), rule_(session_, DPC3StatusText) {}

    bool clear() { return passes(link_.MEM3clear()); }
    bool write(Task74x& task);
    const QString& failure() const { return rule_.failure(); }

  private:
    bool writeTask(const Task74x& task, DefinedPrompts& prompts, const QList<float>& points);
    bool findStrategy(const QString& name, const QList<float>& points, qint32& strategyId);
    bool defineStrategy(const QString& name, const QList<float>& points, qint32& strategyId);
    bool defineStandardStrategies();
    bool writeTemplate(const Task74x& task, qint32 strategyId, const Dpclnk3::State& state);
    bool passes(Status status) { return rule_.passes(status); }

    Session& session_;
    Dpclnk3& link_;
    StatusRule rule_;
    // Carried over from one instrument to the next.
    EnteredSides entered_;
    TaskReference reference_;
    qint32 foundStrategy_ = 0;
    qint32 definedStrategy_ = 0;
};

bool Image::write(Task74x& task) {
    rule_.setAsset(task.asset);
    task.tolerance = ModuleGlobals::TranslateSpanTestTolSingle(session_, task.asset);
    const auto points = ModuleGlobals::GetTestPointList(session_, task.asset);
    DefinedPrompts prompts;
    prompts.prompts.read(session_, task.asset, [](const FlukePrompt&) { return true; });
    prepareTask(task, entered_);
    return writeTask(task, prompts, points);
}

bool Image::writeTask(const Task74x& task, DefinedPrompts& prompts, const QList<float>& points) {
    Dpclnk3::State state;
    qint32 strategyId = 0;
    return passes(link_.MEM3startTask(reference_.task, reference_.atom, task.asset.left(maxTagLength), {})) &&
           definePrompts(link_, rule_, prompts) && listStateItems(link_, rule_, task, entered_) &&
           placePrompts(link_, rule_, reference_, prompts, u"PRE") && saveState(link_, rule_, state) &&
           findStrategy(task.strategyName, points, strategyId) && writeTemplate(task, strategyId, state) &&
           placePrompts(link_, rule_, reference_, prompts, u"PST") && defineStandardStrategies() &&
           passes(link_.MEM3endTask());
}

/// A strategy that is in the image stays as it is, whatever its points.
bool Image::findStrategy(const QString& name, const QList<float>& points, qint32& strategyId) {
    const auto status = link_.MEM3findStrategyDefn(1, name, foundStrategy_, strategyId);
    if (status != noSuchStrategy)
        return passes(status);
    strategyId = 0;
    return points.isEmpty() || points.size() > maxPoints || defineStrategy(name, points, strategyId);
}

bool Image::defineStrategy(const QString& name, const QList<float>& points, qint32& strategyId) {
    definedStrategy_ = reference_.atom;
    return passes(link_.MEM3strategyDefn(reference_.task, definedStrategy_, strategyId, name, points.data(),
                                         static_cast<qint16>(points.size())));
}

bool Image::defineStandardStrategies() {
    const auto strategies = standardStrategies();
    for (const auto& strategy : strategies) {
        qint32 unused = 0;
        if (!defineStrategy(strategy.name, strategy.points, unused))
            return false;
    }
    return true;
}

bool Image::writeTemplate(const Task74x& task, qint32 strategyId, const Dpclnk3::State& state) {
    qint32 place = 0;
    return passes(link_.MEM3instrCalTemplate(
        reference_.task, reference_.atom, place, foundStrategy_, definedStrategy_, strategyId, state,
        entered_.measure ? 1 : 0, entered_.source ? 1 : 0, 2, task.asset.left(maxTagLength), task.serial));
}

QString download(Fluke74x& driver, const QString& tag) {
    auto& session = driver.session;
    Image image(driver);
    const ReportWatch reading(session);
    if (!image.clear())
        return image.failure();
    if (auto failure = Communicate74x(driver, modeBeginDownload); !failure.isEmpty())
        return failure;

    QList<AssetEntry> entries;
    if (auto failure = readPackage(session, tag, entries); !failure.isEmpty())
        return failure;
    QList<Task74x> tasks;
    for (const auto& entry : entries)
        tasks << gatherTask(session, entry);
    if (reading.sawReport())
        return text(TextId::downloadListUnreadable);

    for (auto& task : tasks) {
        if (!image.write(task))
            return image.failure();
        // The calibrator is still as it was: only the image in the library has been written to.
        if (reading.sawReport())
            return text(TextId::instrumentDataUnreadable).arg(task.asset);
    }

    auto failure = Communicate74x(driver, modeEndDownload);
    if (failure.isEmpty())
        registerInUse(session, driver.Calibrator74xSerial, entries);
    return failure;
}

} // namespace

QString Fluke74x_download(Fluke74x& driver, const QString& task) {
    if (const auto missing = driver.link.missing(); !missing.isEmpty())
        return missing;
    QString result;
    Routine routine(driver.session, u"Module74xInterface,Fluke74x_download"_s);
    routine.run([&] {
        // The first half of the contact leaves it open.
        const auto closing = qScopeGuard([&] { driver.session.ui.hideProgress(); });
        result = download(driver, task);
    });
    driver.session.ui.setNormalPointer();
    return result;
}

} // namespace kelvane::Module74xInterface
