#include "data/worksheets/worksheet_data.h"

#include "testkit/database_session.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// Sheets over the demonstration data.
class WorksheetsOnDatabase : public DatabaseSession {
  protected:
    QString keyOf(const QString& asset) {
        auto quoted = asset;
        quoted.replace(u"'"_s, u"''"_s);
        return value(u"select mtag from MT.inventory where i4201 = '"_s + quoted + u'\'');
    }
    bool hasSheet(const QString& mtag) {
        QJsonObject made;
        return readWorksheet(session, mtag, made);
    }
    QJsonObject sheetOf(const QString& asset) {
        QJsonObject made;
        EXPECT_TRUE(readWorksheet(session, keyOf(asset), made)) << asset.toStdString();
        return made;
    }
};

QStringList column(const QJsonObject& sheet, QLatin1StringView list, QLatin1StringView name) {
    QStringList values;
    const auto rows = sheet[list].toArray();
    for (const auto& row : rows)
        values << row.toObject()[name].toString();
    return values;
}

} // namespace

TEST_F(WorksheetsOnDatabase, APressureTransmitterHasEverythingThatIsStoredOfIt) {
    const auto sheet = sheetOf(u"PT-101"_s);
    EXPECT_EQ(sheet["asset"_L1].toString(), u"PT-101"_s);
    EXPECT_EQ(sheet["manufacturer"_L1].toString(), u"VALTEC"_s);
    EXPECT_EQ(sheet["location"_L1].toString(), u"UNIT 1 HEADER"_s);
    EXPECT_EQ(sheet["input"_L1].toString(), u"0 to 100 psig"_s);
    EXPECT_EQ(sheet["output"_L1].toString(), u"4 to 20 mA"_s);
    EXPECT_EQ(sheet["tolerance"_L1].toString(), u"±0.25% of span"_s);
    EXPECT_EQ(sheet["strategy"_L1].toString(), u"5 POINT UP"_s);
    EXPECT_EQ(
        column(sheet, "points"_L1, "input"_L1),
        (QStringList{u"0.000psig"_s, u"25.000psig"_s, u"50.000psig"_s, u"75.000psig"_s, u"100.000psig"_s}));
    EXPECT_EQ(column(sheet, "points"_L1, "lower"_L1),
              (QStringList{u"3.960"_s, u"7.960"_s, u"11.960"_s, u"15.960"_s, u"19.960"_s}));
    EXPECT_EQ(column(sheet, "messagesBefore"_L1, "text"_L1).value(0),
              u"Get a work permit before you isolate PT-101, jdoe."_s);
    EXPECT_EQ(column(sheet, "messagesAfter"_L1, "name"_L1),
              (QStringList{u"RETURN TO SERVICE"_s, u"LABEL"_s}));
    EXPECT_EQ(column(sheet, "fields"_L1, "title"_L1),
              (QStringList{u"Place of Calibration"_s, u"Ambient Temperature (C)"_s}));
    EXPECT_EQ(column(sheet, "fields"_L1, "required"_L1), (QStringList{QString(), u"Y"_s}));
    EXPECT_EQ(column(sheet, "standards"_L1, "asset"_L1), QStringList());
}

TEST_F(WorksheetsOnDatabase, ATorqueToolHasTheStandardLastUsed) {
    const auto sheet = sheetOf(u"TW-101"_s);
    EXPECT_EQ(column(sheet, "standards"_L1, "asset"_L1), QStringList{u"TT-0300F"_s});
    EXPECT_EQ(sheet["measurement_mode_out"_L1].toString(), u"Click Dip"_s);
    EXPECT_EQ(sheet["location"_L1].toString(), u"ASSEMBLY LINE 1"_s);
}

TEST_F(WorksheetsOnDatabase, EveryInstrumentThatIsReadyForWorkHasASheetWithPoints) {
    const auto ready =
        values(u"select i4201 from MT.inventory where i4201 not like '%''%' and mtag in (select mtag from "
               "mt.hvm_kv_tag_config where tp_name in (select tp_name from mt.hvm_kv_proc_points))"_s);
    EXPECT_GT(ready.size(), 30);
    for (const auto& asset : ready) {
        const auto sheet = sheetOf(asset);
        EXPECT_FALSE(sheet["points"_L1].toArray().isEmpty()) << asset.toStdString();
        EXPECT_FALSE(sheet["tolerance"_L1].toString().isEmpty()) << asset.toStdString();
    }
}

TEST_F(WorksheetsOnDatabase, AnInstrumentWithoutParametersHasASheetWithoutPoints) {
    const auto sheet = sheetOf(u"UC-901"_s);
    EXPECT_EQ(sheet["model"_L1].toString(), u"P100"_s);
    EXPECT_TRUE(sheet["points"_L1].toArray().isEmpty());
    EXPECT_FALSE(sheet.contains("input"_L1));
}

TEST_F(WorksheetsOnDatabase, AQuoteInTheInstrumentsNumberIsReportedByTheFirstRoutineThatAsksForIt) {
    ui.expectReport(1, u"ModuleGlobals,SourceColumn"_s);
    EXPECT_FALSE(hasSheet(keyOf(u"LT-10'COL"_s)));
}

TEST_F(WorksheetsOnDatabase, AnInstrumentThatTheInventoryLacksIsNamedByItsKey) {
    ui.expectBox(u"An instrument of the task package is not in the inventory (its key: \"no such\")."_s,
                 u"Calibration Worksheet"_s, box::stop);
    EXPECT_FALSE(hasSheet(u"no such"_s));
}

TEST_F(WorksheetsOnDatabase, TooManyPointsAreReported) {
    execute(u"update mt.hvm_kv_tag_config set repetitions = 41 where mtag = '"_s + keyOf(u"PT-101"_s) +
            u'\'');
    ui.expectReport(9, u"ModuleGlobals,GetTestPointList"_s);
    EXPECT_FALSE(hasSheet(keyOf(u"PT-101"_s)));
}

TEST_F(WorksheetsOnDatabase, InstrumentsOfAPackageComeAsOftenAsTheyAreListed) {
    for (const auto& asset : {u"TW-101"_s, u"PT-101"_s, u"TIT-201"_s, u"PT-101"_s})
        execute(u"insert into mt.hvm_kv_task_assets (tptag,mtag) values ('SHEETS',(select mtag from "
                "MT.inventory where i4201 = '"_s +
                asset + u"'));commit"_s);
    auto instruments = worksheetInstruments(session, u"SHEETS"_s).value_or(QStringList());
    instruments.sort();
    EXPECT_EQ(instruments,
              (QStringList{keyOf(u"TW-101"_s), keyOf(u"PT-101"_s), keyOf(u"PT-101"_s), keyOf(u"TIT-201"_s)}));
}

} // namespace kelvane::testing
