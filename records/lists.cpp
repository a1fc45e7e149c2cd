#include "records/lists.h"

#include "platform/values/texts.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// The verdict in words; another mark than the two is shown as it is stored.
QString resultText(const QString& passed) {
    if (passed == u"Y")
        return text(TextId::resultPassed);
    return passed == u"N" ? text(TextId::resultFailed) : passed;
}

template <class Row, auto member>
QString storedValue(const Row& row) {
    return row.*member;
}

/// Without the blanks that a column of a fixed width has at its end.
template <class Row>
QString assetValue(const Row& row) {
    return withoutBlanksAtEnd(row.asset);
}

template <class Row, auto member>
QString dateValue(const Row& row) {
    return dateText(row.*member);
}

template <class Row, auto member>
QString timeValue(const Row& row) {
    return timeText(row.*member);
}

template <class Row>
QString resultValue(const Row& row) {
    return resultText(row.passed);
}

QString daysLeftValue(const InstrumentSummary& instrument) {
    return instrument.daysLeft ? QString::number(*instrument.daysLeft) : QString();
}

/// Of the newest registration.
InstrumentOut newestOut(const InstrumentSummary& instrument) {
    return instrument.out.value(0);
}

QString calibratorValue(const InstrumentSummary& instrument) {
    return newestOut(instrument).serial;
}

QString senderValue(const InstrumentSummary& instrument) {
    return newestOut(instrument).technician;
}

QString outSinceValue(const InstrumentSummary& instrument) {
    return dateText(newestOut(instrument).since);
}

QString standardsValue(const CalibrationRecord& record) {
    QStringList standards;
    for (const auto& standard : record.standards)
        standards << standardText(standard);
    return standards.join(u"; "_s);
}

QString lineCountValue(const CalibrationRecord& record) {
    return QString::number(record.lines.size());
}

using Instrument = InstrumentSummary;
using Record = CalibrationRecord;
using Use = StandardUse;
constexpr auto words = CsvCell::text;
constexpr auto number = CsvCell::number;

constexpr ListColumn<Instrument> instruments[] = {
    {TextId::listAsset, words, assetValue<Instrument>},
    {TextId::packageDescription, words, storedValue<Instrument, &Instrument::description>},
    {TextId::listManufacturer, words, storedValue<Instrument, &Instrument::manufacturer>},
    {TextId::packageModel, words, storedValue<Instrument, &Instrument::model>},
    {TextId::listSerialNumber, words, storedValue<Instrument, &Instrument::serial>},
    {TextId::listGroup, words, storedValue<Instrument, &Instrument::group>},
    {TextId::listLocation, words, storedValue<Instrument, &Instrument::location>},
    {TextId::listLastCalibration, words, dateValue<Instrument, &Instrument::lastCalibration>},
    {TextId::listState, words, storedValue<Instrument, &Instrument::state>},
    {TextId::listResult, words, resultValue<Instrument>},
    {TextId::listDue, words, dateValue<Instrument, &Instrument::due>},
    {TextId::listDaysLeft, number, daysLeftValue},
    {TextId::listOutWith, words, calibratorValue},
    {TextId::listTechnician, words, senderValue},
    {TextId::listOutSince, words, outSinceValue},
};

constexpr ListColumn<Record> calibrations[] = {
    {TextId::listRecord, words, storedValue<Record, &Record::ctag>},
    {TextId::listDate, words, dateValue<Record, &Record::date>},
    {TextId::listTime, words, timeValue<Record, &Record::time>},
    {TextId::listState, words, storedValue<Record, &Record::state>},
    {TextId::listResult, words, resultValue<Record>},
    {TextId::listDue, words, dateValue<Record, &Record::due>},
    {TextId::listTechnician, words, storedValue<Record, &Record::technician>},
    {TextId::listLaboratory, words, storedValue<Record, &Record::laboratory>},
    {TextId::listProcedure, words, storedValue<Record, &Record::procedure>},
    {TextId::listStrategy, words, storedValue<Record, &Record::strategy>},
    {TextId::listPlace, words, storedValue<Record, &Record::place>},
    {TextId::listWorkOrder, words, storedValue<Record, &Record::workOrder>},
    {TextId::listExternalTemperature, number, storedValue<Record, &Record::externalTemperature>},
    {TextId::listAmbientTemperature, number, storedValue<Record, &Record::ambientTemperature>},
    {TextId::listHumidity, number, storedValue<Record, &Record::humidity>},
    {TextId::listMarginalPoints, number, storedValue<Record, &Record::marginalPoints>},
    {TextId::listFailedPoints, number, storedValue<Record, &Record::failedPoints>},
    {TextId::standardsUsed, words, standardsValue},
    {TextId::listResultLines, number, lineCountValue},
    {TextId::listRemarks, words, storedValue<Record, &Record::remarks>},
    {TextId::listFurtherRemarks, words, storedValue<Record, &Record::furtherRemarks>},
    {TextId::listSource, words, storedValue<Record, &Record::source>},
};

constexpr ListColumn<Use> standardUses[] = {
    {TextId::listAsset, words, assetValue<Use>},
    {TextId::packageDescription, words, storedValue<Use, &Use::description>},
    {TextId::listDate, words, dateValue<Use, &Use::date>},
    {TextId::listTime, words, timeValue<Use, &Use::time>},
    {TextId::listState, words, storedValue<Use, &Use::state>},
    {TextId::listResult, words, resultValue<Use>},
    {TextId::listRecord, words, storedValue<Use, &Use::ctag>},
};

} // namespace

QString standardText(const UsedStandard& standard) {
    const auto name = withoutBlanksAtEnd(standard.asset);
    // Its records are found through the inventory, so that nothing is known of its state.
    if (name.isEmpty())
        return u"%1 (%2)"_s.arg(standard.mtag.isEmpty() ? text(TextId::notStated) : standard.mtag,
                                text(TextId::historyGone));
    const auto due = dateText(standard.due);
    switch (standard.state) {
    case StandardState::inCalibration:
        return text(TextId::standardInCalibration).arg(name, due);
    case StandardState::overdue:
        return text(TextId::standardOverdueThen).arg(name, due);
    case StandardState::notPassed:
        return text(TextId::standardNotPassedThen).arg(name);
    case StandardState::withoutDueDate:
        return text(TextId::standardWithoutDueDate).arg(name);
    case StandardState::withoutRecord:
        return text(TextId::standardWithoutRecord).arg(name);
    }
    return name;
}

std::span<const ListColumn<InstrumentSummary>> instrumentColumns() {
    return instruments;
}

std::span<const ListColumn<CalibrationRecord>> calibrationColumns() {
    return calibrations;
}

std::span<const ListColumn<StandardUse>> standardUseColumns() {
    return standardUses;
}

QString calibrationText(const CalibrationRecord& record, TextId title) {
    const auto* column = std::ranges::find(calibrations, title, &ListColumn<CalibrationRecord>::title);
    return column == std::end(calibrations) ? QString() : column->value(record);
}

QString recordCaption(const CalibrationRecord& record) {
    QStringList parts;
    for (const auto title : {TextId::listDate, TextId::listTime, TextId::listState, TextId::listResult})
        parts << calibrationText(record, title);
    parts.removeAll(QString());
    return parts.join(u' ');
}

} // namespace kelvane
