#include "testkit/program_fixture.h"
#include "ui/form_custom_dialog.h"

#include <cstdlib>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class RealEnd : public ProgramTest {};

// The question runs in a loop of its own inside the command that asked it; the end must not wait for that.
TEST_F(RealEnd, WhileAQuestionIsOpenTheProcessEndsAtOnce) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            atEnd = [] { std::_Exit(EXIT_SUCCESS); };
            startLoggedIn(4);
            simulatedOperator.expectDialog(
                u"Download"_s, u"Select Calibrator To Use:"_s, [this](FormCustomDialog&) {
                    simulatedOperator.expectBox(u"Are you sure you want to exit?"_s, u"Kelvane"_s,
                                                box::question, BoxAnswer::yes);
                    program.window.close();
                });
            choose(u"mnuDownload"_s);
            std::_Exit(17);
        },
        ::testing::ExitedWithCode(EXIT_SUCCESS), "");
}

} // namespace kelvane::testing
