#include "platform/version.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace kelvane {

TEST(ProgramVersion, IsThatOfTheProject) {
    EXPECT_EQ(programVersion(), QString::fromLatin1(KELVANE_PROJECT_VERSION));
    EXPECT_EQ(programVersion().count(u'.'), 2);
}

} // namespace kelvane
