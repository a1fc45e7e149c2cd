#include "records/file_names.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

TEST(FileNames, HaveTheSubstituteForWhatIsRefusedOrUnseen) {
    EXPECT_EQ(replaceRefused(u"a/b\\c:d*e?f\"g<h>i|j"_s, u'-'), u"a-b-c-d-e-f-g-h-i-j"_s);
    EXPECT_EQ(replaceRefused(u"a\nb\u202ec\u2028d"_s, u'_'), u"a_b_c_d"_s);
    EXPECT_EQ(replaceRefused(u"größe µ 日本"_s, u'_'), u"größe µ 日本"_s);
}

TEST(FileNames, ThatAreSafeNameAFileInTheFolderItself) {
    EXPECT_EQ(safeFileName(u"Where Used ../A/B"_s), u"Where Used .._A_B"_s);
    EXPECT_EQ(safeFileName(u"../a"_s), u"_._a"_s);
    EXPECT_EQ(safeFileName(u" a. . "_s), u"a"_s);
    EXPECT_EQ(safeFileName(u" .. "_s), QString());
    EXPECT_EQ(safeFileName(QString(300, u'Ж')), QString(100, u'Ж'));
}

} // namespace kelvane::testing
