#include "reports/open_previews.h"

#include "reports/report_preview.h"
#include "tests/reports/report_tools.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

class PreviewsThatAreOpen : public ::testing::Test {
  protected:
    QPointer<ReportPreview> opened() {
        const auto layout = layoutOf(R"({"pageHeader": {"height": 8}})");
        auto preview =
            std::make_unique<ReportPreview>(ui, Report(layout, reportOf({QJsonObject()})), u"Sheet"_s);
        preview->open();
        const QPointer<ReportPreview> window = preview.get();
        previews.add(std::move(preview));
        return window;
    }

    OwnFolder folder;
    ScriptedUserInterface ui;
    OpenPreviews previews;
};

} // namespace

TEST_F(PreviewsThatAreOpen, AreClosedTogether) {
    const auto first = opened();
    const auto second = opened();
    EXPECT_TRUE(first->isVisible() && second->isVisible());
    previews.close();
    EXPECT_TRUE(first.isNull() && second.isNull());
}

TEST_F(PreviewsThatAreOpen, MayHaveBeenClosedByTheUserBefore) {
    const auto window = opened();
    window->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ASSERT_TRUE(window.isNull());
    previews.close();
}

} // namespace kelvane::testing
