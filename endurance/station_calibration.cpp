// What a station does with its calibrator, and with paper.

#include "data/guard.h"
#include "endurance/station.h"
#include "resources/strings.h"
#include "resources/text_id.h"
#include "simulators/fluke702/memory.h"
#include "workflow/download_list.h"
#include "workflow/upload.h"
#include "worksheets/worksheet_entry.h"

using namespace Qt::StringLiterals;

namespace kelvane::endure {

namespace {

namespace fluke702 = simulators::fluke702;

/// A download list with these instruments.
class ListOfInstruments final : public DownloadListScreen {
  public:
    explicit ListOfInstruments(QStringList assets) : assets_(std::move(assets)) {}
    QString calibrator() const override { return Module702Interface::identity.name.toString(); }
    QStringList rows() const override { return assets_; }
    void addRow(const QString& asset) override { assets_ << asset; }
    void removeRow(int row) override { assets_.removeAt(row); }
    void clearEntry() override {}
    void focusEntry() override {}
    void closeScreen() override {}

  private:
    QStringList assets_;
};

/// The entry of one worksheet.
class Sheet final : public WorksheetEntryScreen {
  public:
    QString asset() const override { return asset_; }
    void showAsset(const QString& asset) override { asset_ = asset; }
    void clearFields() override { titles_.clear(); }
    void addField(const QString& title, const QString&) override { titles_ << title; }
    QString fieldTitle(int row) const override { return titles_.value(row); }
    /// -1 when there is none.
    int rowOf(const QString& title) const { return static_cast<int>(titles_.indexOf(title)); }
    void showValue(int, const QString&) override {}
    QStringList standards() const override { return standards_; }
    void addStandard(const QString& asset) override { standards_ << asset; }
    void endRecord() override { asset_.clear(); }
    void offerUnfinishedResult() override { isUnfinished = true; }

    bool isUnfinished = false;

  private:
    QString asset_;
    QStringList titles_;
    QStringList standards_;
};

float onScale(const simulators::Scale& scale, double fraction) {
    const double low = static_cast<double>(scale.low);
    return static_cast<float>(low + fraction * (static_cast<double>(scale.high) - low));
}

fluke702::Run runOf(const fluke702::Contents& contents, const fluke702::Task& task, const Round& round) {
    fluke702::Run run;
    run.tag = task.instrument;
    run.serial = task.serial;
    run.technician = u"J. Doe"_s;
    run.state = task.state;
    const auto date = round.date();
    const auto time = round.time();
    run.time = {static_cast<qint16>(date.year()),   static_cast<qint16>(date.month()),
                static_cast<qint16>(date.day()),    static_cast<qint16>(time.hour()),
                static_cast<qint16>(time.minute()), static_cast<qint16>(time.second())};
    const auto& state = *simulators::byId(contents.states, task.state);
    for (const float point : simulators::byId(contents.strategies, task.strategy)->points)
        run.entries.push_back({onScale(state.measured, round.fraction()),
                               onScale(state.source, static_cast<double>(point)), 0});
    return run;
}

} // namespace

std::optional<Round> Station::pendingRound() const {
    int offered = 0;
    bool isPending = false;
    for (const auto& line : ActLog::read(options_.folder)) {
        if (line.kind == u"offered") {
            offered = line.text.section(u' ', 0, 0).toInt();
            isPending = true;
        } else if (line.kind == u"uploaded") {
            isPending = false;
        }
    }
    return isPending ? std::optional(Round{options_.station, offered}) : std::nullopt;
}

void Station::calibrate() {
    if (!pendingRound()) {
        download();
        if (!operator_.hasDownloaded)
            return;
        work();
    }
    upload();
}

void Station::download() {
    planFault(u"download"_s);
    fluke702::MemoryFile(memory_).use([&](fluke702::Memory& memory) {
        const bool isOwn = memory.identity.serial == calibratorSerial(options_.station);
        memory.identity.serial = calibratorSerial(options_.station);
        return !isOwn;
    });
    QStringList assets;
    const int count = 1 + below(3);
    while (assets.size() < count) {
        const auto asset = someInstrument();
        if (!assets.contains(asset))
            assets << asset;
    }
    operator_.hasDownloaded = false;
    log_.write(u"downloading"_s, assets.join(u' '));
    ListOfInstruments screen(assets);
    downloadList(calibrators_, screen);
    if (operator_.hasDownloaded)
        log_.write(u"downloaded"_s, assets.join(u' '));
}

/// The technician's work: whatever happens to the workstation, the calibrator keeps it.
void Station::work() {
    int last = 0;
    for (const auto& line : ActLog::read(options_.folder)) {
        if (line.kind == u"offering")
            last = line.text.section(u' ', 0, 0).toInt();
    }
    const Round round{options_.station, last + 1};
    QStringList assets;
    fluke702::MemoryFile(memory_).use([&](fluke702::Memory& memory) {
        for (const auto& task : memory.contents.tasks) {
            memory.contents.runs.push_back(runOf(memory.contents, task, round));
            assets << task.instrument + u':' + QString::number(memory.contents.runs.back().entries.size());
        }
        log_.write(u"offering"_s, QString::number(round.number) + u' ' + assets.join(u' '));
        return true;
    });
    log_.write(u"offered"_s, QString::number(round.number) + u' ' + assets.join(u' '));
}

void Station::upload() {
    planFault(u"upload"_s);
    operator_.hasUploaded = false;
    ModuleGlobals::UploadFromCalibrator(calibrators_);
    // A library's error can look like success: the driver shows a counter's text in its place, and that of 0
    // is empty.
    if (operator_.hasUploaded && qgetenv("KELVANE_FLUKE702_FAULTS").isEmpty())
        log_.write(u"uploaded"_s);
}

void Station::enterWorksheet() {
    const auto asset = someInstrument();
    const auto mark = beginEdit(u"worksheet"_s);
    bool isNamed = false;
    bool hasStandard = false;
    operator_.answer = [&](const DialogQuestion& question) -> std::optional<QString> {
        if (question.caption == text(TextId::enterWorksheetResults))
            return std::exchange(isNamed, true) ? cancelled : asset;
        if (question.caption == text(TextId::standardsUsed))
            return std::exchange(hasStandard, true) ? QString() : u"DMM-01"_s;
        if (question.prompt.contains(u"Ambient Temperature"))
            return QString::number(worksheetMark(mark));
        return answerMoment(question, worksheetMoment(mark));
    };
    Sheet sheet;
    const ReportWatch watch(session_);
    WorksheetEntry entry(session_, sheet);
    entry.startDataEntry();
    for (const auto& title : {u"Calibration Date"_s, u"Calibration Time"_s}) {
        if (const auto row = sheet.rowOf(title); row >= 0)
            entry.changeField(row);
    }
    // Without its moment it could not be told from another sheet of the same minute.
    const bool isEntered = !sheet.asset().isEmpty() && !watch.sawReport();
    if (isEntered)
        entry.save();
    operator_.answer = {};
    endEdit(mark, isEntered && !watch.sawReport() && !sheet.isUnfinished);
}

} // namespace kelvane::endure
