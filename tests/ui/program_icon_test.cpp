#include "ui/program_icon.h"

#include "testkit/fixtures.h"

#include <QIcon>

namespace kelvane::testing {

TEST(ProgramIcons, HaveAPictureOfTheirOwnForEachUsualSize) {
    for (const int side : {16, 32, 64, 256}) {
        const QSize size(side, side);
        EXPECT_TRUE(programIcon().availableSizes().contains(size)) << side;
        EXPECT_EQ(programIcon().pixmap(size, 1.0).size(), size);
    }
}

} // namespace kelvane::testing
