#include "tests/drivers/fluke702/upload_fixture.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// An asset number of 35 characters and the beginning of it that the calibrator holds.
const QString longAsset = u"PRESSURE-TRANSMITTER-UNIT-1-HDR-007"_s;
const QString cutTag = longAsset.left(29);

} // namespace

TEST_F(FlukeUpload, ARunWithoutATagIsSkipped) {
    addGoodRun(QString());
    addGoodRun(u"   "_s);
    addGoodRun(u"PT-102"_s);
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(records(u"mtag"_s), QStringList{u"1402"_s});
}

TEST_F(FlukeUpload, TheStatusOfAMissingTagGoesOnWithWhatThereIs) {
    addGoodRun(QString());
    addGoodRun();
    link.answer(u"MEMtagidInfo"_s, 2026);
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(verdicts(), QStringList{u"FOUND-LEFT Y 0 0"_s});
}

TEST_F(FlukeUpload, TextsWithoutATerminatingZeroAreTrimmed) {
    addGoodRun().pressureModule = u"71204"_s;
    link.writeText = [](const QString& text, const QString& buffer) {
        return text + buffer.mid(text.size());
    };
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(records(u"mtag || c2307"_s), QStringList{u"1401Joe Doe"_s});
    EXPECT_EQ(standards(), (QStringList{u"1102"_s, u"1205"_s}));
}

TEST_F(FlukeUpload, ATagOfTwentyNineCharactersIsRestoredBySerialNumberAndBeginning) {
    execute(u"update mt.inventory set i4201 = '"_s + longAsset + u"' where mtag = '1401'"_s);
    addGoodRun(cutTag);
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(records(u"mtag"_s), QStringList{u"1401"_s});
    EXPECT_EQ(lines().size(), 3);
}

TEST_F(FlukeUpload, ATagOfTwentyNineCharactersThatIsWholeStaysItself) {
    execute(u"update mt.inventory set i4201 = '"_s + cutTag + u"' where mtag = '1401'"_s);
    addGoodRun(cutTag);
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(records(u"mtag"_s), QStringList{u"1401"_s});
}

TEST_F(FlukeUpload, ACutTagWhoseInstrumentHasBeenRenamedIsSkipped) {
    addGoodRun(cutTag);
    addGoodRun(u"PT-102"_s);
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(records(u"mtag"_s), QStringList{u"1402"_s});
}

TEST_F(FlukeUpload, ACutTagThatStandsForABlankAssetNumberIsSkipped) {
    execute(u"update mt.inventory set i4201 = '   ' where mtag = '1401'"_s);
    addGoodRun(QString(29, u'%'));
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(verdicts(), QStringList());
}

TEST_F(FlukeUpload, ACutTagWithAnotherSerialNumberIsSkipped) {
    execute(u"update mt.inventory set i4201 = '"_s + longAsset + u"' where mtag = '1401'"_s);
    addGoodRun(cutTag).serial = u"None"_s;
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(verdicts(), QStringList());
}

TEST_F(FlukeUpload, ACutTagThatFitsSeveralInstrumentsBecomesOneOfThem) {
    execute(u"update mt.inventory set i4201 = '"_s + longAsset + u"' where mtag = '1401'"_s);
    execute(u"update mt.inventory set i4206 = 'V881010', i4201 = '"_s + cutTag +
            u"-OTHER' where mtag = '1402'"_s);
    addGoodRun(cutTag);
    EXPECT_EQ(upload(), QString());
    ASSERT_EQ(verdicts().size(), 1);
    EXPECT_TRUE((QStringList{u"1401"_s, u"1402"_s}).contains(records(u"mtag"_s).first()));
}

TEST_F(FlukeUpload, ACutTagNeverFindsItsLaterRunSinceThatIsCutToo) {
    execute(u"update mt.inventory set i4201 = '"_s + longAsset + u"' where mtag = '1401'"_s);
    addGoodRun(cutTag);
    addGoodRun(cutTag, 2);
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(verdicts(), (QStringList{u"FOUND-LEFT Y 0 0"_s, u"AS-LEFT Y 0 0"_s}));
}

TEST_F(FlukeUpload, TagsOfTwentyEightAndThirtyCharactersAreTakenAsTheyAre) {
    for (const int length : {28, 30, 33}) {
        execute(u"update mt.inventory set i4201 = '"_s + longAsset.left(length) + u"' where mtag = '1401'"_s);
        auto& run = addGoodRun(longAsset.left(length));
        run.serial = u"another"_s;
        link.writeText = [](const QString& text, const QString& buffer) {
            return text + buffer.mid(text.size());
        };
        link.runs = {run};
        link.runs[0].minute = static_cast<qint16>(length);
        EXPECT_EQ(upload(), QString());
    }
    EXPECT_EQ(records(u"mtag"_s), QStringList(3, u"1401"_s));
}

TEST_F(FlukeUpload, TheTechnicianIsTheCalibratorsUnlessHisNameIsItsSerialNumber) {
    ModuleGlobals::AddInUse(session, u"6841207"_s, u"1401"_s, u"asmith"_s);
    const struct {
        QString stored;
        QString recorded;
    } rows[] = {
        {u"Joe Doe"_s, u"Joe Doe"_s}, {u"6841207"_s, u"asmith"_s},  {u" 6841207 "_s, u"asmith"_s},
        {u"68412"_s, u"68412"_s},     {u"O'Neill"_s, u"O'Neill"_s}, {QString(), u"(null)"_s},
        {u"Ключ Ω"_s, u"Ключ Ω"_s},
    };
    qint16 minute = 0;
    for (const auto& row : rows) {
        link.runs.clear();
        auto& run = addGoodRun();
        run.minute = ++minute;
        run.technician = row.stored;
        EXPECT_EQ(upload(), QString());
        EXPECT_EQ(records(u"c2307"_s).last(), row.recorded) << row.stored.toStdString();
    }
}

TEST_F(FlukeUpload, ASerialNumberWithLettersNeverStandsForTheTechnician) {
    execute(u"update mt.inventory set i4206 = '68A1207' where mtag = '1102'"_s);
    link.serial = u"68A1207"_s;
    ModuleGlobals::AddInUse(session, u"68A1207"_s, u"1401"_s, u"asmith"_s);
    addGoodRun().technician = u"68A1207"_s;
    addGoodRun().technician = u"68a1207"_s;
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(records(u"c2307"_s), (QStringList{u"68A1207"_s, u"68a1207"_s}));
}

TEST_F(FlukeUpload, WithoutARowInTheRegistryTheSerialNumberBecomesNoTechnician) {
    addGoodRun().technician = u"6841207"_s;
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(records(u"c2307"_s), QStringList{u"(null)"_s});
}

} // namespace kelvane::testing
