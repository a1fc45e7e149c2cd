#include "drivers/fluke702/link.h"
#include "drivers/fluke702/setup_state.h"
#include "tests/drivers/fluke702/download_fixture.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

class FlukeSetupState : public FlukeDownload {
  protected:
    bool save(Module702Interface::Download702Item& item, bool manual) {
        link.calls.clear();
        return Module702Interface::saveSetupState(link, rule, item, {.manual = manual});
    }
    StatusRule rule{session, Module702Interface::DPCStatusText, u"I-1"_s};
};

} // namespace

TEST_F(FlukeSetupState, HasARangeByTheClassOfTheOutputAndByWhoReadsIt) {
    const QString none;
    const auto measured = u"0, 11"_s;
    const auto byHand = u"0, 300"_s;
    const auto module = u"1, 0"_s;
    const struct {
        qint16 outputClass;
        QString read;
        QString manual;
    } rows[] = {
        {0, measured, byHand}, {1, none, byHand}, {2, module, module},   {3, measured, byHand},
        {4, measured, byHand}, {5, none, byHand}, {9, measured, byHand}, {10, measured, byHand},
    };
    for (const auto& row : rows) {
        Module702Interface::Download702Item item;
        item.outputClass = row.outputClass;
        item.outputHigh = 10;
        EXPECT_TRUE(save(item, false));
        EXPECT_EQ(argumentsOf(u"STAsetInputRange"_s).join(u'|'), row.read) << row.outputClass;
        EXPECT_TRUE(save(item, true));
        EXPECT_EQ(argumentsOf(u"STAsetInputRange"_s).join(u'|'), row.manual) << row.outputClass;
    }
}

TEST_F(FlukeSetupState, KeepsTheIdThatTheLibraryGives) {
    Module702Interface::Download702Item item;
    EXPECT_TRUE(save(item, false));
    EXPECT_EQ(item.stateId, 1);
    EXPECT_TRUE(save(item, false));
    EXPECT_EQ(item.stateId, 2);
}

TEST_F(FlukeSetupState, IsNotSavedAfterAnError) {
    Module702Interface::Download702Item item;
    link.answer(u"STAsetInputScale"_s, 2013);
    EXPECT_FALSE(save(item, false));
    EXPECT_EQ(link.calls.last(), u"STAsetInputScale(0, 0)"_s);
    EXPECT_EQ(rule.failure(), u"Illegal or Invalid Argument (DPCERR_BAD_ARG)"_s);
    EXPECT_EQ(item.stateId, 0);
}

TEST_F(FlukeSetupState, TakesTheColdJunctionAsTheNumberOfItsText) {
    Module702Interface::Download702Item item;
    for (const auto& [text, number] :
         {std::pair{u"0.0"_s, u"0"_s}, {u"22.1"_s, u"22.1"_s}, {u"-0.5"_s, u"-0.5"_s}}) {
        item.cjMode = u"user"_s;
        item.cjTemp = text;
        EXPECT_TRUE(save(item, false));
        EXPECT_EQ(argumentsOf(u"STAsetTref"_s), QStringList{u"\"user\", "_s + number});
    }
}

} // namespace kelvane::testing
