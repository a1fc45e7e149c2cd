#include "platform/state_folder.h"

#include "testkit/fixtures.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

class StateFolder : public ::testing::Test {
  protected:
    ~StateFolder() override {
        if (before.isNull())
            qunsetenv("XDG_STATE_HOME");
        else
            qputenv("XDG_STATE_HOME", before);
    }

    QByteArray before = qgetenv("XDG_STATE_HOME");
};

} // namespace

TEST_F(StateFolder, StandsWhereTheUserKeepsSuchFiles) {
    qputenv("XDG_STATE_HOME", "/var/state of me");
    EXPECT_EQ(stateFolder(u"kelvane-records"_s), u"/var/state of me/kelvane-records"_s);
}

TEST_F(StateFolder, StandsInTheHomeWhenThatIsNotNamedByAWholePath) {
    const auto home = QDir::homePath() + u"/.local/state/kelvane"_s;
    for (const auto* value : {"", "state", "./state"}) {
        qputenv("XDG_STATE_HOME", value);
        EXPECT_EQ(stateFolder(u"kelvane"_s), home) << value;
    }
    qunsetenv("XDG_STATE_HOME");
    EXPECT_EQ(stateFolder(u"kelvane"_s), home);
}

} // namespace kelvane::testing
