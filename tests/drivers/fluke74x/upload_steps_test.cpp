// The steps of a run and the buckets of their states.

#include "tests/drivers/fluke74x/upload_fixture.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class Fluke74xUploadSteps : public Fluke74xUpload {
  protected:
    /// Uploads one run of these steps.
    void take(const QList<StoredStep>& steps) {
        link.groups.clear();
        link.calls.clear();
        addGroup();
        addRun(steps);
        EXPECT_EQ(upload(), QString());
    }
    /// The line of a run of one step with these buckets.
    QString lineOf(const QList<StoredBucket>& buckets) {
        take({{buckets}});
        return lines().value(lines().size() - 1);
    }
    static StoredBucket number(const QString& name, float value) { return numberBucket(name, value); }
    static StoredBucket wholeNumber(const QString& name, qint32 value) {
        return {.name = name, .type = 5, .whole = value};
    }
};

TEST_F(Fluke74xUploadSteps, EachTypeOfBucketIsReadByItsOwnCall) {
    const struct {
        qint16 type;
        QString operation;
    } rows[] = {
        {1, u"STA3getFloat"_s}, {2, u"STA3getStr"_s},  {3, u"STA3getRange"_s},  {4, u"STA3getUnit"_s},
        {5, u"STA3getInt"_s},   {6, u"STA3getTime"_s}, {7, u"STA3getMapped"_s},
    };
    for (const auto& row : rows) {
        for (const auto& name : {u"tol"_s, u"mpserial"_s, u"exttemp"_s, u"unknown"_s}) {
            take({{{StoredBucket{.name = name, .type = row.type}}}});
            const auto call = link.calls.indexOf(u"STA3getType(\"root\", \"%1\")"_s.arg(name));
            EXPECT_EQ(link.calls.value(call + 1), u"%1(\"root\", \"%2\")"_s.arg(row.operation, name));
            EXPECT_EQ(link.calls.filter(u"\""_s + name + u'"').size(), 2);
        }
    }
}

TEST_F(Fluke74xUploadSteps, ABucketOfAnUnknownTypeIsNotRead) {
    for (const qint16 type : {qint16{0}, qint16{8}, qint16{-1}, qint16{32767}}) {
        take({{{StoredBucket{.name = u"suev"_s, .type = type, .number = 9}, number(u"muev"_s, 2)}}});
        EXPECT_EQ(link.calls.filter(u"\"suev\""_s).size(), 1) << type;
        EXPECT_EQ(lines().last(), u"1 0.000V 2.000V PASS"_s) << type;
    }
}

TEST_F(Fluke74xUploadSteps, TextsOfBucketsAreReadInto33Blanks) {
    QStringList buffers;
    link.writeText = [&](const QString& text, const QString& buffer) {
        buffers << buffer;
        return text + QChar(0);
    };
    take({{{textBucket(u"mpserial"_s, u"71204"_s),
            {.name = u"u"_s, .type = 4},
            {.name = u"m"_s, .type = 7}}}});
    // Between the three texts of the calibrator and those of the tag: each name and each text.
    EXPECT_EQ(buffers.sliced(3, buffers.size() - 6), QStringList(6, QString(33, u' ')));
}

TEST_F(Fluke74xUploadSteps, AnEntryOfTheUserGoesBeforeThePrimaryValueInEitherOrder) {
    EXPECT_EQ(lineOf({number(u"sprimary"_s, 1), number(u"mprimary"_s, 2)}), u"1 1.000V 2.000V PASS"_s);
    EXPECT_EQ(lineOf({number(u"suev"_s, 3), number(u"muev"_s, 4)}), u"1 3.000V 4.000V PASS"_s);
    EXPECT_EQ(lineOf({number(u"suev"_s, 3), number(u"sprimary"_s, 1), number(u"muev"_s, 4),
                      number(u"mprimary"_s, 2)}),
              u"1 3.000V 4.000V PASS"_s);
    EXPECT_EQ(lineOf({number(u"mprimary"_s, 2), number(u"muev"_s, 4), number(u"sprimary"_s, 1),
                      number(u"suev"_s, 3)}),
              u"1 3.000V 4.000V PASS"_s);
    EXPECT_EQ(lineOf({number(u"suev"_s, 3), number(u"sprimary"_s, 1), number(u"mprimary"_s, 2)}),
              u"1 3.000V 2.000V PASS"_s)
        << "each side by itself";
}

TEST_F(Fluke74xUploadSteps, ThePrimaryValueTakesThePlaceOfAnEntryOfZero) {
    EXPECT_EQ(lineOf({number(u"suev"_s, 0), number(u"sprimary"_s, 1), number(u"muev"_s, 0),
                      number(u"mprimary"_s, 2)}),
              u"1 1.000V 2.000V PASS"_s);
}

TEST_F(Fluke74xUploadSteps, NumbersComeOfFloatsAndIntegersOnly) {
    EXPECT_EQ(lineOf({wholeNumber(u"suev"_s, 50), wholeNumber(u"muev"_s, 52)}), u"1 50.000V 52.000V PASS"_s);
    EXPECT_EQ(lineOf({wholeNumber(u"sprimary"_s, 50), wholeNumber(u"mprimary"_s, 51)}),
              u"1 50.000V 51.000V PASS"_s);
    for (const qint16 type : {qint16{2}, qint16{3}, qint16{4}, qint16{6}, qint16{7}})
        EXPECT_EQ(
            lineOf(
                {{.name = u"suev"_s, .type = type, .number = 50, .high = 50, .whole = 50, .words = u"50"_s},
                 number(u"muev"_s, 2)}),
            u"1 0.000V 2.000V PASS"_s)
            << type;
}

TEST_F(Fluke74xUploadSteps, NamesAreComparedExactlyAndUnknownOnesAreReadAndIgnored) {
    EXPECT_EQ(lineOf({number(u"SUEV"_s, 9), number(u"suev2"_s, 9), number(u"source"_s, 9),
                      number(u"exttemp"_s, 9), number(u"mprimary"_s, 2)}),
              u"1 0.000V 2.000V PASS"_s);
    EXPECT_EQ(link.callsOf(u"STA3getFloat"_s).size(), 5);
}

TEST_F(Fluke74xUploadSteps, ABucketWithoutANameMakesNoFurtherCall) {
    EXPECT_EQ(lineOf({number(QString(), 9), number(u"   "_s, 9), number(u"suev"_s, 1)}),
              u"1 1.000V 0.000V PASS"_s);
    EXPECT_EQ(link.callsOf(u"STA3getBktName"_s).size(), 3);
    EXPECT_EQ(link.callsOf(u"STA3getType"_s), QStringList{u"STA3getType(\"root\", \"suev\")"_s});
}

TEST_F(Fluke74xUploadSteps, TheBucketOfIndex200IsNeverRead) {
    QList<StoredBucket> buckets;
    for (int i = 0; i < 199; ++i)
        buckets << number(u"b%1"_s.arg(i), 9);
    EXPECT_EQ(lineOf(buckets + QList{number(u"suev"_s, 1)}), u"1 1.000V 0.000V PASS"_s);
    EXPECT_EQ(link.callsOf(u"STA3getFloat"_s).size(), 200);
    buckets.prepend(number(u"first"_s, 9));
    EXPECT_EQ(lineOf(buckets + QList{number(u"suev"_s, 1)}), u"1 0.000V 0.000V PASS"_s);
    EXPECT_EQ(link.callsOf(u"STA3getFloat"_s).size(), 200);
    EXPECT_EQ(link.callsOf(u"STA3getBktName"_s).size(), 200);
}

TEST_F(Fluke74xUploadSteps, AStateWithoutBucketsIsAStepOfZeros) {
    EXPECT_EQ(lineOf({}), u"1 0.000V 0.000V PASS"_s);
    link.claimedBuckets = -1;
    EXPECT_EQ(lineOf({number(u"suev"_s, 1)}), u"1 0.000V 0.000V PASS"_s);
    EXPECT_EQ(link.callsOf(u"STA3getBktName"_s), QStringList());
}

TEST_F(Fluke74xUploadSteps, EachStepIsReadInItsOwnRestoredState) {
    take(good());
    EXPECT_EQ(link.argumentsOf(u"STA3restore"_s),
              (QStringList{u"1, 101, 201"_s, u"2, 102, 202"_s, u"3, 103, 203"_s}));
    EXPECT_EQ(lines(), (QStringList{u"1 0.000V 0.000V PASS"_s, u"2 50.000V 50.000V PASS"_s,
                                    u"3 100.000V 100.000V PASS"_s}));
}

TEST_F(Fluke74xUploadSteps, ValuesOfOneStepAreForgottenInTheNextAndStepsOfARunInTheNext) {
    addGroup();
    addRun({{{number(u"suev"_s, 50), number(u"muev"_s, 50)}}, {{number(u"suev"_s, 2)}}});
    addRun({{{number(u"muev"_s, 1)}}}).time.hour = 12;
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(lines(), (QStringList{u"1 50.000V 50.000V PASS"_s, u"2 2.000V 0.000V PASS"_s,
                                    u"1 0.000V 1.000V PASS"_s}));
}

// The number of steps.

TEST_F(Fluke74xUploadSteps, TenStepsOfTwoRepetitionsAreFivePoints) {
    configure(u"1401"_s, u"repetitions = 2"_s);
    QList<StoredStep> steps;
    for (int i = 0; i < 10; ++i)
        steps << at(static_cast<float>(10 * (i / 2)), static_cast<float>(10 * (i / 2) + i % 2));
    take(steps);
    EXPECT_EQ(lines(), (QStringList{u"1 0.000V 0.500V PASS"_s, u"2 10.000V 10.500V PASS"_s,
                                    u"3 20.000V 20.500V PASS"_s, u"4 30.000V 30.500V PASS"_s,
                                    u"5 40.000V 40.500V PASS"_s}));
}

TEST_F(Fluke74xUploadSteps, StepsLeftOverGiveNoPoint) {
    configure(u"1401"_s, u"repetitions = 3"_s);
    QList<StoredStep> steps(6, at(50, 50));
    steps << at(50, 60, 10); // out of tolerance, as the calibrator says
    take(steps);
    EXPECT_EQ(lines(), (QStringList{u"1 50.000V 50.000V PASS"_s, u"2 50.000V 50.000V PASS"_s}));
    EXPECT_EQ(verdicts(), QStringList{u"FOUND-LEFT Y 0 0"_s});
}

TEST_F(Fluke74xUploadSteps, FewerStepsThanRepetitionsMakeARecordWithoutLinesThatSaysPassed) {
    configure(u"1401"_s, u"repetitions = 3"_s);
    take({at(50, 60, 10), at(50, 60, 10)}); // both out of tolerance, as the calibrator says
    EXPECT_EQ(lines(), QStringList());
    EXPECT_EQ(verdicts(), QStringList{u"FOUND-LEFT Y 0 0"_s});
    EXPECT_EQ(Journal(session).unfinished().size(), 0) << "the record is whole";
}

TEST_F(Fluke74xUploadSteps, ALeftOverStepStillDisagrees) {
    configure(u"1401"_s, u"repetitions = 3"_s);
    expectDisagreement(false);
    take({at(50, 50), at(50, 50), at(50, 50), at(50, 60)});
    EXPECT_EQ(verdicts(), QStringList{u"FOUND-LEFT Y 0 0"_s});
}

TEST_F(Fluke74xUploadSteps, ThePointsNeedNotBeThoseOfTheStrategy) {
    take({at(50, 50)});
    take(QList<StoredStep>(7, at(50, 50)));
    EXPECT_EQ(lines().size(), 8);
}

TEST_F(Fluke74xUploadSteps, ARunOf101StepsIsTaken) {
    take(QList<StoredStep>(101, at(50, 50)));
    EXPECT_EQ(lines().size(), 101);
    EXPECT_EQ(lines().last(), u"101 50.000V 50.000V PASS"_s);
    EXPECT_EQ(link.callsOf(u"STA3restore"_s).size(), 101);
}

TEST_F(Fluke74xUploadSteps, A102ndStepIsReportedAndTheNextRunIsRead) {
    addGroup();
    addRun(QList<StoredStep>(102, at(50, 50)));
    addGoodRun(u"PT-102"_s);
    ui.expectReport(9, routine);
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(records(u"mtag"_s), QStringList{u"1402"_s});
    const auto left = Journal(session).unfinished();
    ASSERT_EQ(left.size(), 1);
    EXPECT_EQ(left[0].asset, u"PT-101"_s);
    EXPECT_EQ(left[0].readings.size(), 101) << "those that fit";
    EXPECT_FALSE(left[0].prepared);
}

TEST_F(Fluke74xUploadSteps, ARunWithoutStepsIsReportedAndTheNextRunIsRead) {
    for (const qint16 claimed : {qint16{0}, qint16{-1}}) {
        addGoodRun().claimedSteps = claimed;
        addRun(good()).claimedSteps = claimed;
        ui.expectReport(11, routine); // the atoms over the steps
        ui.expectReport(11, routine);
    }
    addGoodRun(u"PT-102"_s);
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(records(u"mtag"_s), QStringList{u"1402"_s});
    EXPECT_EQ(Journal(session).unfinished().size(), 4);
}

} // namespace kelvane::testing
