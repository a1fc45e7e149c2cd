#include "data/worksheets/worksheet_data.h"

#include "data/parameters/cal_param_columns.h"
#include "data/parameters/prompt_macros.h"
#include "data/records/field_dictionary.h"
#include "data/records/record_columns.h"
#include "data/routine.h"
#include "data/tolerances/tolerances.h"
#include "platform/values/numbers.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <QJsonArray>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// The instrument of a sheet.
struct Subject {
    QString mtag;
    QString asset = {};
    CalParamRecord params = {};
};

QString dateText(const Session& session, const std::optional<QString>& date) {
    if (!date)
        return {};
    return shortDate(requireDatePart(storedMoment(*date)).date, session.SessionDateFormat);
}

QString rangeText(float low, float high, const QString& unit) {
    return text(TextId::worksheetRange).arg(plainText(low), plainText(high), unit);
}

using R = CalParamRecord;

/// A term of the tolerance: its two sides, and its words around the amount and the unit of the output.
struct ToleranceTerm {
    float R::*positive;
    float R::*negative;
    TextId words;
};

constexpr ToleranceTerm toleranceTerms[] = {
    {&R::pos_fs_range_pct, &R::neg_fs_range_pct, TextId::fullScaleTerm},
    {&R::pos_span_pct, &R::neg_span_pct, TextId::spanTerm},
    {&R::pos_reading_pct, &R::neg_reading_pct, TextId::readingTerm},
    {&R::pos_lsd_counts, &R::neg_lsd_counts, TextId::countsTerm},
    {&R::pos_units, &R::neg_units, TextId::unitsTerm},
};

QString amountText(float positive, float negative) {
    if (positive == negative)
        return text(TextId::toleranceBothSides).arg(plainText(positive));
    return text(TextId::toleranceEachSide).arg(plainText(positive), plainText(negative));
}

/// The terms that are not 0, as a sum in words.
QString toleranceText(const CalParamRecord& params) {
    QString sum;
    for (const auto& term : toleranceTerms) {
        const float positive = params.*term.positive;
        const float negative = params.*term.negative;
        if (positive == 0 && negative == 0)
            continue;
        const auto words = text(term.words)
                               .replace(u"%1"_s, amountText(positive, negative))
                               .replace(u"%2"_s, params.output_type);
        sum = sum.isEmpty() ? words : text(TextId::nextTerm).arg(sum, words);
    }
    return sum;
}

/// Finds the instrument and fills in what the inventory says of it; false when the inventory lacks it.
bool addInventory(Session& session, Routine& routine, Subject& subject, QJsonObject& sheet) {
    const auto rows = routine.select(u"select i4201,i4202,i4203,i4204,i4206,i4230,i4231 from " +
                                         sqlName(session.SessionOwner) + u".inventory where mtag = " +
                                         sqlText(subject.mtag),
                                     Rows::first);
    if (!rows->next())
        return false;
    subject.asset = notNull(rows->value(0));
    sheet["asset"_L1] = subject.asset;
    sheet["manufacturer"_L1] = rows->value(1).value_or(QString());
    sheet["model"_L1] = rows->value(2).value_or(QString());
    sheet["description"_L1] = rows->value(3).value_or(QString());
    sheet["serial"_L1] = rows->value(4).value_or(QString());
    sheet["lastCalibration"_L1] = dateText(session, rows->value(5));
    sheet["due"_L1] = dateText(session, rows->value(6));
    return true;
}

void addLocation(Session& session, Subject& subject, QJsonObject& sheet) {
    sheet["location"_L1] = ModuleGlobals::SourceColumn(session, u"L2801"_s, subject.asset);
}

void addParameters(Session& session, Subject& subject, QJsonObject& sheet) {
    subject.params = ModuleGlobals::GetCalParams(session, subject.asset);
    const auto& params = subject.params;
    if (params.mtag.isEmpty())
        return;
    for (const auto& column : calParamColumns())
        sheet[column.name] = calParamText(params, column.member);
    sheet["input"_L1] = rangeText(params.input_low, params.input_high, params.input_type);
    sheet["output"_L1] = rangeText(params.output_low, params.output_high, params.output_type);
    sheet["strategy"_L1] = params.tp_name;
    sheet["tolerance"_L1] = toleranceText(params);
}

/// A fraction in percent, without the digits that its binary form would add.
QString percentText(float fraction) {
    return plainText(toReal(widenThroughText(fraction) * 100));
}

void addPoints(Session& session, Subject& subject, QJsonObject& sheet) {
    QJsonArray points;
    const auto fractions = ModuleGlobals::GetTestPointList(session, subject.asset);
    const auto repetitions = std::max<qsizetype>(subject.params.repetitions, 1);
    for (qsizetype reading = 0; reading < fractions.size(); ++reading) {
        const float fraction = fractions.at(reading);
        const auto expected = ModuleGlobals::expectedResult(
            session, subject.params, ModuleGlobals::inputAt(subject.params, double{fraction}));
        points << QJsonObject{{"number"_L1, QString::number(reading / repetitions + 1)},
                              {"percent"_L1, percentText(fraction)},
                              {"input"_L1, expected.input_text},
                              {"output"_L1, expected.nominal_text},
                              {"lower"_L1, expected.lower_text},
                              {"upper"_L1, expected.upper_text},
                              {"tolerance"_L1, expected.tolerance_text}};
    }
    sheet["points"_L1] = points;
}

QJsonArray messagesOf(Session& session, const QString& asset, qint16 kind) {
    QJsonArray messages;
    const auto prompts = ModuleGlobals::GetPrompts(session, asset, kind, {});
    for (const auto& prompt : prompts)
        messages << QJsonObject{
            {"name"_L1, prompt.pname},
            {"text"_L1, ModuleGlobals::UUTPromptTextPrepare(session, prompt.prompt, asset)}};
    return messages;
}

void addMessages(Session& session, Subject& subject, QJsonObject& sheet) {
    sheet["messagesBefore"_L1] = messagesOf(session, subject.asset, 0);
    sheet["messagesAfter"_L1] = messagesOf(session, subject.asset, 1);
}

void addFields(Session& session, Subject& subject, QJsonObject& sheet) {
    CalRecord record;
    ModuleGlobals::SetCalDataFields(session, record, subject.asset);
    QJsonArray fields;
    Routine routine(session, u"WorksheetReport,worksheetFields"_s);
    routine.run([&] {
        const auto numbers = routine.select(ModuleGlobals::worksheetFieldsQuery);
        while (numbers->next()) {
            const auto row = ModuleGlobals::calFieldRow(record, notNull(numbers->value(0)));
            if (!row)
                continue;
            const auto& field = std::as_const(record).CalFieldTable[*row];
            fields << QJsonObject{{"title"_L1, field.title},
                                  {"value"_L1, field.value},
                                  {"required"_L1, field.required == "Y"_L1 ? field.required : QString()}};
        }
    });
    sheet["fields"_L1] = fields;
}

void addStandards(Session& session, Subject& subject, QJsonObject& sheet) {
    QJsonArray standards;
    Routine routine(session, u"WorksheetReport,worksheetStandards"_s);
    routine.run([&] {
        const auto rows =
            routine.select(u"select i4201,i4204,i4206,i4231 from " + sqlName(session.SessionOwner) +
                           u".inventory where mtag in (select standard_mtag from "
                           u"mt.hvm_kv_last_standards_used where mtag = " +
                           sqlText(subject.mtag) + u") order by i4201 asc");
        while (rows->next()) {
            QJsonObject standard{{"asset"_L1, notNull(rows->value(0))}};
            standard["description"_L1] = rows->value(1).value_or(QString());
            standard["serial"_L1] = rows->value(2).value_or(QString());
            standard["due"_L1] = dateText(session, rows->value(3));
            standards << standard;
        }
    });
    sheet["standards"_L1] = standards;
}

using Part = void (*)(Session& session, Subject& subject, QJsonObject& sheet);

/// In this order: the points are worked out from the parameters.
constexpr Part parts[] = {addLocation, addParameters, addPoints, addMessages, addFields, addStandards};

void showFailure(Session& session, const QString& failure) {
    session.ui.messageBox(failure, text(TextId::calibrationWorksheet), box::stop);
}

} // namespace

QJsonObject worksheetValues(const Session& session, const QString& title) {
    const auto present = session.clock.moment();
    return {{"title"_L1, title},
            {"printed"_L1, shortDate(present.date, session.SessionDateFormat) + u' ' +
                               formatMoment(present, ModuleGlobals::screenForm(session).time)},
            {"printedBy"_L1, session.SessionUser}};
}

std::optional<QStringList> worksheetInstruments(Session& session, const QString& tag) {
    Routine routine(session, u"WorksheetReport,worksheetInstruments"_s);
    return routine.resultOf([&] {
        QStringList instruments;
        const auto rows =
            routine.select(u"select mtag from mt.hvm_kv_task_assets where tptag = " + sqlText(tag));
        while (rows->next())
            instruments << rows->value(0).value_or(QString());
        return instruments;
    });
}

bool readWorksheet(Session& session, const QString& mtag, QJsonObject& sheet) {
    const ReportWatch watch(session);
    Subject subject{.mtag = mtag};
    Routine routine(session, u"WorksheetReport,readWorksheet"_s);
    const auto found = routine.resultOf([&] { return addInventory(session, routine, subject, sheet); });
    if (found == false)
        showFailure(session, text(TextId::worksheetInstrumentGone).arg(mtag));
    if (!found.value_or(false))
        return false;
    for (const auto part : parts) {
        part(session, subject, sheet);
        if (watch.sawReport())
            return false;
    }
    return true;
}

} // namespace kelvane
