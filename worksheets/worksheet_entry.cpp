#include "worksheets/worksheet_entry.h"

#include "data/assets/assets.h"
#include "data/custom_dialog.h"
#include "data/records/field_dictionary.h"
#include "data/records/standards.h"
#include "data/routine.h"
#include "drivers/instrument_work.h"
#include "drivers/worksheet_results.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

constexpr qint16 maxAssetLength = 60;

void warn(Session& session, const QString& message, TextId title) {
    session.ui.messageBox(message, text(title), box::warning);
}

} // namespace

/// What other screens report while a question of the step is open does not count.
class WorksheetEntry::Step {
  public:
    explicit Step(WorksheetEntry& entry) : entry_(entry), watch_(entry.session_) {}
    ~Step() { entry_.failed_ = entry_.failed_ || hasFailed(); }
    Step(const Step&) = delete;
    Step& operator=(const Step&) = delete;
    bool hasFailed() const { return watch_.sawReport(); }

  private:
    WorksheetEntry& entry_;
    ReportWatch watch_;
};

WorksheetEntry::WorksheetEntry(Session& session, WorksheetEntryScreen& screen)
    : session_(session), screen_(screen) {}

void WorksheetEntry::startDataEntry() {
    bool ended = false;
    const auto atEnd = qScopeGuard([&] { failed_ = failed_ || !ended; });
    Routine routine(session_, u"FormWorkEntry,StartDataEntry"_s);
    ended = routine.run([&] {
        while (enterInstrument(routine) == Walk::again) {
        }
    });
}

WorksheetEntry::Walk WorksheetEntry::enterInstrument(Routine& routine) {
    const auto asset = askInstrument();
    if (!asset) {
        cancelEntry();
        return Walk::finished;
    }
    takeInstrument(*asset);
    if (!askWorksheetFields(routine) || !walkFields())
        return Walk::again;
    addStandards();
    return Walk::finished;
}

std::optional<QString> WorksheetEntry::askInstrument() {
    while (true) {
        const auto answer = ModuleGlobals::CustomDialog(session_, text(TextId::enterWorksheetResults),
                                                        text(TextId::worksheetInstrumentPrompt), true, 0,
                                                        maxAssetLength, 0, {});
        if (answer == cancelled)
            return {};
        // The preparation of an instrument begins here.
        failed_ = false;
        const Step step(*this);
        mtag_ = ModuleGlobals::CheckAsset(session_, answer);
        if (!mtag_.isEmpty())
            return answer;
        warn(session_, text(TextId::instrumentNumberInvalid), TextId::enterWorksheetResults);
    }
}

void WorksheetEntry::cancelEntry() {
    failed_ = false;
    mtag_.clear();
    screen_.showAsset({});
    screen_.clearFields();
    record_.CalFieldTable.erase();
}

void WorksheetEntry::takeInstrument(const QString& asset) {
    screen_.showAsset(asset);
    screen_.clearFields();
    isDictionaryRead_ = false;
    const Step step(*this);
    ModuleGlobals::SetCalDataFields(session_, record_, asset);
    isDictionaryRead_ = !step.hasFailed();
}

/// The fields that the site asks for on its worksheets.
bool WorksheetEntry::askWorksheetFields(Routine& routine) {
    QStringList numbers;
    const auto rows = routine.select(ModuleGlobals::worksheetFieldsQuery);
    while (rows->next())
        numbers << notNull(rows->value(0));
    for (const auto& number : std::as_const(numbers)) {
        const auto row = ModuleGlobals::calFieldRow(record_, number);
        if (!row)
            continue;
        if (!prompt(*row))
            return false;
        addFieldRow(*row);
    }
    return true;
}

/// All fields, those that have been asked for once more among them: it takes no account of that.
bool WorksheetEntry::walkFields() {
    const int rows = ModuleGlobals::calFieldCount(record_);
    for (int row = 0; row < rows; ++row) {
        auto& field = record_.CalFieldTable[row];
        if (field.required == "Y"_L1 && field.default_text.isEmpty()) {
            if (!prompt(row))
                return false;
        } else if (field.value.isEmpty()) {
            field.value = field.default_text;
        }
        addFieldRow(row);
    }
    return true;
}

bool WorksheetEntry::prompt(int row) {
    const Step step(*this);
    return ModuleGlobals::PromptUser(session_, record_, static_cast<qint16>(row), screen_.asset());
}

void WorksheetEntry::addFieldRow(int row) {
    const auto& field = std::as_const(record_).CalFieldTable[row];
    screen_.addField(field.title, field.value);
}

void WorksheetEntry::addStandards() {
    if (!screen_.standards().isEmpty())
        return;
    const Step step(*this);
    while (true) {
        const auto answer =
            ModuleGlobals::CustomDialog(session_, text(TextId::standardsUsed),
                                        text(TextId::standardUsedPrompt), false, 0, maxAssetLength, 0, {});
        if (answer.isEmpty() || answer == cancelled)
            return;
        checkStandard(answer);
        if (screen_.standards().contains(answer))
            warn(session_, text(TextId::standardAlreadyListed), TextId::standardsUsed);
        else
            screen_.addStandard(answer);
    }
}

/// Warns and stops nothing.
void WorksheetEntry::checkStandard(const QString& standard) {
    if (ModuleGlobals::CheckAsset(session_, standard).isEmpty())
        return warn(session_, text(TextId::standardDoesNotExist), TextId::standardsUsed);
    const auto instrument = screen_.asset();
    const auto verdict = ModuleGlobals::CheckStandard(session_, standard, instrument);
    if (verdict == standardRankTooLow)
        warn(session_, text(TextId::standardTraceLevelTooLow) + u' ' + instrument, TextId::standardsUsed);
    else if (verdict == standardOverdue)
        warn(session_, text(TextId::standardOverdue), TextId::standardsUsed);
}

void WorksheetEntry::changeField(int row) {
    const auto title = screen_.fieldTitle(row);
    const int rows = ModuleGlobals::calFieldCount(record_);
    for (int field = 0; field < rows; ++field) {
        if (std::as_const(record_).CalFieldTable[field].title != title)
            continue;
        if (prompt(field))
            screen_.showValue(row, std::as_const(record_).CalFieldTable[field].value);
        return;
    }
}

void WorksheetEntry::save() {
    const auto atEnd = qScopeGuard([this] { screen_.endRecord(); });
    record_.RecordStandards.erase();
    const auto standards = screen_.standards();
    for (int row = 0; row < standards.size() && row <= record_.RecordStandards.last; ++row)
        record_.RecordStandards[row] = standards[row];
    record_.RecordResults.erase();
    if (!screen_.asset().isEmpty())
        makeRecord();
}

void WorksheetEntry::makeRecord() {
    InstrumentWork work(session_, u"FormWorkEntry,CommandSave"_s);
    work.notWritten = TextId::worksheetNotWritten;
    work.record = record_;
    work.entry.asset = screen_.asset();
    work.entry.mtag = mtag_;
    takeWorksheet(session_, record_, isDictionaryRead_, work.entry);
    if (failed_)
        work.setUnprepared();
    bool isLeft = true;
    const auto atEnd = qScopeGuard([&] {
        if (isLeft && !work.entry.id.isEmpty())
            screen_.offerUnfinishedResult();
    });
    const auto outcome = work.finish();
    record_ = work.record;
    // After a report not even a refused entry has ended for certain.
    isLeft = !work.isPrepared();
    if (!outcome.failure.isEmpty())
        session_.ui.messageBox(outcome.failure, text(TextId::recordCreation), box::stop);
}

} // namespace kelvane
