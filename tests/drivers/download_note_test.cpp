#include "drivers/download_note.h"

#include "testkit/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

TEST(DownloadNotes, StandBehindTheAssetThatTheyConcern) {
    ScriptedUserInterface ui;
    ui.expectBox(u"PT-1: words"_s, u"Download Procedures To Calibrator"_s, box::information);
    showDownloadNote(ui, u"PT-1"_s, u"words"_s);
    ui.expectBox(u": "_s, u"Download Procedures To Calibrator"_s, box::information);
    showDownloadNote(ui, {}, {});
    EXPECT_TRUE(ui.hasMetAll());
}

} // namespace kelvane::testing
