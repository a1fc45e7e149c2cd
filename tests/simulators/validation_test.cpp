#include "simulators/torquestar/messages.h"
#include "simulators/torquestar/validation.h"
#include "tests/simulators/message_bytes.h"
#include "tests/simulators/programs.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace kelvane::simulators {

namespace {

/// The reply of an empty calibrator to a T1A with these fields.
QByteArray replyTo(const std::vector<QByteArray>& fields, const QByteArray& name = "TW-1") {
    const SimulatorFolder simulatorFolder;
    MemoryFile memory(simulatorFolder.memory());
    return Messages(memory, 48213, 500).answer(addMessage(name, fields));
}

QByteArray refusedWith(int code) {
    return hex("74 31 41 00") + static_cast<char>(code);
}

struct FieldCase {
    int code;
    std::size_t field;
    QByteArray bytes;
};

void expectRefusals(const std::vector<QByteArray>& good, const std::vector<FieldCase>& cases) {
    ASSERT_EQ(replyTo(good), "t1A");
    for (const FieldCase& entry : cases) {
        std::vector<QByteArray> fields = good;
        fields[entry.field] = entry.bytes;
        EXPECT_EQ(replyTo(fields).toHex(), refusedWith(entry.code).toHex())
            << "field " << entry.field << " = " << entry.bytes.toHex().toStdString();
    }
}

void expectTaken(const std::vector<QByteArray>& good, const std::vector<FieldCase>& cases) {
    for (const FieldCase& entry : cases) {
        std::vector<QByteArray> fields = good;
        fields[entry.field] = entry.bytes;
        EXPECT_EQ(replyTo(fields), "t1A")
            << "field " << entry.field << " = " << entry.bytes.toHex().toStdString();
    }
}

} // namespace

TEST(CharacteristicCheck, EachWrongFieldHasItsErrorCode) {
    expectRefusals(goodFields(),
                   {
                       {2, 0, hex("00")},          {2, 0, hex("C9")},         {3, 1, hex("00")},
                       {3, 1, hex("64")},          {4, 2, hex("00")},         {4, 2, hex("64")},
                       {5, 3, hex("00")},          {5, 3, hex("05")},         {28, 4, scaled(0)},
                       {28, 4, scaled(-150)},      {28, 4, hex("7FFFFFFF")},  {6, 5, hex("01")},
                       {8, 6, hex("00")},          {8, 6, hex("0A")},         {7, 7, hex("06")},
                       {10, 8, hex("00")},         {10, 8, hex("08")},        {12, 9, hex("03")},
                       {14, 10, hex("11")},        {15, 11, hex("00")},       {15, 11, hex("0A")},
                       {17, 12, hex("00")},        {17, 12, hex("03")},       {18, 13, scaled(0)},
                       {18, 13, scaled(-1)},       {18, 13, scaled(187.6)},   {19, 14, scaled(-1)},
                       {19, 14, scaled(104.0001)}, {19, 14, scaled(20.7)},    {20, 15, scaled(-0.0001)},
                       {20, 15, scaled(104.0001)}, {21, 16, scaled(-0.0001)}, {21, 16, scaled(104.0001)},
                       {22, 17, hex("00")},        {22, 17, "two"},           {23, 18, hex("01")},
                       {24, 19, scaled(1)},        {25, 20, scaled(1)},       {0, 21, hex("0001")},
                       {26, 22, scaled(0)},        {26, 22, scaled(10.0001)}, {0, 23, hex("015F")},
                       {0, 24, hex("00003038")},
                   });
}

TEST(CharacteristicCheck, EachWrongFieldOfASerialTransducerHasItsErrorCode) {
    expectRefusals(goodSerialFields(), {
                                           {2, 0, hex("00")},
                                           {6, 5, hex("00")},
                                           {6, 5, hex("05")},
                                           {7, 7, hex("00")},
                                           {7, 7, hex("08")},
                                           {9, 8, hex("06")},
                                           {9, 8, hex("09")},
                                           {11, 9, hex("00")},
                                           {11, 9, hex("03")},
                                           {13, 10, hex("00")},
                                           {13, 10, hex("04")},
                                           {17, 12, hex("01")},
                                           {18, 13, scaled(0)},
                                           {19, 14, scaled(20.7)},
                                           {20, 15, scaled(105)},
                                           {21, 16, scaled(105)},
                                           {26, 22, scaled(0)},
                                       });
}

TEST(CharacteristicCheck, TheEndsOfEachRangeAreTaken) {
    expectTaken(goodFields(), {
                                  {0, 0, hex("01")},
                                  {0, 0, hex("C8")},
                                  {0, 3, hex("01")},
                                  {0, 3, hex("04")},
                                  {0, 8, hex("01")},
                                  {0, 8, hex("07")},
                                  {0, 9, hex("00")},
                                  {0, 9, hex("02")},
                                  {0, 10, hex("00")},
                                  {0, 10, hex("10")},
                                  {0, 12, hex("02")},
                                  {0, 13, scaled(187.5)},
                                  {0, 14, scaled(104)},
                                  {0, 14, scaled(20.8)},
                                  {0, 15, scaled(0)},
                                  {0, 16, scaled(104)},
                              });
}

TEST(CharacteristicCheck, AMinimumOfOneFifthOfTheMaximumSurvivesRounding) {
    std::vector<QByteArray> fields = goodFields();
    fields[13] = scaled(100.0002);
    fields[14] = scaled(20.0000);
    EXPECT_EQ(replyTo(fields), "t1A");
}

TEST(CharacteristicCheck, UnitsMoreThanTenThousandApartAreIncompatible) {
    struct UnitCase {
        const char* span;
        const char* display;
        bool compatible;
    };
    for (const UnitCase& entry :
         {UnitCase{"08", "01", false}, UnitCase{"09", "01", false}, UnitCase{"01", "09", false},
          UnitCase{"08", "02", false}, UnitCase{"05", "03", true}, UnitCase{"03", "01", true},
          UnitCase{"09", "02", true}}) {
        std::vector<QByteArray> fields = goodFields();
        fields[6] = hex(entry.span);
        fields[11] = hex(entry.display);
        Fields read;
        ASSERT_EQ(readFields(addMessage({}, fields).sliced(7), read), FieldBytes::Read);
        EXPECT_EQ(firstFault(read) != std::optional(16), entry.compatible) << entry.span << entry.display;
    }
}

TEST(CharacteristicCheck, TheSpanIsComparedInUnitsOfDisplay) {
    std::vector<QByteArray> fields = goodFields();
    fields[4] = scaled(100); // N/m, 73.76 ft/lb
    fields[6] = hex("05");
    EXPECT_EQ(replyTo(fields), refusedWith(18));
    fields[13] = scaled(92);
    fields[14] = scaled(90);
    EXPECT_EQ(replyTo(fields), "t1A");
}

TEST(CharacteristicCheck, ASerialTransducerInTheShortFormIsTaken) {
    EXPECT_EQ(addMessage("TW-1", goodSerialFields()).size(), addMessage("TW-1").size() - 7);
    EXPECT_EQ(replyTo(goodSerialFields()), "t1A");
}

TEST(CharacteristicCheck, ASerialTransducerInTheFullFormIsTaken) {
    std::vector<QByteArray> fields = goodSerialFields();
    for (const std::size_t kept : {2U, 4U, 6U, 11U})
        fields[kept] = goodFields()[kept];
    EXPECT_EQ(replyTo(fields), "t1A");
}

TEST(CharacteristicCheck, AnotherTypeInTheShortFormIsAnUnknownError) {
    std::vector<QByteArray> fields = goodSerialFields();
    fields[3] = hex("02");
    EXPECT_EQ(replyTo(fields), refusedWith(0));
}

TEST(CharacteristicCheck, AMessageCutShortAtAnyPlaceIsNeverTaken) {
    const QByteArray whole = addMessage("TW-1");
    for (qsizetype length = 3; length < whole.size(); ++length) {
        const SimulatorFolder simulatorFolder;
        MemoryFile memory(simulatorFolder.memory());
        const QByteArray reply = Messages(memory, 48213, 500).answer(whole.first(length));
        EXPECT_EQ(reply, refusedWith(0)) << length;
    }
}

TEST(CharacteristicCheck, ANameOfElevenCharactersIsTakenAndOneOfTwelveIsTooLong) {
    EXPECT_EQ(replyTo(goodFields(), "ABCDEFGHIJK"), "t1A");
    EXPECT_EQ(replyTo(goodFields(), "ABCDEFGHIJKL"), refusedWith(1));
    EXPECT_EQ(replyTo(goodFields(), ""), refusedWith(0));
}

TEST(CharacteristicCheck, AFullMemoryTakesNoMore) {
    const SimulatorFolder simulatorFolder;
    MemoryFile memory(simulatorFolder.memory());
    Messages messages(memory, 48213, 2);
    EXPECT_EQ(messages.answer(addMessage("A")), "t1A");
    EXPECT_EQ(messages.answer(addMessage("B")), "t1A");
    EXPECT_EQ(messages.answer(addMessage("C")), refusedWith(27));
    EXPECT_EQ(messages.answer("T1C" + wireName("C")), hex("74 00 02"));
}

} // namespace kelvane::simulators
