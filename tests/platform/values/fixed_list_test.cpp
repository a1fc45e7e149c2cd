#include "platform/values/fixed_list.h"
#include "testkit/fixtures.h"
#include "tests/platform/errors.h"

using namespace Qt::StringLiterals;

namespace kelvane {

using testing::errorOf;

TEST(FixedList, TakesEveryEntryUpToItsLast) {
    FixedList<QString, 500> shorter;
    FixedList<QString, 2000> longer;
    for (int i = 0; i <= 500; ++i)
        shorter[i] = QString::number(i);
    for (int i = 0; i <= 2000; ++i)
        longer[i] = QString::number(i);
    EXPECT_EQ(std::as_const(shorter)[500], u"500"_s);
    EXPECT_EQ(std::as_const(longer)[2000], u"2000"_s);
}

TEST(FixedList, BehindTheLastEntryIsError9AndTheListKeepsWhatItHad) {
    FixedList<QString, 500> list;
    for (int i = 0; i <= 500; ++i)
        list[i] = QString::number(i);
    for (const int index : {501, 502, 100000, -1, -2147483647}) {
        EXPECT_EQ(errorOf([&] { list[index] = u"x"_s; }), 9) << index;
        EXPECT_EQ(errorOf([&] { static_cast<void>(std::as_const(list)[index]); }), 9) << index;
    }
    for (int i = 0; i <= 500; ++i)
        ASSERT_EQ(std::as_const(list)[i], QString::number(i));
}

TEST(FixedList, TheErrorSaysWhatIsWrong) {
    FixedList<int, 3> list;
    try {
        list[4] = 1;
        FAIL() << "no error";
    } catch (const Error& error) {
        EXPECT_EQ(error.number, 9);
        EXPECT_EQ(error.description, u"Subscript out of range"_s);
        EXPECT_FALSE(error.connectionLost);
    }
}

TEST(FixedList, EntriesNeverWrittenAreEmpty) {
    FixedList<QString, 10> list;
    EXPECT_TRUE(std::as_const(list)[0].isEmpty());
    EXPECT_TRUE(std::as_const(list)[10].isEmpty());
    list[5] = u"five"_s;
    EXPECT_TRUE(std::as_const(list)[4].isEmpty());
    EXPECT_TRUE(list[6].isEmpty());
}

TEST(FixedList, EraseEmptiesEveryEntry) {
    FixedList<QString, 10> list;
    list[10] = u"ten"_s;
    list.erase();
    EXPECT_TRUE(std::as_const(list)[10].isEmpty());
    list[10] = u"again"_s;
    EXPECT_EQ(std::as_const(list)[10], u"again"_s);
}

TEST(FixedList, OfTextsEndsBeforeItsFirstEmptyEntry) {
    FixedList<QString, 4> list;
    EXPECT_EQ(entriesOf(list), QStringList());
    list[1] = u"behind an empty one"_s;
    EXPECT_EQ(entriesOf(list), QStringList());
    list[0] = u"a"_s;
    list[3] = u"behind another"_s;
    EXPECT_EQ(entriesOf(list), (QStringList{u"a"_s, u"behind an empty one"_s}));

    FixedList<QString, 1> full;
    full[0] = u"a"_s;
    full[1] = u"b"_s;
    EXPECT_EQ(entriesOf(full), (QStringList{u"a"_s, u"b"_s}));
}

TEST(FixedList, CopiesAreIndependent) {
    FixedList<int, 5> list;
    list[1] = 1;
    auto copy = list;
    copy[1] = 2;
    EXPECT_EQ(std::as_const(list)[1], 1);
}

TEST(AddedEntry, IsEmptyAndTheLastUntilTheListIsFull) {
    QStringList list{u"a"_s};
    EXPECT_EQ(addEntry(list, 2), QString());
    list.last() = u"b"_s;
    EXPECT_EQ(errorOf([&] { addEntry(list, 2) = u"c"_s; }), 9);
    EXPECT_EQ(list, (QStringList{u"a"_s, u"b"_s}));
    QList<float> numbers;
    addEntry(numbers, 1) = 0.5F;
    EXPECT_EQ(numbers, QList<float>{0.5F});
    EXPECT_EQ(errorOf([&] { addEntry(numbers, 0); }), 9);
}

TEST(NumberedErrors, CarryTheirDescriptions) {
    static const struct {
        ErrorNumber number;
        double value;
        QString description;
    } rows[] = {
        {ErrorNumber::invalidArgument, 5, u"Invalid procedure call or argument"_s},
        {ErrorNumber::overflow, 6, u"Overflow"_s},
        {ErrorNumber::subscriptOutOfRange, 9, u"Subscript out of range"_s},
        {ErrorNumber::divisionByZero, 11, u"Division by zero"_s},
        {ErrorNumber::typeMismatch, 13, u"Type mismatch"_s},
        {ErrorNumber::fileNotFound, 53, u"File not found"_s},
        {ErrorNumber::pathFileAccess, 75, u"Path/File access error"_s},
        {ErrorNumber::invalidUseOfNull, 94, u"Invalid use of Null"_s},
        {ErrorNumber::noCurrentRow, 3021,
         u"Either BOF or EOF is True, or the current record has been deleted."_s},
    };
    for (const auto& row : rows) {
        const auto error = makeError(row.number);
        EXPECT_EQ(error.number, row.value);
        EXPECT_EQ(error.description, row.description);
        EXPECT_TRUE(error.sqlState.isEmpty());
        EXPECT_FALSE(error.connectionLost);
    }
}

} // namespace kelvane
