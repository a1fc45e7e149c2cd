#include "tests/end_to_end/fluke702_end_to_end.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

/// A workstation that dies in the middle of a download or an upload, and the one that comes after it.
class DyingFluke702Workstation : public Fluke702EndToEnd {
  protected:
    void bringBack() {
        list(singleInstrument());
        download();
        carryOut(singleRun());
    }
    /// Expects another workstation to die before this, at its moment of that number.
    void expectDeath(int moment, const char* before, const QStringList& downloaded = {}) {
        const auto outcome = simulators::outcomeOf(*startCommand(moment, downloaded));
        EXPECT_EQ(outcome.code, -2) << "killed: " << outcome.errors.toStdString();
        const auto last = outcome.output.trimmed().section(u'\n', -1);
        EXPECT_TRUE(last.startsWith(QLatin1StringView(before))) << last.toStdString();
        expectSoundDatabase();
    }
    /// Expects it to come to its end in so many moments.
    void expectMoments(std::size_t count, const QStringList& downloaded = {}) {
        const auto outcome = simulators::outcomeOf(*startCommand(static_cast<int>(count) + 1, downloaded));
        EXPECT_EQ(outcome.code, 0) << outcome.errors.toStdString();
        EXPECT_EQ(outcome.output.count(u'\n'), static_cast<qsizetype>(count)) << outcome.output.toStdString();
    }
    /// The records of PT-101, joined with blanks.
    QString begun() { return records(u"PT-101"_s).join(u' '); }
};

namespace {

/// Before what the workstation dies, and what there is then.
struct Death {
    const char* before;
    const char* left;

    friend void PrintTo(const Death& death, std::ostream* out) { *out << death.before; }
};

// Everything that an upload of one run does, and that stays, in its order: the records of PT-101, and how
// many of the two dates that a record copies have been copied.
const Death uploadDeaths[] = {
    {"DPCuplStep", " 0"},
    {"DPCuplStep", " 0"},
    {"DPCuplStep", " 0"},
    {"insert into MT.calibration ", " 0"},
    {"update MT.inventory set I4230 = ", "N|0|0 0"},
    {"update MT.inventory set I4231 = ", "N|0|0 1"},
    {"insert into mt.standards ", "N|0|0 2"},
    {"insert into mt.standards ", "N|1|0 2"},
    {"insert into mt.calresults ", "N|2|0 2"},
    {"insert into mt.calresults ", "N|2|1 2"},
    {"insert into mt.calresults ", "N|2|2 2"},
    {"insert into mt.calresults ", "N|2|3 2"},
    {"insert into mt.calresults ", "N|2|4 2"},
};

// The same for a download of PT-101 over one of FT-501: what the calibrator holds, what is registered with
// it, and how many temporary packages and members of packages there are more than before.
const Death downloadDeaths[] = {
    {"insert into mt.hvm_kv_task_packages ", "FT-501 / FT-501 / 0 0"},
    {"insert into mt.hvm_kv_task_assets ", "FT-501 / FT-501 / 1 0"},
    {"DPCdnlStep", "FT-501 / FT-501 / 1 1"},
    // The first step empties the calibrator, the last one makes valid what came.
    {"DPCdnlStep", " / FT-501 / 1 1"},
    {"delete from mt.hvm_kv_task_inuse ", "PT-101 / FT-501 / 1 1"},
    {"delete from mt.hvm_kv_task_standards_inuse ", "PT-101 /  / 1 1"},
    {"insert into mt.hvm_kv_task_inuse ", "PT-101 /  / 1 1"},
    {"insert into mt.hvm_kv_task_standards_inuse ", "PT-101 / PT-101 / 1 1"},
    {"delete from mt.hvm_kv_task_assets ", "PT-101 / PT-101 / 1 1"},
};

template <std::size_t count>
auto momentsOf(const Death (&)[count]) {
    return ::testing::Range(0, static_cast<int>(count));
}

} // namespace

class DyingInAFluke702Upload : public DyingFluke702Workstation, public ::testing::WithParamInterface<int> {
  protected:
    QString copied() {
        return rows(u"select (i4230 is '2021-06-16') + (i4231 is '2021-06-16') from mt.inventory where i4201 "
                    "= 'PT-101'"_s)
            .value(0);
    }
};

TEST_P(DyingInAFluke702Upload, LeavesWhatWasWrittenAndTheNextUploadTheRest) {
    bringBack();
    const auto onCalibrator = held();
    const auto& death = uploadDeaths[GetParam()];
    expectDeath(GetParam() + 1, death.before);
    EXPECT_EQ(begun() + u' ' + copied(), QLatin1StringView(death.left));
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

TEST_P(DyingInAFluke702Upload, LeavesToTheJournalWhatTheNextUploadNeedNotRead) {
    bringBack();
    expectDeath(GetParam() + 1, uploadDeaths[GetParam()].before);
    const bool isRead = GetParam() >= 3; // before its record
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

INSTANTIATE_TEST_SUITE_P(Before, DyingInAFluke702Upload, momentsOf(uploadDeaths));

TEST_F(DyingFluke702Workstation, AnUploadHasNoOtherMoments) {
    bringBack();
    expectMoments(std::size(uploadDeaths));
    expectChoice();
    expectRefusedRuns(singleRun());
    pressUpload();
    EXPECT_EQ(begun(), u"N|2|5"_s);
}

class DyingInAFluke702Download : public DyingFluke702Workstation, public ::testing::WithParamInterface<int> {
  protected:
    DyingInAFluke702Download() {
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

TEST_P(DyingInAFluke702Download, LeavesCalibratorAndRegistryAsFarAsItCameAndTheNextDownloadIsWhole) {
    const auto& death = downloadDeaths[GetParam()];
    expectDeath(GetParam() + 1, death.before, singleInstrument());
    EXPECT_EQ(left(), QLatin1StringView(death.left));
    const auto leftPackages = QString::fromLatin1(death.left).section(u'/', 2);

    download();
    EXPECT_EQ(left(), u"PT-101 / PT-101 /"_s + leftPackages) << "the package of the dead one stays";
    EXPECT_EQ(standardsInUse(u"PT-101"_s), QStringList{u"F702-01"_s}) << "once";
    carryOut(twoRuns());
    upload(twoRuns());
    EXPECT_EQ(begun(), u"N|2|5 Y|2|5"_s);
}

INSTANTIATE_TEST_SUITE_P(Before, DyingInAFluke702Download, momentsOf(downloadDeaths));

TEST_F(DyingFluke702Workstation, ADownloadHasNoOtherMoments) {
    expectMoments(std::size(downloadDeaths), singleInstrument());
    EXPECT_EQ(storedTags(), singleInstrument());
    EXPECT_EQ(registered(), singleInstrument());
}

/// Killed by another process at an arbitrary place, as soon as it has written so many lines.
class KilledFluke702Workstation : public DyingFluke702Workstation,
                                  public ::testing::WithParamInterface<int> {};

TEST_P(KilledFluke702Workstation, LosesNothingAndDoublesNothing) {
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

// Two runs have about 30 lines.
INSTANTIATE_TEST_SUITE_P(After, KilledFluke702Workstation, ::testing::Values(3, 6, 11, 14, 17, 21, 26));

} // namespace kelvane::testing
