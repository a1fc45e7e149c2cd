#include "simulators/torquestar/messages.h"
#include "tests/simulators/message_bytes.h"
#include "tests/simulators/programs.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace kelvane::simulators {

class TorqueStarMessages : public ::testing::Test {
  protected:
    QByteArray answer(const QByteArray& message) { return messages_.answer(message); }

    void giveResults(const QString& name, const std::vector<Result>& results, const QString& comment = {}) {
        memory_.use([&](Memory& memory) {
            memory.find(name)->results = results;
            memory.find(name)->comment = comment;
            return true;
        });
    }

    Memory storedMemory() {
        Memory kept;
        MemoryFile(folder_.memory()).use([&](Memory& memory) {
            kept = memory;
            return false;
        });
        return kept;
    }

    SimulatorFolder folder_;
    MemoryFile memory_{folder_.memory()};
    Messages messages_{memory_, 48213, 500};
    const QByteArray round_ = wireName("KVTASK");
    const QByteArray noSuchName_ = hex("74 00 02");
};

TEST_F(TorqueStarMessages, LinkTestIsAnsweredInKind) {
    EXPECT_EQ(answer("T0A"), "t0A");
}

TEST_F(TorqueStarMessages, IdentityHoldsTheSerialNumberAtPositions22To25) {
    const QByteArray reply = answer("T0D");
    EXPECT_TRUE(reply.startsWith("t0D"));
    EXPECT_EQ(reply.mid(21, 4), hex("00 00 BC 55"));
}

TEST_F(TorqueStarMessages, ARoundIsThereOnlyOnceStored) {
    EXPECT_EQ(answer("T2F" + round_), hex("74 32 46 00"));
    EXPECT_EQ(answer("T2B" + round_ + hex("01 03")), "t2B");
    EXPECT_EQ(answer("T2F" + round_), hex("74 32 46 00"));
    EXPECT_EQ(answer(addMessage("TW-1")), "t1A");
    EXPECT_EQ(answer("T2C"), "t2C");
    EXPECT_EQ(answer("T2F" + round_), hex("74 32 46 01"));
    EXPECT_EQ(storedMemory().rounds, (std::vector<Round>{{u"KVTASK"_s, 3, {u"TW-1"_s}}}));
}

TEST_F(TorqueStarMessages, ErasingARoundLeavesItsCharacteristics) {
    answer("T2B" + round_ + hex("01 03"));
    answer(addMessage("TW-1"));
    answer("T2C");
    EXPECT_EQ(answer("T2E" + round_), hex("74 32 45 01"));
    EXPECT_EQ(answer("T2E" + round_), hex("74 32 45 00"));
    EXPECT_EQ(answer("T2F" + round_), hex("74 32 46 00"));
    EXPECT_EQ(storedMemory().characteristics.size(), 1U);
}

TEST_F(TorqueStarMessages, CreatingARoundHasItsErrorCodes) {
    const struct {
        QByteArray rest;
        const char* reply;
    } cases[] = {
        {round_ + hex("02 03"), "74 32 42"},
        {wireName("") + hex("02 03"), "74 32 42 02"},
        {wireName("TWELVE_CHARS") + hex("02 03"), "74 32 42 02"},
        {"KVTASK" + hex("02 03"), "74 32 42 02"},
        {round_ + hex("02 04"), "74 32 42 03"},
        {round_ + hex("02 03 03"), "74 32 42 03"},
        {round_ + hex("00 03"), "74 32 42 04"},
        {round_, "74 32 42 04"},
    };
    for (const auto& entry : cases)
        EXPECT_EQ(answer("T2B" + entry.rest).toHex(' '), QByteArray(entry.reply).toLower())
            << entry.rest.toHex().toStdString();
    answer("T2B" + round_ + hex("01 03"));
    answer(addMessage("TW-1"));
    answer("T2C");
    EXPECT_EQ(answer("T2B" + round_ + hex("02 03")), hex("74 32 42 01"));
}

TEST_F(TorqueStarMessages, ARoundWithoutItsModeByteIsAnInvalidSampleMode) {
    EXPECT_EQ(answer("T2B" + round_ + hex("10")), hex("74 32 42 03"));
}

TEST_F(TorqueStarMessages, ARoundIsStoredOnlyWithAsManyCharacteristicsAsAnnounced) {
    EXPECT_EQ(answer("T2C"), hex("74 32 43 00"));
    answer("T2B" + round_ + hex("02 03"));
    answer(addMessage("TW-1"));
    EXPECT_EQ(answer("T2C"), hex("74 32 43 00"));
    answer(addMessage("TW-2"));
    EXPECT_EQ(answer("T2C"), "t2C");
    EXPECT_EQ(answer("T2C"), hex("74 32 43 00"));
}

TEST_F(TorqueStarMessages, ACharacteristicReplacedWhileTheRoundIsMadeStandsInItOnce) {
    answer("T2B" + round_ + hex("02 03"));
    answer(addMessage("TW-1"));
    answer("T1C" + wireName("TW-1"));
    answer("T1J");
    EXPECT_EQ(answer(addMessage("TW-1")), "t1A");
    EXPECT_EQ(answer("T2C"), "t2C");
    EXPECT_EQ(storedMemory().rounds.front().characteristics, std::vector<QString>{u"TW-1"_s});
}

TEST_F(TorqueStarMessages, ANewSessionForgetsTheRoundBeingMade) {
    answer("T2B" + round_ + hex("01 03"));
    answer(addMessage("TW-1"));
    answer("T0A");
    EXPECT_EQ(answer("T2C"), hex("74 32 43 00"));
}

TEST_F(TorqueStarMessages, ANameThatDoesNotExistHoldsNoData) {
    EXPECT_EQ(answer("T1C" + wireName("TW-1")), noSuchName_);
    EXPECT_EQ(answer("T1C"), noSuchName_);
    EXPECT_EQ(answer("T1CTW-1"), noSuchName_);
}

TEST_F(TorqueStarMessages, ACharacteristicWithoutResultsExistsAndHoldsNoData) {
    answer(addMessage("TW-1"));
    EXPECT_EQ(answer("T1C" + wireName("TW-1")), hex("74 31 43 02"));
}

TEST_F(TorqueStarMessages, ACharacteristicWithResultsIsSelected) {
    answer(addMessage("TW-1"));
    giveResults(u"TW-1"_s, {{20261120, 91500, {1}}});
    EXPECT_EQ(answer("T1C" + wireName("TW-1")), "t1C");
}

TEST_F(TorqueStarMessages, AFourthCharacterMarksAnExistingCharacteristic) {
    answer(addMessage("TW-1"));
    EXPECT_EQ(answer(addMessage("TW-1")).size(), 4);
    EXPECT_EQ(storedMemory().characteristics.size(), 1U);
}

TEST_F(TorqueStarMessages, ADeletedCharacteristicDoesNotExist) {
    answer(addMessage("TW-1"));
    answer("T1C" + wireName("TW-1"));
    EXPECT_EQ(answer("T1J"), hex("74 31 4A 01"));
    EXPECT_EQ(answer("T1J"), hex("74 31 4A 00"));
    EXPECT_EQ(answer("T1C" + wireName("TW-1")), noSuchName_);
    EXPECT_EQ(storedMemory(), Memory());
}

TEST_F(TorqueStarMessages, SelectingANameThatDoesNotExistLeavesNothingToDelete) {
    answer(addMessage("TW-1"));
    answer("T1C" + wireName("TW-1"));
    answer("T1C" + wireName("TW-2"));
    EXPECT_EQ(answer("T1J"), hex("74 31 4A 00"));
    EXPECT_EQ(storedMemory().characteristics.size(), 1U);
}

TEST_F(TorqueStarMessages, AResultIsDateTimeAndSamples) {
    answer(addMessage("TW-1"));
    giveResults(u"TW-1"_s, {{20261120, 91500, {200200, 200100, -1}}});
    answer("T1C" + wireName("TW-1"));
    EXPECT_EQ(answer("T1D").toHex(' '),
              hex("74 31 44 01 35 29 00 00 01 65 6C 00 03 0E 08 00 03 0D A4 FF FF FF FF").toHex(' '));
}

class TorqueStarResults : public TorqueStarMessages {
  protected:
    void SetUp() override {
        for (const char* const name : {"TW-1", "TW-2"}) {
            answer(addMessage(name));
            giveResults(QString::fromLatin1(name), {first_, second_});
        }
        answer("T0A");
    }

    QByteArray select(const char* name) { return answer("T1C" + wireName(name)); }

    const Result first_{20261120, 91500, {10000}};
    const Result second_{20261120, 91600, {20000}};
    const QByteArray noMore_ = hex("74 31 44 02");
};

TEST_F(TorqueStarResults, SelectingTheSameNameAgainGoesOnToTheNextResult) {
    select("TW-1");
    select("TW-1");
    EXPECT_EQ(answer("T1D"), resultReply(first_));
    EXPECT_EQ(select("TW-1"), "t1C");
    EXPECT_EQ(answer("T1D"), resultReply(second_));
    EXPECT_EQ(select("TW-1"), "t1C");
    EXPECT_EQ(answer("T1D"), noMore_);
    EXPECT_EQ(answer("T1D"), noMore_);
}

TEST_F(TorqueStarResults, SelectingAnotherNameBeginsWithItsFirstResult) {
    select("TW-1");
    answer("T1D");
    select("TW-2");
    EXPECT_EQ(answer("T1D"), resultReply(first_));
    select("TW-1");
    EXPECT_EQ(answer("T1D"), resultReply(first_));
}

TEST_F(TorqueStarResults, ANewSessionBeginsWithTheFirstResultAgain) {
    select("TW-1");
    answer("T1D");
    answer("T0A");
    EXPECT_EQ(answer("T1D"), noMore_);
    select("TW-1");
    EXPECT_EQ(answer("T1D"), resultReply(first_));
}

TEST_F(TorqueStarMessages, WithoutASelectionThereIsNothingToRead) {
    EXPECT_EQ(answer("T1D"), hex("74 31 44 02"));
    EXPECT_EQ(answer("T1F"), hex("74 31 46 FF"));
}

TEST_F(TorqueStarMessages, TheCommentEndsInOneMoreCharacter) {
    answer(addMessage("TW-1"));
    answer("T1C" + wireName("TW-1"));
    EXPECT_EQ(answer("T1F"), hex("74 31 46 FF"));
    giveResults(u"TW-1"_s, {}, u"5 € off"_s);
    EXPECT_EQ(answer("T1F"), "t1F5 " + hex("80") + " off" + hex("FF"));
}

TEST_F(TorqueStarMessages, NamesKeepTheirBytes) {
    const QByteArray name = hex("C4 80 27 22 20 FF 3D");
    EXPECT_EQ(answer(addMessage(name)), "t1A");
    EXPECT_EQ(answer("T1C" + wireName(name)), hex("74 31 43 02"));
    EXPECT_EQ(storedMemory().characteristics.front().name, u"Ä€'\" ÿ="_s);
}

TEST_F(TorqueStarMessages, MemoryOutlivesTheCalibratorButTheSelectionDoesNot) {
    answer(addMessage("TW-1"));
    giveResults(u"TW-1"_s, {{20261120, 91500, {1}}});
    answer("T1C" + wireName("TW-1"));
    MemoryFile file(folder_.memory());
    Messages again(file, 48213, 500);
    EXPECT_EQ(again.answer("T1D"), hex("74 31 44 02"));
    EXPECT_EQ(again.answer("T1C" + wireName("TW-1")), "t1C");
}

TEST_F(TorqueStarMessages, KnowsItsElevenMessagesAndNoOther) {
    for (const char* const known :
         {"T0A", "T0D", "T2F", "T2E", "T2B", "T2C", "T1C", "T1J", "T1A", "T1D", "T1F"})
        EXPECT_TRUE(Messages::knows(known)) << known;
    for (const char* const unknown : {"", "T", "T1", "t0A", "T9Z", "XT0A"})
        EXPECT_FALSE(Messages::knows(unknown)) << unknown;
}

} // namespace kelvane::simulators
