#include "records/since_field.h"

#include "resources/text_id.h"
#include "testkit/fixtures.h"
#include "ui/date_field.h"

#include <memory>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using SinceField = RecordedSession;

TEST_F(SinceField, ShowsTheDayAYearAgoAsTheListsWriteIt) {
    clock.set(2026, 3, 18);
    const std::unique_ptr<DateField> field(sinceField(session, TextId::usesSinceTip));
    EXPECT_EQ(field->text(), u"2025-03-18"_s);
    EXPECT_EQ(field->objectName(), u"DateSince"_s);
    EXPECT_EQ(field->accessibleName(), text(TextId::recordsSince));
    EXPECT_EQ(field->toolTip(), text(TextId::usesSinceTip));
    EXPECT_EQ(field->date(), usualSince(session));
}

} // namespace kelvane::testing
