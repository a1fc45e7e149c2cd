#include "tests/end_to_end/torque_end_to_end.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

/// A workstation that dies in the middle of an upload, and the one that comes after it.
class DyingWorkstation : public TorqueEndToEnd {
  protected:
    void restart(const QStringList& assets) {
        for (const auto& asset : assets)
            list(asset);
        download();
        carryOut(assets);
        workplace.line.setPortOpen(false);
    }

    /// What there is of a tool: its records, and where it is held, registered and in use with the calibrator.
    QString stateOf(const QString& asset) {
        QStringList state = records(asset);
        if (storedNames().contains(asset))
            state << u"held"_s;
        if (registered().contains(asset))
            state << u"registered"_s;
        if (standardsInUse(asset).contains(u"TS-0001"_s))
            state << u"in use"_s;
        return state.join(u' ');
    }

    /// Uploads once more. A tool that has its record but is still held comes up again and is refused; what
    /// the record lacks, it lacks until it is completed out of the journal.
    void expectTheNextUploadToCompleteAllButBegunRecords(const QStringList& assets) {
        QHash<QString, QStringList> complete;
        QStringList withoutData;
        expectChoice();
        for (const auto& asset : assets) {
            const auto begun = records(asset);
            const auto state = stateOf(asset);
            complete.insert(asset, begun.isEmpty() ? wholeRecord(asset) : begun);
            ASSERT_TRUE(!begun.isEmpty() || state == u"held registered in use")
                << "lost: " << state.toStdString();
            if (!state.contains(u"in use"))
                continue;
            if (!state.contains(u"held")) {
                withoutData << asset;
                continue;
            }
            expectRecord(asset);
            if (!begun.isEmpty())
                expectRefusal();
        }
        pressUpload(withoutData.isEmpty() ? messages::uploaded() : messages::noData(withoutData));
        for (const auto& asset : assets)
            EXPECT_EQ(stateOf(asset), complete.value(asset).join(u' ')) << asset.toStdString();
        EXPECT_EQ(held(), simulators::Memory());
    }
};

namespace {

/// Before what the workstation dies; what there is of its one tool then, and how many of the four fields that
/// a record changes in the inventory have been changed.
struct Death {
    const char* before;
    const char* left;
    int changed;

    friend void PrintTo(const Death& death, std::ostream* out) { *out << death.before; }
};

const char* const untouched = "held registered in use";

// Everything that an upload of one tool does and that stays, in its order.
const Death deaths[] = {
    {"T0A", untouched, 0},
    {"T0D", untouched, 0},
    {"T1C", untouched, 0},
    {"T1C", untouched, 0},
    {"T1D", untouched, 0},
    {"T1C", untouched, 0},
    {"T1D", untouched, 0},
    {"T1C", untouched, 0},
    {"T1D", untouched, 0},
    {"T1F", untouched, 0},
    {"insert into MT.calibration ", untouched, 0},
    {"update MT.inventory set I4230 = ", "Y|0|0 held registered in use", 0},
    {"update MT.inventory set I4231 = ", "Y|0|0 held registered in use", 1},
    {"insert into mt.standards ", "Y|0|0 held registered in use", 2},
    {"insert into mt.standards ", "Y|1|0 held registered in use", 2},
    {"insert into mt.calresults ", "Y|2|0 held registered in use", 2},
    {"insert into mt.calresults ", "Y|2|1 held registered in use", 2},
    {"insert into mt.calresults ", "Y|2|2 held registered in use", 2},
    {"update MT.inventory set I4224 = NULL ", "Y|2|3 held registered in use", 2},
    {"update MT.inventory set I4225 = NULL ", "Y|2|3 held registered in use", 3},
    {"T1C", "Y|2|3 held registered in use", 4},
    {"T1J", "Y|2|3 held registered in use", 4},
    {"delete from mt.hvm_kv_task_inuse ", "Y|2|3 registered in use", 4},
    {"delete from mt.hvm_kv_task_standards_inuse ", "Y|2|3 in use", 4},
    {"T2E", "Y|2|3", 4},
};

} // namespace

class DyingAtAMoment : public DyingWorkstation, public ::testing::WithParamInterface<int> {
  protected:
    DyingAtAMoment() { restart({u"TW-101"_s}); }

    QString inventory() {
        return rows(u"select case when i4230 = '2021-06-16' then 1 else 0 end + case when i4231 = "
                    u"'2022-06-16' "
                    "then 1 else 0 end + case when i4224 is null then 1 else 0 end + case when i4225 is null "
                    "then 1 else 0 end from mt.inventory where i4201 = 'TW-101'"_s)
            .value(0);
    }
};

TEST_P(DyingAtAMoment, LeavesWhatWasWrittenAndTheNextUploadTheRest) {
    const auto& death = deaths[GetParam()];
    const auto child = startCommand(GetParam() + 1);
    const auto outcome = simulators::outcomeOf(*child);
    EXPECT_EQ(outcome.code, -2) << "killed: " << outcome.errors.toStdString();
    const auto last = outcome.output.trimmed().section(u'\n', -1);
    EXPECT_TRUE(last.startsWith(QLatin1StringView(death.before))) << last.toStdString();

    expectSoundDatabase();
    EXPECT_EQ(stateOf(u"TW-101"_s), QLatin1StringView(death.left));
    EXPECT_EQ(inventory(), QString::number(death.changed));
    expectTheNextUploadToCompleteAllButBegunRecords({u"TW-101"_s});
    makeRecords();
    expectWhole({u"TW-101"_s});
    EXPECT_EQ(inventory(), u"4"_s);
}

TEST_P(DyingAtAMoment, LeavesToTheJournalWhatTheNextUploadNeedNotRead) {
    simulators::outcomeOf(*startCommand(GetParam() + 1));
    const bool isRead = GetParam() >= 10; // before its record
    EXPECT_EQ(withoutRecord().isEmpty(), !isRead || GetParam() >= 20);
    makeRecords();
    EXPECT_EQ(records(u"TW-101"_s), isRead ? wholeRecord(u"TW-101"_s) : QStringList());
    expectTheNextUploadToCompleteAllButBegunRecords({u"TW-101"_s});
    expectWhole({u"TW-101"_s});
    EXPECT_EQ(inventory(), u"4"_s);
    EXPECT_EQ(withoutRecord(), QStringList());
}

INSTANTIATE_TEST_SUITE_P(Before, DyingAtAMoment, ::testing::Range(0, static_cast<int>(std::size(deaths))));

TEST_F(DyingWorkstation, AnUploadHasNoOtherMoments) {
    restart({u"TW-101"_s});
    const auto child = startCommand(static_cast<int>(std::size(deaths)) + 1);
    const auto outcome = simulators::outcomeOf(*child);
    EXPECT_EQ(outcome.code, 0) << outcome.errors.toStdString();
    EXPECT_EQ(outcome.output.count(u'\n'), std::size(deaths));
    expectWhole({u"TW-101"_s});
    upload({});
}

/// Killed by another process at an arbitrary place, as soon as it has written so many lines.
class KilledWorkstation : public DyingWorkstation, public ::testing::WithParamInterface<int> {};

TEST_P(KilledWorkstation, LosesNothingAndDoublesNothing) {
    const QStringList both{u"TW-101"_s, u"TW-102"_s};
    restart(both);
    const auto child = startCommand(0);
    for (int line = 0; line < GetParam(); ++line) {
        while (!child->canReadLine())
            ASSERT_TRUE(child->waitForReadyRead(20000)) << line;
        child->readLine();
    }
    child->kill();
    ASSERT_TRUE(child->waitForFinished(20000));
    expectSoundDatabase();
    expectTheNextUploadToCompleteAllButBegunRecords(both);
    makeRecords();
    expectWhole(both);
    expectSoundDatabase();
}

// Two tools have 45 lines.
INSTANTIATE_TEST_SUITE_P(After, KilledWorkstation,
                         ::testing::Values(2, 9, 11, 13, 16, 19, 22, 31, 34, 37, 42));

} // namespace kelvane::testing
