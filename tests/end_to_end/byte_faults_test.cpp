#include "simulators/torquestar/line.h"
#include "simulators/torquestar/messages.h"
#include "tests/end_to_end/torque_end_to_end.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// What is done to a byte, and what comes of it at each place of the frame, from the first on: "-" the reply
/// is not answered as it should be, "t" it never completes and times out.
struct Damage {
    const char* kind;
    const char* ofNewCharacteristic;
    const char* ofResult;

    friend void PrintTo(const Damage& damage, std::ostream* out) { *out << damage.kind; }
};

// The frame of a reply ends in DLE ETX and two check bytes. A reply whose end is not found, or that is
// shorter than any, times out; all other damage shows in the check bytes.
const Damage damages[] = {
    {"drop-byte", "ttttttt", "---------------tttt"},
    {"add-byte", "----t---", "----------------t---"},
    {"flip-byte", "---tt--", "---------------tt--"},
};

QString wordsOf(char outcome) {
    return outcome == 't' ? messages::timeOut() : messages::noResponse();
}

/// One fault a place, each struck once, in the order of the places.
QStringList faultsOf(const Damage& damage, const QString& message, const char* outcomes) {
    QStringList faults;
    for (int place = 1; place <= static_cast<int>(qstrlen(outcomes)); ++place)
        faults << u"%1:%2@%3*1"_s.arg(QLatin1StringView(damage.kind)).arg(place).arg(message);
    return faults;
}

} // namespace

class EndToEndWithADamagedByte : public TorqueEndToEnd, public ::testing::WithParamInterface<Damage> {
  protected:
    EndToEndWithADamagedByte() { list(u"TW-101"_s); }

    /// A byte can be added behind the last one too.
    static qsizetype placesIn(const QByteArray& frame) {
        return frame.size() + (qstrcmp(GetParam().kind, "add-byte") == 0 ? 1 : 0);
    }
};

TEST_P(EndToEndWithADamagedByte, InTheAnswerToANewCharacteristicEndsTheDownloadAtEachPlace) {
    const auto* const outcomes = GetParam().ofNewCharacteristic;
    ASSERT_EQ(qstrlen(outcomes), placesIn(simulators::frame("t1A")));
    switchOn(faultsOf(GetParam(), u"T1A"_s, outcomes));
    for (const char* place = outcomes; *place != 0; ++place) {
        SCOPED_TRACE(place - outcomes + 1);
        download(wordsOf(*place));
        EXPECT_EQ(registered(), QStringList());
        EXPECT_EQ(storedNames(), QStringList{u"TW-101"_s}) << "the calibrator has taken it all the same";
    }
    download();
    EXPECT_EQ(registered(), QStringList{u"TW-101"_s});
    EXPECT_EQ(storedNames(), QStringList{u"TW-101"_s});
    carryOut({u"TW-101"_s});
    upload({u"TW-101"_s});
    expectWhole({u"TW-101"_s});
}

TEST_P(EndToEndWithADamagedByte, InAResultEndsTheUploadAtEachPlaceAndLosesNothing) {
    const auto* const outcomes = GetParam().ofResult;
    download();
    carryOut({u"TW-101"_s});
    const auto before = held();
    ASSERT_EQ(qstrlen(outcomes), placesIn(simulators::frame(
                                     simulators::resultReply(before.characteristics.at(0).results.at(0)))));
    switchOn(faultsOf(GetParam(), u"T1D"_s, outcomes));
    for (const char* place = outcomes; *place != 0; ++place) {
        SCOPED_TRACE(place - outcomes + 1);
        upload({}, wordsOf(*place));
        EXPECT_EQ(records(u"TW-101"_s), QStringList());
        EXPECT_EQ(held(), before);
        EXPECT_EQ(registered(), QStringList{u"TW-101"_s});
    }
    upload({u"TW-101"_s});
    expectWhole({u"TW-101"_s});
    EXPECT_EQ(held(), simulators::Memory());
}

INSTANTIATE_TEST_SUITE_P(Each, EndToEndWithADamagedByte, ::testing::ValuesIn(damages),
                         [](const auto& candidate) {
                             const auto kind = QByteArray(candidate.param.kind);
                             return kind == "drop-byte" ? "Lost" : kind == "add-byte" ? "Added" : "Flipped";
                         });

} // namespace kelvane::testing
