#pragma once

#include "testkit/program_fixture.h"

#include <QCoreApplication>

#include <functional>
#include <span>

namespace kelvane::testing {

class Screens;

/// A screen, and how it comes up. `look` is called while it is there.
struct Screen {
    const char* name;
    void (*show)(Screens& test, const std::function<void()>& look);
};

inline void PrintTo(const Screen& screen, std::ostream* out) {
    *out << screen.name;
}

class Screens : public ProgramTest, public ::testing::WithParamInterface<Screen> {
  public:
    Screens() : ProgramTest(true) {}

    // What the table of screens needs of the fixture.
    using ProgramTest::cancel;
    using ProgramTest::child;
    using ProgramTest::choose;
    using ProgramTest::program;
    using ProgramTest::script;
    using ProgramTest::simulatedOperator;
    using ProgramTest::start;
    using ProgramTest::startLoggedIn;

  protected:
    /// Opens the screen, checks it and closes it.
    void lookAt(const std::function<void(ChildWindow&)>& look) {
        const auto name = QString::fromLatin1(GetParam().name).section(QLatin1Char('_'), 0, 0);
        bool looked = false;
        GetParam().show(*this, [&] {
            QCoreApplication::processEvents();
            look(child(name));
            looked = true;
        });
        EXPECT_TRUE(looked);
    }
    void expectRoomAndPicture(ChildWindow& screen, const QString& suffix);
};

/// All screens. A new one is added to the table in the source, and the tests of all screens cover it.
std::span<const Screen> allScreens();

} // namespace kelvane::testing
