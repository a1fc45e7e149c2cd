#include "data/records/cal_record.h"

#include "data/assets/assets.h"
#include "data/custom_dialog.h"
#include "data/records/cal_record_parts.h"
#include "data/records/due_date.h"
#include "data/records/field_dictionary.h"
#include "data/records/instrument_lock.h"
#include "data/records/record_columns.h"
#include "data/routine.h"
#include "data/small_routines.h"
#include "platform/values/numbers.h"
#include "platform/values/texts.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <memory>
#include <span>
#include <utility>

using namespace Qt::StringLiterals;

namespace kelvane::ModuleGlobals {

namespace {

/// The one column that no record gets, whatever the dictionary says.
constexpr QStringView excludedColumn = u"C2340";

bool isColumn(const QString& name, QStringView column) {
    return name.compare(column, Qt::CaseInsensitive) == 0;
}

/// Writes one record into the database. Each statement commits by itself: what was written before an error
/// stays.
class NewRecord {
  public:
    NewRecord(Session& session, CalRecord& record, Routine& routine, const QString& asset,
              const RecordConsent& consent)
        : session_(session),
          record_(record),
          routine_(routine),
          consent_(consent),
          asset_(asset),
          mtag_(CheckAsset(session, asset)) {}

    /// Empty, or the reason why the record was not made.
    QString make();

  private:
    /// What a pass over the field table does with a column.
    struct ColumnStep {
        QStringView column;
        void (NewRecord::*step)(int row);
    };
    static const ColumnStep gathering[];
    static const ColumnStep completing[];
    static const ColumnStep gatheringAgain[];
    void runSteps(std::span<const ColumnStep> steps);

    void keepDate(int row) { date_ = requireDate(session_, value(row)); }
    void keepTime(int row) { time_ = value(row); }
    void keepPassMark(int row) { passed_ = value(row) == "Y"_L1; }
    void keepInterval(int row) { interval_ = toReal(numericValue(valueOrSource(row, u"I4229"_s))); }
    void keepUnit(int row) { unit_ = valueOrSource(row, u"I4228"_s); }
    void keepDueDate(int row) { dueDateGiven_ = !value(row).isEmpty(); }
    void fillDueTime(int row);
    void setDueDate(int row) { setValue(row, shortDate(due_.date, session_.SessionDateFormat)); }
    void setUser(int row) { setValue(row, session_.SessionUser); }

    void settleDueDate();
    bool askOperator();
    bool askFor(int row);
    std::unique_ptr<InstrumentLock> lockInstrument() const;
    bool existsAlready();
    void writeDatesForStatement();
    void insertRecord();

    const CalField& field(int row) const { return std::as_const(record_.CalFieldTable)[row]; }
    QString value(int row) const { return field(row).value; }
    void setValue(int row, const QString& value) { record_.CalFieldTable[row].value = value; }
    QString valueOrSource(int row, const QString& source);
    Session& session_;
    CalRecord& record_;
    Routine& routine_;
    const RecordConsent& consent_;
    QString asset_;
    QString mtag_;
    Moment date_;
    /// None where the dictionary has no field for it.
    std::optional<QString> time_;
    bool passed_ = false;
    bool dueDateGiven_ = false;
    float interval_ = 0;
    QString unit_;
    Moment due_;
};

const NewRecord::ColumnStep NewRecord::gathering[] = {
    {u"C2301", &NewRecord::keepDate},     {u"C2323", &NewRecord::keepPassMark},
    {u"C2302", &NewRecord::keepInterval}, {u"C2331", &NewRecord::keepUnit},
    {u"C2303", &NewRecord::keepDueDate},  {u"C2333", &NewRecord::keepTime},
};

const NewRecord::ColumnStep NewRecord::completing[] = {
    {u"C2334", &NewRecord::fillDueTime},
    {u"C2303", &NewRecord::setDueDate},
    {u"C2336", &NewRecord::setUser},
    {u"C2338", &NewRecord::setUser},
};

/// The operator may have changed these two.
const NewRecord::ColumnStep NewRecord::gatheringAgain[] = {
    {u"C2301", &NewRecord::keepDate},
    {u"C2333", &NewRecord::keepTime},
};

QString NewRecord::make() {
    ProgressWindow progress(session_.ui, text(TextId::recordCreation));
    runSteps(gathering);
    progress.reach(14);
    settleDueDate();
    progress.reach(28);
    runSteps(completing);
    if (consent_.mayAsk && !consent_.mayAsk())
        return {};
    progress.reach(42);
    if (!askOperator()) {
        progress.reach(100);
        return text(TextId::requiredDataNotProvided);
    }
    runSteps(gatheringAgain);
    // Another workstation's record of the same moment is looked for under the lock, too.
    const auto lock = lockInstrument();
    if (existsAlready()) {
        progress.reach(100);
        return text(TextId::recordAlreadyExists);
    }
    writeDatesForStatement();
    if (consent_.mayWrite && !consent_.mayWrite())
        return {};
    insertRecord();
    progress.reach(56);
    copyFields(session_, routine_, asset_);
    progress.reach(70);
    // By now the server has marked the new record as the current one.
    const RecordParts parts(session_, routine_, mtag_, RecordParts::currentRecord(session_, mtag_));
    for (const auto& name : distinctNames(entriesOf(record_.RecordStandards)))
        parts.insertStandard(name);
    progress.reach(88);
    int number = 0;
    for (const auto& line : entriesOf(record_.RecordResults))
        parts.insertResult(line, number++);
    clearInventoryFields(session_, asset_, passed_);
    progress.reach(100);
    return {};
}

void NewRecord::runSteps(std::span<const ColumnStep> steps) {
    for (int row = 0; row < calFieldCount(record_); ++row) {
        for (const auto& step : steps) {
            if (isColumn(field(row).column, step.column))
                (this->*step.step)(row);
        }
    }
}

QString NewRecord::valueOrSource(int row, const QString& source) {
    if (value(row).isEmpty())
        setValue(row, SourceColumn(session_, source, asset_));
    return value(row);
}

void NewRecord::fillDueTime(int row) {
    if (value(row).isEmpty())
        setValue(row, time_.value_or(QString()));
}

/// A failed instrument is due at once, and a due date that was given is not kept: both get the calibration
/// date.
void NewRecord::settleDueDate() {
    due_ = passed_ && !dueDateGiven_ ? calcDueDate(session_, {}, date_, interval_, unit_) : date_;
}

bool NewRecord::askOperator() {
    const auto numbers = routine_.select(worksheetFieldsQuery);
    while (numbers->next()) {
        const auto row = calFieldRow(record_, notNull(numbers->value(0)));
        if (row && !askFor(*row))
            return false;
    }
    return true;
}

bool NewRecord::askFor(int row) {
    while (!PromptUser(session_, record_, static_cast<qint16>(row), asset_)) {
        if (field(row).required != "Y"_L1)
            return true;
        if (session_.ui.messageBox(text(TextId::requiredDataRetryAdvised), text(TextId::recordCreation),
                                   box::warningRetryCancel) != BoxAnswer::retry)
            return false;
    }
    return true;
}

std::unique_ptr<InstrumentLock> NewRecord::lockInstrument() const {
    try {
        return std::make_unique<InstrumentLock>(session_, mtag_);
    } catch (const Error&) {
        if (consent_.couldNotLock)
            consent_.couldNotLock();
        throw;
    }
}

bool NewRecord::existsAlready() {
    // A dictionary without a field for the time has none; a field that is empty is an error, as for the date.
    if (time_ && time_->isEmpty())
        throw makeError(ErrorNumber::typeMismatch);
    const auto time =
        fieldText(session_, time_.value_or(QString()), static_cast<qint16>(FieldKind::time), statementForm);
    return routine_.hasRow(u"select c2301 from " + sqlName(session_.SessionOwner) +
                           u".calibration where c2301 = " + sqlText(formatMoment(date_, statementForm.date)) +
                           u" and c2333 = " + sqlText(time) + u" and mtag = " + sqlText(mtag_));
}

void NewRecord::writeDatesForStatement() {
    for (int row = 0; row < calFieldCount(record_); ++row)
        setValue(row, fieldText(session_, value(row), field(row).field_type, statementForm));
}

void NewRecord::insertRecord() {
    Sql columns = u"";
    Sql values = u"";
    for (int row = 0; row < calFieldCount(record_); ++row) {
        if (isColumn(field(row).column, excludedColumn))
            continue;
        columns += sqlName(field(row).column) + u",";
        values += value(row).isEmpty() ? Sql(u"NULL,") : sqlText(SQLSafe(value(row))) + u",";
    }
    routine_.execute(u"insert into " + sqlName(session_.SessionOwner) + u".calibration (" + columns +
                     u"mtag,cdsrc) values (" + values + sqlText(mtag_) + u",'KVN');commit");
}

} // namespace

QString CreateCalRecord(Session& session, CalRecord& record, const QString& asset,
                        const RecordConsent& consent) {
    QString reason;
    Routine routine(session, u"ModuleGlobals,CreateCalRecord"_s);
    routine.run([&] { reason = NewRecord(session, record, routine, asset, consent).make(); });
    return reason;
}

namespace {

constexpr qint16 modeText = 0;
constexpr qint16 modeList = 1;

/// The choices of a field with a value list; those that the dialog does not take are left out.
QStringList choicesOf(const Session& session, Routine& routine, const CalField& field) {
    if (session.SessionDbVersion <= 5 || !field.has_list)
        return {};
    const auto values = routine.select(u"select val from mt.valfield where fldnum = " +
                                       sqlText(field.column.right(4)) + u" order by val asc");
    QStringList choices;
    while (choices.size() < maxChoices && values->next()) {
        const auto value = values->value(0);
        if (value && !trimBlanks(*value).isEmpty())
            choices << *value;
    }
    return choices;
}

} // namespace

bool PromptUser(Session& session, CalRecord& record, qint16 index, const QString& asset) {
    bool answered = false;
    Routine routine(session, u"ModuleGlobals,PromptUser"_s);
    routine.run([&] {
        // A copy: while the dialog is open the rest of the program can be reached.
        const auto field = std::as_const(record).CalFieldTable[index];
        const auto choices = choicesOf(session, routine, field);
        const bool required = field.required == "Y"_L1;
        const auto mode = field.has_list ? modeList : modeText;
        const auto start = field.value.isEmpty() ? field.default_text : field.value;
        const QString caption = text(TextId::calibrationRecordData) + u" ("_s + asset + u')';
        const QString prompt = text(TextId::enterInformationFor) + u' ' + field.title;
        do {
            const auto answer = CustomDialog(session, caption, prompt, required, mode, field.max_length,
                                             field.field_type, start, choices);
            // A dialog that was cancelled asks once more in these words too, required or not.
            if (answer != cancelled && !(answer.isEmpty() && required)) {
                record.CalFieldTable[index].value =
                    fieldText(session, answer, field.field_type, screenForm(session));
                answered = true;
            }
        } while (!answered &&
                 session.ui.messageBox(text(TextId::fieldEntryRequired), text(TextId::calibrationRecordData),
                                       box::warningOkCancel) == BoxAnswer::ok);
    });
    return answered;
}

} // namespace kelvane::ModuleGlobals
