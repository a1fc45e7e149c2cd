#include "records/certificate_data.h"

#include "platform/values/texts.h"
#include "records/certificate_results.h"
#include "records/certificate_standards.h"
#include "records/lists.h"
#include "records/report_parts.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

struct Label {
    QLatin1StringView name;
    TextId text;
};

constexpr Label labels[] = {
    {"title"_L1, TextId::certificateTitle},
    {"labelNumber"_L1, TextId::certificateNumber},
    {"labelLaboratory"_L1, TextId::listLaboratory},
    {"labelCustomer"_L1, TextId::certificateCustomer},
    {"labelItem"_L1, TextId::certificateItem},
    {"labelAsset"_L1, TextId::listAsset},
    {"labelDescription"_L1, TextId::packageDescription},
    {"labelManufacturer"_L1, TextId::listManufacturer},
    {"labelModel"_L1, TextId::packageModel},
    {"labelSerial"_L1, TextId::listSerialNumber},
    {"labelCalibrated"_L1, TextId::certificateCalibrated},
    {"labelReceived"_L1, TextId::certificateReceived},
    {"labelIssued"_L1, TextId::certificateIssued},
    {"labelPlace"_L1, TextId::certificatePlace},
    {"labelWorkOrder"_L1, TextId::listWorkOrder},
    {"labelMethod"_L1, TextId::certificateMethod},
    {"labelConditions"_L1, TextId::certificateConditions},
    {"labelPoint"_L1, TextId::historyPoint},
    {"labelApplied"_L1, TextId::certificateApplied},
    {"labelNominal"_L1, TextId::historyNominal},
    {"labelReading"_L1, TextId::historyReading},
    {"labelError"_L1, TextId::historyError},
    {"labelLowLimit"_L1, TextId::historyLowLimit},
    {"labelHighLimit"_L1, TextId::historyHighLimit},
    {"labelVerdict"_L1, TextId::historyVerdict},
    {"labelPlot"_L1, TextId::certificatePlot},
    {"labelStandards"_L1, TextId::certificateStandards},
    {"labelLastCalibration"_L1, TextId::listLastCalibration},
    {"labelCalibratedBy"_L1, TextId::certificateCalibratedBy},
    {"labelAuthorizedBy"_L1, TextId::certificateAuthorizedBy},
    {"scope"_L1, TextId::certificateScope},
    {"copies"_L1, TextId::certificateCopies},
    {"end"_L1, TextId::certificateEnd},
};

/// "Address: not stated", by a title that ends with its colon.
QString notStated(TextId title) {
    return text(title) + u' ' + text(TextId::notStated);
}

/// Particulars of the records that stand in one place of the certificate, each behind its title.
QString titled(const CertifiedCalibration& calibration, std::initializer_list<TextId> titles) {
    QStringList lines;
    for (const auto title : titles) {
        const auto value = ofBothRecords(
            calibration, [title](const CalibrationRecord& record) { return calibrationText(record, title); });
        if (!value.isEmpty())
            lines << text(title) + u": "_s + value;
    }
    return lines.join(u'\n');
}

QString ofColumn(const CertifiedCalibration& calibration, TextId title) {
    return ofBothRecords(calibration,
                         [title](const CalibrationRecord& record) { return calibrationText(record, title); });
}

/// The settings' value, or the database's where there is none.
QString firstStated(const QString& first, const QString& second) {
    return stated(first.isEmpty() ? second : first);
}

void addItem(const InstrumentSummary& instrument, QJsonObject& values) {
    values["asset"_L1] = stated(withoutBlanksAtEnd(instrument.asset));
    values["description"_L1] = stated(instrument.description);
    values["manufacturer"_L1] = stated(instrument.manufacturer);
    values["model"_L1] = stated(instrument.model);
    values["serial"_L1] = stated(instrument.serial);
}

void addParties(const CertifiedCalibration& calibration, const CertificateSettings& settings,
                QJsonObject& values) {
    values["laboratory"_L1] = firstStated(settings.laboratory, ofColumn(calibration, TextId::listLaboratory));
    values["address"_L1] =
        settings.address.isEmpty() ? notStated(TextId::certificateSettingsAddress) : settings.address;
    values["accreditation"_L1] = settings.accreditation;
    values["customer"_L1] = firstStated(calibration.customer, settings.customer);
    values["place"_L1] = stated(ofColumn(calibration, TextId::listPlace));
    values["workOrder"_L1] = stated(ofColumn(calibration, TextId::listWorkOrder));
    values["calibratedBy"_L1] = stated(ofColumn(calibration, TextId::listTechnician));
    values["authorizedBy"_L1] = stated(settings.authorizedBy);
}

void addCircumstances(const Session& session, const CertifiedCalibration& calibration,
                      const CertificateSettings& settings, QJsonObject& values) {
    values["calibrated"_L1] = stated(ofColumn(calibration, TextId::listDate));
    values["received"_L1] = text(TextId::notStated);
    values["issued"_L1] = session.clock.moment().date.toString(Qt::ISODate);
    auto method = titled(calibration, {TextId::listProcedure, TextId::listStrategy});
    if (!settings.method.isEmpty())
        method = method.isEmpty() ? settings.method : settings.method + u'\n' + method;
    values["method"_L1] = stated(method);
    values["conditions"_L1] =
        stated(titled(calibration, {TextId::listExternalTemperature, TextId::listAmbientTemperature,
                                    TextId::listHumidity}));
}

QString remarksOf(const CertifiedCalibration& calibration) {
    return sentencesOfBoth(calibration, [](const CalibrationRecord& record) {
        QStringList remarks{record.remarks, record.furtherRemarks};
        remarks.removeAll(QString());
        return remarks.join(u'\n');
    });
}

} // namespace

QJsonObject certificateLabels() {
    QJsonObject values;
    for (const auto& label : labels)
        values[label.name] = text(label.text);
    addPageWords(values);
    return values;
}

QJsonObject certificateValues(Session& session, const CertifiedCalibration& calibration,
                              const CertificateSettings& settings) {
    QJsonObject values;
    values["number"_L1] = certificateNumber(session, calibration);
    addItem(calibration.instrument, values);
    addParties(calibration, settings, values);
    addCircumstances(session, calibration, settings, values);
    const auto conformity = addResults(session, calibration, settings, values);
    values["standards"_L1] = standardRows(calibration);

    QJsonArray statements;
    const auto state = [&](TextId title, const QString& statement) {
        statements << QJsonObject{{"title"_L1, text(title)}, {"text"_L1, statement}};
    };
    state(TextId::certificateTraceability, stated(settings.traceability));
    state(TextId::certificateConformity, conformity);
    state(TextId::certificateUncertainty, stated(settings.uncertainty));
    if (const auto remarks = remarksOf(calibration); !remarks.isEmpty())
        state(TextId::listRemarks, remarks);
    values["statements"_L1] = statements;
    return values;
}

} // namespace kelvane
