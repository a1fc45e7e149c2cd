#include "resources/strings.h"
#include "tests/support/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane {

TEST(Strings, FirstIdIsTheProgramsTitle) {
    EXPECT_EQ(text(101), u"Kelvane"_s);
}

TEST(Strings, AnUnknownIdShowsItsNumber) {
    EXPECT_EQ(text(99999), u"#99999"_s);
}

} // namespace kelvane
