#include "tests/drivers/fluke74x/acceptance_fixture.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString accepted;

} // namespace

TEST_F(Fluke74xAcceptance, IgnoresBothFlags) {
    auto record = transmitter();
    record.input_indicated = record.output_indicated = true;
    EXPECT_EQ(answer(record), accepted);
    record.output_high = 1000;
    EXPECT_EQ(answer(record), text(TextId::cannotMeasureCurrentAbove));
}

TEST_F(Fluke74xAcceptance, ShowsTheBoxesOfBothSidesOutputFirst) {
    expectReadByHand();
    EXPECT_EQ(answer(instrument(u"psi"_s, 0, 100, u"%"_s, 0, 100)), accepted);
    expectReadByHand();
    expectSourcedByHand();
    EXPECT_EQ(answer(instrument(u"%"_s, 0, 100, u"%"_s, 0, 100)), accepted);
    expectReadByHand();
    EXPECT_EQ(answer(instrument(u"V"_s, 0, 100, u"%"_s, 0, 100)), text(TextId::cannotSourceVoltageAbove));
}

TEST_F(Fluke74xAcceptance, ShowsNoBoxOfAnInputBehindARefusedOutput) {
    EXPECT_EQ(answer(instrument(u"%"_s, 0, 100, u"mA"_s, 0, 1000)), text(TextId::cannotMeasureCurrentAbove));
}

TEST_F(Fluke74xAcceptance, TakesNoUnitOfAnInputInAnotherCase) {
    for (const auto& unit : {u"v"_s, u"MV"_s, u"ma"_s, u"hz"_s, u"ohms"_s, u"Psi"_s, u"f"_s}) {
        expectSourcedByHand();
        EXPECT_EQ(answer(instrument(unit, -1E38F, 1E38F, u"V"_s, 0, 10)), accepted) << unit.toStdString();
    }
}

} // namespace kelvane::testing
