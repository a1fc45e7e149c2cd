#include "records/record_pane.h"

#include "resources/text_id.h"
#include "testkit/fixtures.h"
#include "testkit/screen_operator.h"

#include <QHeaderView>
#include <QLabel>
#include <QTableWidget>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class RecordOnThePane : public RecordedSession {
  protected:
    RecordPane pane{session, u"Left"_s};
};

TEST_F(RecordOnThePane, HasRoomForALineAsItIsStored) {
    pane.resize(300, 200);
    pane.show();
    CalibrationRecord record;
    record.lines = {QString(120, u'W'), QString()};
    pane.showRecord(record);
    auto& lines = control<QTableWidget>(pane, u"TableLinesLeft"_s);
    EXPECT_EQ(lines.rowCount(), 1) << "nothing stands in the second one";
    const auto* item = lines.item(0, 0);
    EXPECT_GE(lines.horizontalHeader()->length(), QFontMetrics(item->font()).horizontalAdvance(item->text()));
    pane.showNote(u"none"_s);
    EXPECT_FALSE(lines.isVisible());
    EXPECT_EQ(control<QLabel>(pane, u"LabelNoteLeft"_s).text(), u"none"_s);
}

} // namespace kelvane::testing
