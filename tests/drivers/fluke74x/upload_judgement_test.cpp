// What the upload makes of the values of a run.

#include "tests/drivers/fluke74x/upload_fixture.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class Fluke74xUploadJudgement : public Fluke74xUpload {
  protected:
    void take(const QList<StoredStep>& steps) {
        link.groups.clear();
        addGroup();
        addRun(steps);
        EXPECT_EQ(upload(), QString());
    }
    /// The line of a run of one step.
    QString lineOf(float source, float measure) {
        take({at(source, measure)});
        return lines().last();
    }
};

// Units.

TEST_F(Fluke74xUploadJudgement, ValuesComeBackInTheInstrumentsUnits) {
    const struct {
        QString unit;
        float value;
        QString scaled;
    } rows[] = {
        {u"V"_s, 50, u"50.000"_s},        {u"mV"_s, 0.05F, u"50.000"_s},
        {u"uV"_s, 0.00005F, u"50.000"_s}, {u"mVAC"_s, 0.05F, u"50.000"_s},
        {u"VAC"_s, 50, u"50.000"_s},      {u"A"_s, 50, u"50.000"_s},
        {u"mA"_s, 0.05F, u"50.000"_s},    {u"uA"_s, 0.00005F, u"50.000"_s},
        {u"mbar"_s, 0.05F, u"50.000"_s},  {u"bar"_s, 50, u"50.000"_s},
        {u"KOhms"_s, 50000, u"50.000"_s}, {u"Mohms"_s, 50000000, u"50.000"_s},
        {u"Ohms"_s, 50, u"50.000"_s},     {u"Hz"_s, 50, u"50.000"_s},
        {u"KHz"_s, 50, u"50.000"_s},      {u"MHz"_s, 50, u"50.000"_s},
        {u"psi"_s, 50, u"50.000"_s},      {u"kPa"_s, 50, u"50.000"_s},
        {u"C"_s, 50, u"50.000"_s},        {u"%"_s, 50, u"50.000"_s},
        {u"ma"_s, 50, u"50.000"_s},       {u"kohms"_s, 50, u"50.000"_s},
    };
    for (const auto& row : rows) {
        configure(u"1401"_s, u"input_type = '%1'"_s.arg(row.unit));
        EXPECT_EQ(lineOf(row.value, 50), u"1 50.000%1 50.000V PASS"_s.arg(row.unit));
        configure(u"1401"_s, u"output_type = '%1'"_s.arg(row.unit));
        EXPECT_EQ(lineOf(50, row.value), u"1 50.000V 50.000%1 PASS"_s.arg(row.unit));
    }
}

TEST_F(Fluke74xUploadJudgement, ValuesOfAnIndicatedSideAreTheUsersOwn) {
    for (const auto& unit :
         {u"mV"_s, u"mA"_s, u"mVAC"_s, u"mbar"_s, u"uV"_s, u"uA"_s, u"KOhms"_s, u"Mohms"_s}) {
        configure(u"1401"_s, u"input_type = '%1', input_indicated = 'Y', output_type = 'mA'"_s.arg(unit));
        EXPECT_EQ(lineOf(50, 0.05F), u"1 50.000%1 50.000mA PASS"_s.arg(unit)) << "the other side is scaled";
        configure(u"1401"_s,
                  u"input_type = 'mA', input_indicated = 'N', output_type = '%1', output_indicated = "
                  "'Y'"_s.arg(unit));
        EXPECT_EQ(lineOf(0.05F, 50), u"1 50.000mA 50.000%1 PASS"_s.arg(unit)) << "the other side is scaled";
        execute(u"update mt.hvm_kv_tag_config set output_indicated = 'N' where mtag = '1401'"_s);
    }
}

TEST_F(Fluke74xUploadJudgement, FrequenciesGoBothWaysUnscaled) {
    configure(u"1401"_s, u"input_type = 'KHz', output_type = 'MHz'"_s);
    EXPECT_EQ(lineOf(50, 50), u"1 50.000KHz 50.000MHz PASS"_s);
}

// Points.

TEST_F(Fluke74xUploadJudgement, RepetitionsGiveLinesOfMeansAndDisagreementOfEachReading) {
    configure(u"1401"_s, u"repetitions = 3"_s);
    expectDisagreement(false); // 55 and 46 are out, and the calibrator has not seen it
    take({at(0, 1), at(0, 2), at(3, 3), at(50, 49), at(50, 55), at(50, 46), at(100, 99), at(100, 100),
          at(100, 101)});
    EXPECT_EQ(verdicts(), QStringList{u"FOUND-LEFT Y 0 0"_s});
    EXPECT_EQ(lines(), (QStringList{u"1 1.000V 2.000V PASS"_s, u"2 50.000V 50.000V PASS"_s,
                                    u"3 100.000V 100.000V PASS"_s}));
}

TEST_F(Fluke74xUploadJudgement, FailuresAndMarginalsAreCountedAndForgottenInTheNextRun) {
    addGroup();
    addRun({at(0, 10, 10), at(50, 60, 10), at(100, 102.5F, 2.5F)});
    addRun(good()).time.hour = 12;
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(verdicts(), (QStringList{u"AS-FOUND N 2 1"_s, u"AS-LEFT Y 0 0"_s}));
}

// Disagreements.

TEST_F(Fluke74xUploadJudgement, DisagreementsAreShownAfterTheRecordOnExactLimits) {
    // Limits of 3.125 at 50; the calibrator's own limit is 3.125 % of span.
    const float above = std::nextafter(53.125F, 100.0F);
    const float more = std::nextafter(3.125F, 4.0F);
    const struct {
        float measure;
        float error;
        bool failedHere;
        bool passedHere;
        QString verdict;
    } rows[] = {
        {50, 0, false, false, u"FOUND-LEFT Y 0 0"_s},
        {53.125F, 3.125F, false, false, u"FOUND-LEFT Y 0 1"_s},
        {46.875F, -3.125F, false, false, u"FOUND-LEFT Y 0 0"_s},
        {53.125F, more, false, true, u"FOUND-LEFT Y 0 1"_s},
        {46.875F, -more, false, true, u"FOUND-LEFT Y 0 0"_s},
        {above, 3.125F, true, false, u"AS-FOUND N 1 0"_s},
        {40, -3.125F, true, false, u"AS-FOUND N 1 0"_s},
        {above, more, false, false, u"AS-FOUND N 1 0"_s},
    };
    for (const auto& row : rows) {
        if (row.failedHere)
            expectDisagreement(false);
        if (row.passedHere)
            expectDisagreement(true);
        take({at(0, 0), at(50, row.measure, row.error), at(100, 100)});
        EXPECT_EQ(verdicts().last(), row.verdict) << row.measure << " and " << row.error;
    }
}

TEST_F(Fluke74xUploadJudgement, BothDisagreementsOfOneRunAndNoneOfTheNext) {
    addGroup();
    addRun({at(0, 0, 50), at(50, 60), at(100, 100)});
    addGoodRun(u"PT-102"_s);
    expectDisagreement(false);
    expectDisagreement(true);
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(verdicts(), (QStringList{u"AS-FOUND N 1 0"_s, u"FOUND-LEFT Y 0 0"_s}));
}

TEST_F(Fluke74xUploadJudgement, EachRunOfAGroupHasItsOwnDisagreements) {
    addGroup();
    addRun({at(50, 60)});
    addRun({at(50, 50, 50)}).time.hour = 12;
    addRun(good()).time.hour = 14;
    expectDisagreement(false);
    expectDisagreement(true);
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(verdicts().size(), 3);
}

TEST_F(Fluke74xUploadJudgement, TheToleranceThatTheCalibratorAppliedDoesNotCount) {
    for (const float tolerance : {0.0F, 50.0F}) {
        auto step = at(50, 50, 3);
        step.buckets[2].number = tolerance;
        take({step});
    }
    EXPECT_EQ(verdicts(), QStringList(2, u"FOUND-LEFT Y 0 0"_s));
}

TEST_F(Fluke74xUploadJudgement, ARefusedRecordShowsNoDisagreementAndLeavesNothingToTheNext) {
    addGroup();
    addRun({at(0, 0, 50), at(50, 60), at(100, 100)});
    expectDisagreement(false);
    expectDisagreement(true);
    EXPECT_EQ(upload(), QString());
    addGoodRun(u"PT-102"_s);
    expectRefusal();
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(verdicts(), (QStringList{u"AS-FOUND N 1 0"_s, u"FOUND-LEFT Y 0 0"_s}));
    EXPECT_EQ(lines().size(), 6);
}

TEST_F(Fluke74xUploadJudgement, ACalibratorErrorThatIsNoNumberIsNoDisagreement) {
    const float none = std::nanf("");
    take({at(0, 0, none), at(50, 60, none), at(100, 100)});
    EXPECT_EQ(verdicts(), QStringList{u"AS-FOUND N 1 0"_s});
}

// Standards.

class Fluke74xUploadStandards : public Fluke74xUploadJudgement {
  protected:
    /// Sent to the calibrator, with a multimeter as the standard that reads the output.
    Fluke74xUploadStandards() {
        ModuleGlobals::AddInUse(session, u"7112044"_s, u"1401"_s, u"asmith"_s);
        execute(
            u"insert into mt.hvm_kv_task_standards_inuse (standard_mtag, entered_date, mtag) "
            "select '1209', entered_date, mtag from mt.hvm_kv_task_standards_inuse where mtag = '1401'"_s);
    }
    /// A run whose first step names these modules.
    static QList<StoredStep> withModules(const QString& measure, const QString& source) {
        auto steps = good();
        steps[0].buckets << textBucket(u"spserial"_s, source) << textBucket(u"mpserial"_s, measure);
        return steps;
    }
};

TEST_F(Fluke74xUploadStandards, AreThoseInUseWithTheInstrument) {
    take(good());
    EXPECT_EQ(standards(), (QStringList{u"1103"_s, u"1209"_s}));
}

TEST_F(Fluke74xUploadStandards, BeginWithTheModuleOfTheMeasuringSideThenThatOfTheSource) {
    take(withModules(u"71204"_s, u"71118"_s));
    EXPECT_EQ(standards(), (QStringList{u"1205"_s, u"1206"_s, u"1103"_s, u"1209"_s}));
}

TEST_F(Fluke74xUploadStandards, HaveTheModulesThatTheInventoryKnows) {
    take(withModules(u"99999"_s, u"71118"_s));
    EXPECT_EQ(standards(), (QStringList{u"1206"_s, u"1103"_s, u"1209"_s})) << "the first one is left out";
}

TEST_F(Fluke74xUploadStandards, OfOneModuleAreTheOthersToo) {
    take(withModules(u"71204"_s, u"99999"_s));
    take(withModules(u"71204"_s, QString()));
    take(withModules(QString(), u"71118"_s));
    take(withModules(u"   "_s, u"   "_s));
    EXPECT_EQ(standards(), (QStringList{u"1205"_s, u"1103"_s, u"1209"_s, u"1205"_s, u"1103"_s, u"1209"_s,
                                        u"1206"_s, u"1103"_s, u"1209"_s, u"1103"_s, u"1209"_s}));
}

TEST_F(Fluke74xUploadStandards, NameModulesByTextsUnitsOrMappedWordsOnly) {
    for (const qint16 type : {qint16{2}, qint16{4}, qint16{7}, qint16{1}, qint16{3}, qint16{5}, qint16{6}}) {
        auto steps = good();
        steps[0].buckets << StoredBucket{
            .name = u"mpserial"_s, .type = type, .number = 71204, .whole = 71204, .words = u" 71204 "_s};
        take(steps);
    }
    const QStringList with{u"1205"_s, u"1103"_s, u"1209"_s};
    const QStringList without{u"1103"_s, u"1209"_s};
    EXPECT_EQ(standards(), with + with + with + without + without + without + without);
}

TEST_F(Fluke74xUploadStandards, KeepAModuleThatALaterStepLeavesBlank) {
    auto steps = withModules(u"71204"_s, u"71118"_s);
    steps[1].buckets << textBucket(u"mpserial"_s, {}) << textBucket(u"spserial"_s, u"   "_s);
    take(steps);
    EXPECT_EQ(standards(), (QStringList{u"1205"_s, u"1206"_s, u"1103"_s, u"1209"_s}));
}

TEST_F(Fluke74xUploadStandards, OfOneRunAreForgottenInTheNext) {
    addGroup();
    addRun(withModules(u"71204"_s, u"71118"_s));
    addRun(good()).time.hour = 12;
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(standards(), (QStringList{u"1205"_s, u"1206"_s, u"1103"_s, u"1209"_s, u"1103"_s, u"1209"_s}));
}

} // namespace kelvane::testing
