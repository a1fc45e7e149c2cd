#include "records/certificate_data.h"

#include "records/certificate_results.h"
#include "records/certificate_standards.h"
#include "records/report_parts.h"
#include "resources/strings.h"
#include "resources/text_id.h"
#include "testkit/shown_in.h"
#include "tests/records/certificate_fixture.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class CertificateValues : public CertificateSession {
  protected:
    QJsonObject values(const CertifiedCalibration& calibration) {
        return certificateValues(session, calibration, entered);
    }
    /// The cells of a row in the order of their columns.
    static QString row(const QJsonObject& values, const QString& list, int row) {
        const auto cells = values[list].toArray()[row].toObject();
        QStringList shown;
        for (const auto& name : {"point"_L1, "applied"_L1, "nominal"_L1, "reading"_L1, "error"_L1,
                                 "lowLimit"_L1, "highLimit"_L1, "verdict"_L1})
            shown << cells[name].toString();
        return shown.join(u'|');
    }
    /// The text of a statement.
    static QString statement(const QJsonObject& values, TextId title) {
        for (const auto& row : values["statements"_L1].toArray()) {
            if (row.toObject()["title"_L1].toString() == text(title))
                return row.toObject()["text"_L1].toString();
        }
        return u"none"_s;
    }
    static QStringList notes(const QJsonObject& values) {
        QStringList found;
        for (const auto& row : values["notes"_L1].toArray())
            found << row.toObject()["text"_L1].toString();
        return found;
    }

    CertificateSettings entered;
};

TEST_F(CertificateValues, HaveWhatTheRecordsSay) {
    auto calibration = adjusted();
    for (auto* record : {&*calibration.asFound, &*calibration.asLeft}) {
        record->laboratory = u"IN-HOUSE"_s;
        record->procedure = u"KP-1"_s;
        record->strategy = u"5 POINT UP"_s;
        record->place = u"LAB"_s;
        record->workOrder = u"WO-1"_s;
        record->technician = u"jdoe"_s;
        record->ambientTemperature = u"21.5"_s;
    }
    calibration.asFound->humidity = u"45"_s;
    calibration.asLeft->humidity = u"47"_s;
    calibration.asFound->remarks = u"Out as found."_s;
    calibration.asLeft->remarks = u"Adjusted."_s;
    calibration.asLeft->furtherRemarks = u"Sealed."_s;
    const auto shown = values(calibration);
    const struct {
        QLatin1StringView name;
        QString value;
    } rows[] = {
        {"number"_L1, u"MT-501/502"_s},
        {"asset"_L1, u"PT-101"_s},
        {"description"_L1, u"PRESSURE TRANSMITTER"_s},
        {"manufacturer"_L1, u"VALTEC"_s},
        {"model"_L1, u"X-10"_s},
        {"serial"_L1, u"S 77"_s},
        {"laboratory"_L1, u"IN-HOUSE"_s},
        {"place"_L1, u"LAB"_s},
        {"workOrder"_L1, u"WO-1"_s},
        {"calibrated"_L1, u"2026-03-17"_s},
        {"received"_L1, u"not stated"_s},
        {"issued"_L1, u"2026-03-18"_s},
        {"method"_L1, u"Procedure: KP-1\nTest Strategy: 5 POINT UP"_s},
        {"conditions"_L1, u"Ambient Temperature: 21.5\nRelative Humidity: 45 (as found); 47 (as left)"_s},
        {"calibratedBy"_L1, u"jdoe"_s},
        {"resultsFoundTitle"_L1, u"Results as Found"_s},
        {"resultsLeftTitle"_L1, u"Results as Left"_s}};
    for (const auto& row : rows)
        EXPECT_EQ(shown[row.name].toString(), row.value) << row.name.data();
    EXPECT_EQ(row(shown, u"resultsFound"_s, 0),
              u"1|0.000 psig|4.000 mA|4.010 mA|0.010 mA|3.960 mA|4.040 mA|"_s);
    EXPECT_EQ(row(shown, u"resultsLeft"_s, 1),
              u"2|50.000 psig|12.000 mA|11.966 mA|-0.034 mA|11.960 mA|12.040 mA|"_s);
    EXPECT_EQ(statement(shown, TextId::listRemarks),
              u"as found: Out as found.\nas left: Adjusted.\nSealed."_s);
    EXPECT_EQ(notes(shown), QStringList());
}

TEST_F(CertificateValues, TakeWhatTheSettingsSayFirst) {
    entered.laboratory = u"Nordhafen"_s;
    entered.address = u"1 Quay\n4000 Westport"_s;
    entered.accreditation = u"No. 0815"_s;
    entered.customer = u"Boiler House"_s;
    entered.method = u"After our handbook."_s;
    entered.traceability = u"To the SI."_s;
    entered.uncertainty = u"0.02 %"_s;
    entered.authorizedBy = u"E. Fischer"_s;
    auto calibration = adjusted();
    calibration.asFound->laboratory = u"IN-HOUSE"_s;
    calibration.asFound->procedure = calibration.asLeft->procedure = u"KP-1"_s;
    const auto shown = values(calibration);
    EXPECT_EQ(shown["laboratory"_L1].toString(), u"Nordhafen"_s);
    EXPECT_EQ(shown["address"_L1].toString(), u"1 Quay\n4000 Westport"_s);
    EXPECT_EQ(shown["accreditation"_L1].toString(), u"No. 0815"_s);
    EXPECT_EQ(shown["customer"_L1].toString(), u"Boiler House"_s);
    EXPECT_EQ(shown["method"_L1].toString(), u"After our handbook.\nProcedure: KP-1"_s);
    EXPECT_EQ(shown["authorizedBy"_L1].toString(), u"E. Fischer"_s);
    EXPECT_EQ(statement(shown, TextId::certificateTraceability), u"To the SI."_s);
    EXPECT_EQ(statement(shown, TextId::certificateUncertainty), u"0.02 %"_s);
}

TEST_F(CertificateValues, TakeTheCustomerOfTheDatabaseBeforeThatOfTheSettings) {
    entered.customer = u"Boiler House"_s;
    auto calibration = adjusted();
    script.answers[u"select max(k4601) from MT.customers where mtag = '1401'"_s] = {
        {u"UNIT 1 OPERATIONS  "_s}};
    EXPECT_TRUE(readCustomer(session, calibration));
    EXPECT_EQ(values(calibration)["customer"_L1].toString(), u"UNIT 1 OPERATIONS"_s);
    EXPECT_EQ(values(adjusted())["customer"_L1].toString(), u"Boiler House"_s);
}

TEST_F(CertificateValues, SayThatRecordsOfTwoDaysArePairedByTheirOrder) {
    auto calibration = adjusted();
    calibration.asFound->date = storedMomentOf(u"2020-01-01"_s);
    EXPECT_EQ(notes(values(calibration)), QStringList(text(TextId::historyPairedByOrder)));
}

TEST_F(CertificateValues, OfWhatNobodyKnowsAreNotStated) {
    const auto shown = values(blank());
    for (const auto& name : {"asset"_L1, "description"_L1, "manufacturer"_L1, "model"_L1, "serial"_L1,
                             "laboratory"_L1, "customer"_L1, "place"_L1, "workOrder"_L1, "calibratedBy"_L1,
                             "authorizedBy"_L1, "calibrated"_L1, "received"_L1, "method"_L1, "conditions"_L1})
        EXPECT_EQ(shown[name].toString(), u"not stated"_s) << name.data();
    EXPECT_EQ(shown["address"_L1].toString(), u"Address: not stated"_s);
    EXPECT_EQ(shown["accreditation"_L1].toString(), QString());
    EXPECT_EQ(shown["standards"_L1].toArray(), (QJsonArray{QJsonObject{{u"standard"_s, u"not stated"_s}}}));
    EXPECT_EQ(shown["resultsFound"_L1].toArray(),
              (QJsonArray{QJsonObject{{u"note"_s, text(TextId::historyNoLines)}}}));
    EXPECT_FALSE(shown.contains("resultsLeft"_L1));
    EXPECT_EQ(statement(shown, TextId::certificateConformity),
              u"No statement of conformity is made.\nDecision rule: not stated."_s);
    EXPECT_EQ(statement(shown, TextId::listRemarks), u"none"_s);
    EXPECT_EQ(notes(shown), QStringList(text(TextId::historyAlone)));
}

TEST_F(CertificateValues, StateConformityByTheirRule) {
    const auto calibration = adjusted();
    entered.rule = DecisionRule::simpleAcceptance;
    auto shown = values(calibration);
    EXPECT_EQ(statement(shown, TextId::certificateConformity),
              u"as found: Not all points conform under the decision rule that is stated.\nas left: All "
              u"points conform "
              u"to the limits that are stated.\nDecision rule: simple "
              "acceptance; a reading within its limits conforms."_s);
    EXPECT_EQ(row(shown, u"resultsFound"_s, 1).section(u'|', -1), u"failed"_s);
    EXPECT_EQ(row(shown, u"resultsLeft"_s, 1).section(u'|', -1), u"passed"_s);
    entered.rule = DecisionRule::guardBand;
    entered.guardBand = 20;
    shown = values(calibration);
    EXPECT_EQ(statement(shown, TextId::certificateConformity),
              u"Not all points conform under the decision rule that is stated.\nDecision rule: guard band; a "
              u"reading "
              u"conforms when its error is at "
              "most 80 percent of the tolerance."_s);
    EXPECT_EQ(row(shown, u"resultsLeft"_s, 1).section(u'|', -1), u"failed"_s) << "85 percent";
    entered.guardBand = 12.5;
    EXPECT_TRUE(statement(values(calibration), TextId::certificateConformity)
                    .contains(u"as left: All points conform to the limits that are stated.\nDecision rule: "
                              u"guard band; a reading conforms "
                              "when its error is at most 87.5 percent of the tolerance."_s));
}

TEST_F(CertificateValues, KeepLinesThatCanNotBeReadAsTheyAreStored) {
    const auto stored = u"  9 of another program   12.3  PASS"_s;
    auto calibration = adjusted();
    calibration.asLeft->lines << stored;
    entered.rule = DecisionRule::guardBand;
    const auto shown = values(calibration);
    EXPECT_EQ(shown["resultsLeft"_L1].toArray()[2].toObject(), (QJsonObject{{u"stored"_s, stored}}));
    EXPECT_EQ(notes(shown), QStringList(text(TextId::certificateUnreadable)));
    EXPECT_TRUE(statement(shown, TextId::certificateConformity)
                    .contains(u"as left: No statement of conformity is made."_s));
    session.ResultTemplateLine = {};
    EXPECT_EQ(values(calibration)["resultsFound"_L1].toArray()[0].toObject()["stored"_L1].toString(),
              calibration.asFound->lines[0]);
}

TEST_F(CertificateValues, TellWhatACalibrationLacks) {
    auto calibration = adjusted();
    calibration.asFound.reset();
    EXPECT_EQ(notes(values(calibration)), QStringList(text(TextId::historyNoAsFound)));
    EXPECT_FALSE(values(calibration).contains("resultsFound"_L1));
    EXPECT_EQ(values(calibration)["number"_L1].toString(), u"MT-502"_s);
    calibration = adjusted();
    calibration.asLeft.reset();
    EXPECT_EQ(notes(values(calibration)), QStringList(text(TextId::historyNoAsLeft)));
    calibration.asFound->run = CalibrationRun::foundLeft;
    EXPECT_EQ(notes(values(calibration)), QStringList());
    EXPECT_EQ(values(calibration)["resultsFoundTitle"_L1].toString(), u"Results as Found and as Left"_s);
}

TEST_F(CertificateValues, NameEachStandardOnceWithItsStateOnThatDay) {
    const UsedStandard module{.mtag = u"1205"_s,
                              .asset = u"PM-100"_s,
                              .description = u"PRESSURE MODULE"_s,
                              .serial = u"71204"_s,
                              .state = StandardState::inCalibration,
                              .record = u"MT-1401"_s,
                              .laboratory = u"NATIONAL"_s,
                              .calibrated = storedMomentOf(u"2026-01-02"_s),
                              .due = storedMomentOf(u"2027-01-02"_s)};
    auto late = module;
    late.asset = u"DMM-01"_s;
    late.state = StandardState::overdue;
    const UsedStandard gone{.mtag = u"77"_s};
    auto calibration = adjusted();
    calibration.asFound->standards = {module, module};
    calibration.asLeft->standards = {module, late, gone};
    const auto rows = standardRows(calibration);
    ASSERT_EQ(rows.size(), 3);
    EXPECT_EQ(rows[0].toObject(), (QJsonObject{{u"standard"_s, u"PM-100 (in calibration, due 2027-01-02)"_s},
                                               {u"description"_s, u"PRESSURE MODULE"_s},
                                               {u"serial"_s, u"71204"_s},
                                               {u"calibrated"_s, u"2026-01-02\nMT-1401\nNATIONAL"_s}}));
    EXPECT_EQ(rows[1].toObject()["standard"_L1].toString(), u"DMM-01 (overdue since 2027-01-02) (as left)"_s);
    EXPECT_EQ(rows[2].toObject()["standard"_L1].toString(),
              u"77 (not in the inventory any more) (as left)"_s);
    EXPECT_EQ(rows[2].toObject()["description"_L1].toString(), u"not stated"_s);
    EXPECT_EQ(rows[2].toObject()["serial"_L1].toString(), u"not stated"_s);
    EXPECT_EQ(rows[2].toObject()["calibrated"_L1].toString(), u"not stated"_s);
}

TEST_F(CertificateValues, SpeakTheLanguageOfTheProgram) {
    const ShownIn german(u"de"_s);
    const auto labels = certificateLabels();
    EXPECT_EQ(labels["title"_L1].toString(), u"Kalibrierschein"_s);
    EXPECT_EQ(labels["pageBefore"_L1].toString() + u'1' + labels["pageBetween"_L1].toString() + u'2' +
                  labels["pageBehind"_L1].toString(),
              u"Seite 1 von 2"_s);
    EXPECT_EQ(values(blank())["customer"_L1].toString(), u"nicht angegeben"_s);
}

TEST(CertifiedCalibration, IsThePairOfTheChosenRecord) {
    CalibrationRecord left;
    left.ctag = u"2"_s;
    left.run = CalibrationRun::asLeft;
    left.date = storedMomentOf(u"2026-03-17"_s);
    auto found = left;
    found.ctag = u"1"_s;
    found.run = CalibrationRun::asFound;
    for (const auto chosen : {0, 1}) {
        const auto calibration = certifiedCalibration({}, {left, found}, chosen);
        EXPECT_EQ(calibration.asFound->ctag + calibration.asLeft->ctag, u"12"_s);
        EXPECT_EQ(certificateDate(calibration), u"2026-03-17"_s);
    }
    EXPECT_FALSE(certifiedCalibration({}, {found}, 0).asLeft);
}

} // namespace kelvane::testing
