#include "tests/end_to_end/fluke_end_to_end.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

/// A workstation that dies in the middle of a download or an upload, and the one that comes after it.
class DyingFlukeWorkstation : public FlukeEndToEnd {
  protected:
    void bringBack() {
        list(singleInstrument());
        download();
        carryOut(singleRun());
    }
    /// Expects another workstation to die before this, at its moment of that number.
    void expectDeath(int moment, const QString& before, const QStringList& downloaded = {}) {
        const auto outcome = simulators::outcomeOf(*startCommand(moment, downloaded));
        EXPECT_EQ(outcome.code, -2) << "killed: " << outcome.errors.toStdString();
        const auto last = outcome.output.trimmed().section(u'\n', -1);
        EXPECT_TRUE(last.startsWith(before)) << last.toStdString();
        expectSoundDatabase();
    }
    /// Expects it to come to its end in so many moments.
    void expectMoments(qsizetype count, const QStringList& downloaded = {}) {
        const auto outcome = simulators::outcomeOf(*startCommand(static_cast<int>(count) + 1, downloaded));
        EXPECT_EQ(outcome.code, 0) << outcome.errors.toStdString();
        EXPECT_EQ(outcome.output.count(u'\n'), count) << outcome.output.toStdString();
    }
    /// The records of PT-101, joined with blanks.
    QString begun() { return records(u"PT-101"_s).join(u' '); }
};

namespace {

/// Before what the workstation dies, and what there is then.
struct Death {
    QString before;
    QString left;
};

/// The same before each of some steps of a transfer.
QList<Death> deathsBefore(const QStringList& steps, const QString& left) {
    QList<Death> deaths;
    for (const auto& step : steps)
        deaths << Death{step, left};
    return deaths;
}

// Everything that an upload of one run does, and that stays, in its order: the records of PT-101, and how
// many of the two dates that a record copies have been copied.
QList<Death> uploadDeaths() {
    return deathsBefore(flukeUnderTest().uploadSteps, u" 0"_s) +
           QList<Death>{
               {u"insert into MT.calibration "_s, u" 0"_s},
               {u"update MT.inventory set I4230 = "_s, u"N|0|0 0"_s},
               {u"update MT.inventory set I4231 = "_s, u"N|0|0 1"_s},
               {u"insert into mt.standards "_s, u"N|0|0 2"_s},
               {u"insert into mt.standards "_s, u"N|1|0 2"_s},
               {u"insert into mt.calresults "_s, u"N|2|0 2"_s},
               {u"insert into mt.calresults "_s, u"N|2|1 2"_s},
               {u"insert into mt.calresults "_s, u"N|2|2 2"_s},
               {u"insert into mt.calresults "_s, u"N|2|3 2"_s},
               {u"insert into mt.calresults "_s, u"N|2|4 2"_s},
           };
}

// The same for a download of PT-101 over one of FT-501: what the calibrator holds, what is registered with
// it, and how many temporary packages and members of packages there are more than before.
QList<Death> downloadDeaths() {
    const auto& calibrator = flukeUnderTest();
    return QList<Death>{
               {u"insert into mt.hvm_kv_task_packages "_s, u"FT-501 / FT-501 / 0 0"_s},
               {u"insert into mt.hvm_kv_task_assets "_s, u"FT-501 / FT-501 / 1 0"_s},
           } +
           deathsBefore(calibrator.stepsBeforeImage, u"FT-501 / FT-501 / 1 1"_s) +
           QList<Death>{
               {calibrator.imageStep, u"FT-501 / FT-501 / 1 1"_s},
               // The first step empties the calibrator, the last one makes valid what came.
               {calibrator.imageStep, u" / FT-501 / 1 1"_s},
               {u"delete from mt.hvm_kv_task_inuse "_s, u"PT-101 / FT-501 / 1 1"_s},
               {u"delete from mt.hvm_kv_task_standards_inuse "_s, u"PT-101 /  / 1 1"_s},
               {u"insert into mt.hvm_kv_task_inuse "_s, u"PT-101 /  / 1 1"_s},
               {u"insert into mt.hvm_kv_task_standards_inuse "_s, u"PT-101 / PT-101 / 1 1"_s},
               {u"delete from mt.hvm_kv_task_assets "_s, u"PT-101 / PT-101 / 1 1"_s},
           };
}

auto momentsOf(const QList<Death>& deaths) {
    return ::testing::Range(0, static_cast<int>(deaths.size()));
}

} // namespace

class DyingInAFlukeUpload : public DyingFlukeWorkstation, public ::testing::WithParamInterface<int> {
  protected:
    QString copied() {
        return rows(u"select case when i4230 = '2021-06-16' then 1 else 0 end + case when i4231 = "
                    u"'2021-06-16' "
                    "then 1 else 0 end from mt.inventory where i4201 = 'PT-101'"_s)
            .value(0);
    }
};

TEST_P(DyingInAFlukeUpload, LeavesWhatWasWrittenAndTheNextUploadTheRest) {
    bringBack();
    const auto onCalibrator = held();
    const auto death = uploadDeaths().at(GetParam());
    expectDeath(GetParam() + 1, death.before);
    EXPECT_EQ(begun() + u' ' + copied(), death.left);
    EXPECT_EQ(held(), onCalibrator);
    EXPECT_EQ(registered(), singleInstrument());

    // A record that was begun is refused; what it lacks it gets out of the journal.
    const auto whole = begun();
    if (whole.isEmpty()) {
        upload(singleRun());
        expectRecords(singleRun());
        return;
    }
    expectChoice();
    expectRefusedRuns(singleRun());
    pressUpload();
    EXPECT_EQ(begun(), whole);
    makeRecords();
    EXPECT_EQ(begun() + u' ' + copied(), u"N|2|5 2"_s);
}

TEST_P(DyingInAFlukeUpload, LeavesToTheJournalWhatTheNextUploadNeedNotRead) {
    bringBack();
    expectDeath(GetParam() + 1, uploadDeaths().at(GetParam()).before);
    const bool isRead = GetParam() >= calibrator.uploadSteps.size(); // before its record
    EXPECT_EQ(withoutRecord().isEmpty(), !isRead);
    makeRecords();
    EXPECT_EQ(begun(), isRead ? u"N|2|5"_s : QString());
    expectChoice();
    if (isRead)
        expectRefusedRuns(singleRun());
    else
        expectRuns(singleRun());
    pressUpload();
    EXPECT_EQ(begun() + u' ' + copied(), u"N|2|5 2"_s);
    EXPECT_EQ(withoutRecord(), QStringList());
}

INSTANTIATE_TEST_SUITE_P(Before, DyingInAFlukeUpload, momentsOf(uploadDeaths()));

TEST_F(DyingFlukeWorkstation, AnUploadHasNoOtherMoments) {
    bringBack();
    expectMoments(uploadDeaths().size());
    expectChoice();
    expectRefusedRuns(singleRun());
    pressUpload();
    EXPECT_EQ(begun(), u"N|2|5"_s);
}

class DyingInAFlukeDownload : public DyingFlukeWorkstation, public ::testing::WithParamInterface<int> {
  protected:
    DyingInAFlukeDownload() {
        list({u"FT-501"_s});
        download();
        screen.list = singleInstrument();
        packages_ = count(u"mt.hvm_kv_task_packages"_s);
        members_ = count(u"mt.hvm_kv_task_assets"_s);
    }
    QString left() {
        return u"%1 / %2 / %3 %4"_s.arg(storedTags().join(u' '), registered().join(u' '))
            .arg(count(u"mt.hvm_kv_task_packages"_s) - packages_)
            .arg(count(u"mt.hvm_kv_task_assets"_s) - members_);
    }

  private:
    int count(const QString& table) { return rows(u"select count(*) from "_s + table).value(0).toInt(); }
    int packages_ = 0;
    int members_ = 0;
};

TEST_P(DyingInAFlukeDownload, LeavesCalibratorAndRegistryAsFarAsItCameAndTheNextDownloadIsWhole) {
    const auto death = downloadDeaths().at(GetParam());
    expectDeath(GetParam() + 1, death.before, singleInstrument());
    EXPECT_EQ(left(), death.left);
    const auto leftPackages = death.left.section(u'/', 2);

    download();
    EXPECT_EQ(left(), u"PT-101 / PT-101 /"_s + leftPackages) << "the package of the dead one stays";
    EXPECT_EQ(standardsInUse(u"PT-101"_s), QStringList{calibrator.runs.asset}) << "once";
    carryOut(twoRuns());
    upload(twoRuns());
    EXPECT_EQ(begun(), u"N|2|5 Y|2|5"_s);
}

INSTANTIATE_TEST_SUITE_P(Before, DyingInAFlukeDownload, momentsOf(downloadDeaths()));

TEST_F(DyingFlukeWorkstation, ADownloadHasNoOtherMoments) {
    expectMoments(downloadDeaths().size(), singleInstrument());
    EXPECT_EQ(storedTags(), singleInstrument());
    EXPECT_EQ(registered(), singleInstrument());
}

/// Killed by another process at an arbitrary place, as soon as it has written so many lines.
class KilledFlukeWorkstation : public DyingFlukeWorkstation, public ::testing::WithParamInterface<int> {};

TEST_P(KilledFlukeWorkstation, LosesNothingAndDoublesNothing) {
    list(singleInstrument());
    download();
    carryOut(twoRuns());
    const auto child = startCommand(0);
    for (int line = 0; line < GetParam(); ++line) {
        while (!child->canReadLine())
            ASSERT_TRUE(child->waitForReadyRead(20000)) << line;
        child->readLine();
    }
    child->kill();
    ASSERT_TRUE(child->waitForFinished(20000));
    expectSoundDatabase();

    const auto begunRecords = records(u"PT-101"_s);
    expectChoice();
    expectRefusedRuns(twoRuns().first(begunRecords.size()));
    expectRuns(twoRuns().mid(begunRecords.size()));
    pressUpload();
    const auto found = records(u"PT-101"_s);
    ASSERT_EQ(found.size(), 2);
    EXPECT_EQ(found.first(begunRecords.size()), begunRecords);
    const QStringList whole{u"N|2|5"_s, u"Y|2|5"_s};
    EXPECT_EQ(found.mid(begunRecords.size()), whole.mid(begunRecords.size()));
    makeRecords();
    EXPECT_EQ(records(u"PT-101"_s), whole);
    expectSoundDatabase();
}

// Two runs have 30 lines or more.
INSTANTIATE_TEST_SUITE_P(After, KilledFlukeWorkstation, ::testing::Values(3, 6, 11, 14, 17, 21, 26));

} // namespace kelvane::testing
