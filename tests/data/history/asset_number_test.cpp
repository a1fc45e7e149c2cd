#include "data/history/asset_number.h"

#include "data/history/calibrations.h"
#include "data/history/instruments.h"
#include "data/history/standard_use.h"
#include "testkit/database_session.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

/// The inventory with PT-101 in a column of a fixed width.
class PaddedAssetNumbers : public DatabaseSession {
  protected:
    PaddedAssetNumbers() {
        execute(u"update mt.inventory set i4201 = '%1' where i4201 = 'PT-101'"_s.arg(padded));
    }
    QString stored(const QString& typed) { return storedAssetNumber(session, typed).found.value_or(u"-"_s); }

    const QString padded = u"PT-101    "_s;
};

TEST_F(PaddedAssetNumbers, AreFoundWithoutTheirBlanks) {
    for (const auto& typed : {u"PT-101"_s, u"pt-101"_s, u" PT-101 "_s, padded})
        EXPECT_EQ(stored(typed), padded) << typed.toStdString();
    EXPECT_EQ(stored(u"PT-102"_s), u"PT-102"_s);
    EXPECT_EQ(stored(u"pt-102 "_s), u"PT-102"_s);
    EXPECT_EQ(stored(u"LT-10'COL "_s), u"LT-10'COL"_s);
}

TEST_F(PaddedAssetNumbers, AreOthersThanTheSameWithoutBlanks) {
    execute(u"update mt.inventory set i4201 = 'PT-101' where i4201 = 'PT-102'"_s);
    EXPECT_EQ(stored(u"PT-101"_s), u"PT-101"_s);
    EXPECT_EQ(stored(padded), padded);
}

TEST_F(PaddedAssetNumbers, ThatTheInventoryDoesNotHoldAreAbsent) {
    for (const auto& typed : {u"no such"_s, QString(), u"  "_s, u"PT 101"_s, u"' or '1' = '1"_s})
        EXPECT_TRUE(storedAssetNumber(session, typed).isAbsent()) << typed.toStdString();
}

TEST_F(PaddedAssetNumbers, ThatCanNotBeReadAreNotAbsent) {
    closeConnection(session);
    ui.expectReport(static_cast<int>(ErrorNumber::connectionClosed), u"History,assetNumber"_s);
    EXPECT_TRUE(storedAssetNumber(session, u"PT-101"_s).hasFailed);
}

TEST_F(PaddedAssetNumbers, OfInstrumentsLeadToTheirRecords) {
    const auto named = instrumentNamed(session, u"PT-101"_s).found;
    ASSERT_TRUE(named);
    EXPECT_EQ(named->asset, padded);
    InstrumentReader reader(session, {.filter = {.text = u"PT-101"_s}});
    ASSERT_EQ(reader.size(), 1);
    EXPECT_EQ(reader.keyAt(0).asset, padded);
    const auto listed = reader.next(1);
    ASSERT_EQ(listed.size(), 1);
    EXPECT_EQ(listed.first().asset, padded);
    EXPECT_EQ(calibrationsOf(session, listed.first().asset).value_or(QList<CalibrationRecord>()).size(), 3);
}

TEST_F(PaddedAssetNumbers, OfStandardsLeadToTheirUses) {
    execute(u"update mt.inventory set i4201 = 'DMM-01  ' where i4201 = 'DMM-01'"_s);
    execute(u"insert into mt.standards (c2430,mtag,ctag) select '1203',mtag,ctag from mt.calibration where "
            "mtag = '1401'"_s);
    execute(u"insert into mt.calibration (mtag,c2301,c2303,c2323) values "
            "('1203','1990-01-01','2199-01-01','Y')"_s);
    const auto records = calibrationsOf(session, padded).value_or(QList<CalibrationRecord>());
    ASSERT_EQ(records.size(), 3);
    const auto used = records.last().standards.value(0);
    EXPECT_EQ(used.asset, u"DMM-01  "_s);
    EXPECT_EQ(used.state, StandardState::inCalibration) << "its own records are found";
    for (const auto& typed : {used.asset, u"DMM-01"_s, u"dmm-01"_s}) {
        const auto standard = standardOf(session, typed).found.value_or(Standard());
        EXPECT_EQ(standard.asset, u"DMM-01  "_s);
        const auto uses = usesOfStandard(session, standard.asset, QDate(1900, 1, 1));
        ASSERT_TRUE(uses && uses->size() == 3) << typed.toStdString();
        EXPECT_EQ(uses->first().asset, padded);
    }
}

} // namespace kelvane::testing
