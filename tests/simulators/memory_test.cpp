#include "simulators/common/failure.h"
#include "simulators/torquestar/memory_file.h"
#include "tests/simulators/message_bytes.h"
#include "tests/simulators/programs.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace kelvane::simulators {

namespace {

Characteristic filledCharacteristic(const QString& name) {
    Characteristic made{name, {}, u"“as found” – 5 €"_s, {}};
    EXPECT_EQ(readFields(addMessage({}).sliced(7), made.fields), FieldBytes::Read);
    made.results = {{20261120, 91500, {200200, -1, 2147483647, -2147483647 - 1}}, {20240229, 0, {}}};
    return made;
}

Memory filledMemory() {
    return {{{u"KVTASK"_s, 3, {u"TW-1"_s, u"gone"_s}}, {u"other"_s, 3, {}}},
            {filledCharacteristic(u"TW-1"_s), filledCharacteristic(u"Ä\"1;'"_s)}};
}

/// The reason for which the text is refused; empty when it is taken.
QString refusal(const QByteArray& text) {
    try {
        memoryFrom(text);
    } catch (const Failure& failure) {
        return failure.text();
    }
    return {};
}

Memory read(const QString& path) {
    Memory memory;
    MemoryFile(path).use([&](Memory& there) {
        memory = there;
        return false;
    });
    return memory;
}

void write(MemoryFile& file, const Memory& memory) {
    file.use([&](Memory& there) {
        there = memory;
        return true;
    });
}

} // namespace

TEST(CalibratorMemory, ComesBackFromItsTextAsItWas) {
    EXPECT_EQ(memoryFrom(textOf(filledMemory())), filledMemory());
    EXPECT_EQ(memoryFrom(textOf({})), Memory());
}

TEST(CalibratorMemory, AShortFormKeepsItsFieldsMissing) {
    Characteristic serial{u"S"_s, {}, {}, {}};
    ASSERT_EQ(readFields(addMessage({}, goodSerialFields()).sliced(7), serial.fields), FieldBytes::Read);
    EXPECT_FALSE(serial.fields[Span]);
    EXPECT_EQ(memoryFrom(textOf({{}, {serial}})), (Memory{{}, {serial}}));
}

TEST(CalibratorMemory, RefusesADamagedTextAndSaysWhy) {
    const QByteArray good = textOf({{}, {filledCharacteristic(u"TW-1"_s)}});
    const auto with = [&](const char* before, const char* after) {
        EXPECT_TRUE(good.contains(before)) << before;
        return QByteArray(good).replace(before, after);
    };
    const struct {
        QByteArray text;
        const char* reason;
    } cases[] = {
        {"", "at byte 0"},
        {good.chopped(20), "at byte"},
        {QByteArray(5000, '\0'), "at byte"},
        {"[]", "does not bear the mark"},
        {"{}", "does not bear the mark"},
        {with("memory 1", "memory 2"), "does not bear the mark"},
        {with("\"rounds\"", "\"turns\""), "\"turns\" is unknown"},
        {with("\"rounds\": [", "\"rounds\": [7"), "of the wrong kind"},
        {with("\"name\": \"TW-1\"", "\"name\": \"\""), "a name has 1 to 11 characters"},
        {with("\"name\": \"TW-1\"", "\"name\": \"TW-123456789\""), "a name has 1 to 11 characters"},
        {with("\"name\": \"TW-1\"", "\"name\": 5"), "\"name\" is of the wrong kind"},
        {with("\"samples\": 3", "\"samples\": 300"),
         "\"samples\": not a number that the calibrator can keep"},
        {with("\"samples\": 3", "\"samples\": 2.5"), "not a whole number"},
        {with("\"samples\": 3", "\"samples\": \"3\""), "not a number"},
        {with("\"subgroups\"", "\"subgroup\""), "\"subgroup\" is unknown"},
        {with("20.02", "\"20.02\""), "not a number"},
        {with("20.02", "1e300"), "not a number"},
        {with("2026-11-20", "2026-11-31"), "not a date and time"},
        {with("09:15:00", "25:00:00"), "not a date and time"},
        {with("\"comment\": ", "\"note\": "), "\"note\" is unknown"},
        {textOf({{}, {filledCharacteristic(u"A"_s), filledCharacteristic(u"A"_s)}}), "\"A\" stands twice"},
        {textOf({{{u"R"_s, 3, {}}, {u"R"_s, 3, {}}}, {}}), "\"R\" stands twice"},
        {QByteArray("{\"format\": \"kelvane-torquestar memory 1\", \"rounds\": []}"),
         "\"characteristics\" is missing"},
    };
    for (const auto& entry : cases)
        EXPECT_TRUE(refusal(entry.text).contains(QString::fromLatin1(entry.reason)))
            << entry.reason << " / " << refusal(entry.text).toStdString();
}

TEST(CalibratorMemory, AMissingFileIsAnEmptyMemory) {
    const SimulatorFolder simulatorFolder;
    EXPECT_EQ(read(simulatorFolder.memory()), Memory());
    EXPECT_FALSE(QFile::exists(simulatorFolder.memory()));
}

TEST(CalibratorMemory, ADamagedFileIsRefusedByNameAndLeftAlone) {
    const SimulatorFolder simulatorFolder;
    simulatorFolder.put(u"memory.json"_s, "{ half a mem");
    try {
        read(simulatorFolder.memory());
        FAIL() << "taken";
    } catch (const Failure& failure) {
        EXPECT_TRUE(failure.text().startsWith(simulatorFolder.memory() +
                                              u" is not a calibrator's memory, or is damaged: at byte"_s))
            << failure.text().toStdString();
    }
    EXPECT_EQ(simulatorFolder.contentOf(u"memory.json"_s), "{ half a mem");
}

TEST(CalibratorMemory, AChangeByAnotherProcessIsSeenAndKept) {
    const SimulatorFolder simulatorFolder;
    MemoryFile calibrator(simulatorFolder.memory());
    MemoryFile technician(simulatorFolder.memory());
    write(calibrator, filledMemory());
    technician.use([](Memory& memory) {
        memory.find(u"TW-1"_s)->comment = u"seen"_s;
        return true;
    });
    calibrator.use([](Memory& memory) {
        EXPECT_EQ(memory.find(u"TW-1"_s)->comment, u"seen"_s);
        memory.remove(u"Ä\"1;'"_s);
        return true;
    });
    const Memory left = read(simulatorFolder.memory());
    ASSERT_EQ(left.characteristics.size(), 1U);
    EXPECT_EQ(left.characteristics.front().comment, u"seen"_s);
}

TEST(CalibratorMemory, AFileTakenAwayIsAnEmptyMemoryAgain) {
    const SimulatorFolder simulatorFolder;
    MemoryFile file(simulatorFolder.memory());
    write(file, filledMemory());
    ASSERT_TRUE(QFile::remove(simulatorFolder.memory()));
    file.use([](Memory& memory) {
        EXPECT_EQ(memory, Memory());
        return false;
    });
}

TEST(CalibratorMemory, IsWrittenInOneStepAndLeavesNoDraft) {
    const SimulatorFolder simulatorFolder;
    MemoryFile file(simulatorFolder.memory());
    write(file, filledMemory());
    const QStringList left = QDir(simulatorFolder.path(u"."_s)).entryList(QDir::Files, QDir::Name);
    EXPECT_EQ(left, (QStringList{u"memory.json"_s, u"memory.json.lock"_s}));
}

TEST(CalibratorMemory, AMissingFolderIsReported) {
    const SimulatorFolder simulatorFolder;
    EXPECT_THROW(read(simulatorFolder.path(u"nowhere/memory.json"_s)), Failure);
}

TEST(CalibratorMemory, AFileThatCantBeReplacedIsReported) {
    const SimulatorFolder simulatorFolder;
    ASSERT_TRUE(QDir().mkpath(simulatorFolder.path(u"memory.json.new"_s)));
    MemoryFile file(simulatorFolder.memory());
    EXPECT_THROW(write(file, filledMemory()), Failure);
    EXPECT_FALSE(QFile::exists(simulatorFolder.memory()));
}

TEST(CalibratorMemory, RemovingACharacteristicTakesItOutOfItsRounds) {
    Memory memory = filledMemory();
    memory.remove(u"TW-1"_s);
    EXPECT_EQ(memory.find(u"TW-1"_s), nullptr);
    EXPECT_EQ(memory.findRound(u"KVTASK"_s)->characteristics, std::vector<QString>{u"gone"_s});
}

} // namespace kelvane::simulators
