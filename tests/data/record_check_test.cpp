#include "data/record_check.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

StoredRecord withLines(const QMap<int, QString>& lines) {
    StoredRecord record;
    record.ctag = u"7"_s;
    record.lines = lines;
    return record;
}

const RecordContents contents{.asset = u"PT-1"_s,
                              .mtag = u"17"_s,
                              .date = u"2026-03-18"_s,
                              .time = u"10:20:30"_s,
                              .lines = {u"first"_s, u"second   "_s},
                              .standards = {}};

} // namespace

TEST(StoredRecord, MayBecomeTheContentsWhenItsLinesAreAmongTheirs) {
    using ModuleGlobals::mayBecome;
    EXPECT_TRUE(mayBecome(withLines({}), contents));
    EXPECT_TRUE(mayBecome(withLines({{0, u"first"_s}}), contents));
    EXPECT_TRUE(mayBecome(withLines({{1, u"second"_s}}), contents)) << "blanks at the end do not count";
    EXPECT_TRUE(mayBecome(withLines({{0, u"first   "_s}, {1, u"second"_s}}), contents));
}

TEST(StoredRecord, IsAnotherOneWhenALineDiffersOrIsTooMany) {
    using ModuleGlobals::mayBecome;
    EXPECT_FALSE(mayBecome(withLines({{0, u"other"_s}}), contents));
    EXPECT_FALSE(mayBecome(withLines({{0, u"second"_s}}), contents));
    EXPECT_FALSE(mayBecome(withLines({{2, u"third"_s}}), contents));
    EXPECT_FALSE(mayBecome(withLines({{-1, u"first"_s}}), contents));
    EXPECT_FALSE(mayBecome(withLines({{0, u" first"_s}}), contents)) << "blanks in front do";
}

} // namespace kelvane::testing
