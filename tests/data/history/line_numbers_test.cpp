#include "data/history/line_numbers.h"

#include "testkit/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

enum Place { TN, FN, FVA, FRE, TT, DE, ET, TU, CO, FLL, FUL, TR };

const ResultTemplate whole(u"TN$ FN$ FVA$ FRE$ TT$ DE$ ET$ TU$ CO$ FLL$ FUL$ TR$"_s);
const LineFields good{u"7"_s, u"12.00mA"_s, u"50.00psi"_s, u"12.01mA"_s, u"0.10mA"_s, u"0.01mA"_s, u"10"_s,
                      {},     {},           u"11.90"_s,    u"12.10"_s,   u"PASS"_s};

std::optional<LineNumbers> numbersWith(std::initializer_list<std::pair<Place, QString>> changes,
                                       const ResultTemplate& layout = whole) {
    auto fields = good;
    for (const auto& [place, value] : changes)
        fields[place] = value;
    return numbersOfLine(layout, fields);
}

} // namespace

TEST(LineNumbers, AreThoseOfTheTexts) {
    const auto numbers = numbersWith({});
    ASSERT_TRUE(numbers);
    const LineNumbers expected{7, 12, 50, 12.01, 0.1, 0.01, 10, {}, {}, 11.9, 12.1, {}};
    EXPECT_EQ(*numbers, expected);
}

TEST(LineNumbers, MayDifferByTheirRounding) {
    EXPECT_TRUE(numbersWith({{DE, u"0.02mA"_s}, {ET, u"20"_s}}));
    EXPECT_TRUE(numbersWith({{DE, u"0.00mA"_s}, {ET, u"0"_s}}));
    EXPECT_FALSE(numbersWith({{DE, u"0.03mA"_s}, {ET, u"30"_s}}));
    EXPECT_FALSE(numbersWith({{DE, u"-0.01mA"_s}}));
    EXPECT_TRUE(numbersWith({{TT, u"0.11mA"_s}}));
    EXPECT_FALSE(numbersWith({{TT, u"0.12mA"_s}}));
}

TEST(LineNumbers, ThatContradictEachOtherAreRefused) {
    const QList<std::pair<Place, QString>> changes{
        {TN, u""_s},
        {TN, u"-1"_s},
        {TN, u"7a"_s},
        {FN, u"12.00V"_s},
        {FN, u"12.0mA"_s},
        {FN, u"12.00.1mA"_s},
        {FN, u"12.00/min"_s},
        {FRE, u"12.21mA"_s},
        {FRE, u"mA"_s},
        {TT, u"1.00mA"_s},
        {DE, u"1e-2mA"_s},
        {ET, u"11"_s},
        {ET, u"-10"_s},
        {ET, u">500"_s},
        {ET, u"ten"_s},
        {ET, u""_s},
        {FLL, u"11.90mA"_s},
        {FLL, u""_s},
        {FUL, u"12.00"_s},
        {TR, u"FAIL"_s},
        {TR, u"OK"_s},
        {TR, u""_s},
        {FVA, u"50.0psi"_s},
        {FVA, u"50,00psi"_s},
        {FVA, u"50.00 psi  0.1"_s},
    };
    for (const auto& change : changes) {
        EXPECT_FALSE(numbersWith({change})) << change.first << ' ' << change.second.toStdString();
    }
}

TEST(LineNumbers, OfAFailedPointLieBeyondALimit) {
    EXPECT_TRUE(numbersWith({{FRE, u"12.31mA"_s}, {DE, u"0.31mA"_s}, {ET, u"310"_s}, {TR, u"FAIL"_s}}));
    EXPECT_TRUE(numbersWith({{FRE, u"11.79mA"_s}, {DE, u"-0.21mA"_s}, {ET, u"210"_s}, {TR, u"FAIL"_s}}));
    EXPECT_TRUE(numbersWith({{FRE, u"12.10mA"_s}, {DE, u"0.10mA"_s}, {ET, u"100"_s}, {TR, u"FAIL"_s}}))
        << "it was beyond the limit before it was rounded";
    EXPECT_FALSE(numbersWith({{FRE, u"12.31mA"_s}, {DE, u"0.31mA"_s}, {ET, u"310"_s}}));
}

TEST(LineNumbers, OutOfScaleHaveNoPercentage) {
    const auto numbers =
        numbersWith({{FRE, u"12.60mA"_s}, {DE, u"0.60mA"_s}, {ET, u">500"_s}, {TR, u"FAIL"_s}});
    ASSERT_TRUE(numbers);
    EXPECT_FALSE((*numbers)[ET]);
    EXPECT_EQ((*numbers)[DE], 0.6);
}

TEST(LineNumbers, WithATolerancesOfNothingHaveNoPercentage) {
    const auto numbers = numbersWith({{FLL, u"12.00"_s},
                                      {FUL, u"12.00"_s},
                                      {TT, u"0.00mA"_s},
                                      {ET, u"400"_s},
                                      {FRE, u"12.00mA"_s},
                                      {DE, u"0.00mA"_s}});
    ASSERT_TRUE(numbers);
    EXPECT_FALSE((*numbers)[ET]);
    EXPECT_FALSE((*numbers)[TN]) << "one may be the other";
}

TEST(LineNumbers, OfACoarseResolutionAreRoundedToIt) {
    EXPECT_TRUE(numbersWith({{FN, u"3000Hz"_s},
                             {FVA, u"100mV"_s},
                             {FRE, u"3200Hz"_s},
                             {TT, u"500Hz"_s},
                             {DE, u"100Hz"_s},
                             {ET, u"20"_s},
                             {FLL, u"2500"_s},
                             {FUL, u"3500"_s}}))
        << "each of them may be off by 50";
    EXPECT_FALSE(numbersWith({{FN, u"3000Hz"_s},
                              {FVA, u"100mV"_s},
                              {FRE, u"3201Hz"_s},
                              {TT, u"500Hz"_s},
                              {DE, u"100Hz"_s},
                              {ET, u"20"_s},
                              {FLL, u"2500"_s},
                              {FUL, u"3500"_s}}));
}

TEST(LineNumbers, WithTheLimitsTheWrongWayRoundAreRefused) {
    EXPECT_FALSE(numbersWith({{FLL, u"12.01"_s},
                              {FUL, u"11.99"_s},
                              {TT, u"0.01mA"_s},
                              {FRE, u"12.00mA"_s},
                              {DE, u"0.00mA"_s},
                              {ET, u"0"_s},
                              {TR, u"FAIL"_s}}));
}

TEST(LineNumbers, OfAResolutionWithoutAFormatAreNone) {
    const auto numbers = numbersWith({{FN, u"mA"_s},
                                      {FVA, u"psi"_s},
                                      {FRE, u"mA"_s},
                                      {TT, u"mA"_s},
                                      {DE, u"mA"_s},
                                      {ET, u"10"_s},
                                      {FLL, u""_s},
                                      {FUL, u""_s}});
    ASSERT_TRUE(numbers);
    EXPECT_EQ(*numbers, LineNumbers());
}

TEST(LineNumbers, AreComparedAsFarAsTheTemplateHasThem) {
    const ResultTemplate few(u"TN$ FN$ FRE$ TR$"_s);
    const auto numbers =
        numbersOfLine(few, {u"1"_s, u"12.00mA"_s, {}, u"99.00mA"_s, {}, {}, {}, {}, {}, {}, {}, u"FAIL"_s});
    ASSERT_TRUE(numbers);
    EXPECT_EQ((*numbers)[FRE], 99);
    const ResultTemplate percentAlone(u"TN$ ET$"_s);
    EXPECT_EQ(numbersOfLine(percentAlone, {u"1"_s, {}, {}, {}, {}, {}, u"12"_s}), LineNumbers())
        << "nothing confirms the percentage";
}

} // namespace kelvane::testing
