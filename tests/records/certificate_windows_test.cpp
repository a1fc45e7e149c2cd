#include "records/certificate_windows.h"

#include "records/certificate_settings_dialog.h"
#include "reports/report_preview.h"
#include "tests/records/certificate_fixture.h"

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class CertificatesOnScreen : public CertificateSession {
  protected:
    static QList<ReportPreview*> previews() {
        QList<ReportPreview*> found;
        for (auto* widget : QApplication::topLevelWidgets()) {
            if (auto* preview = qobject_cast<ReportPreview*>(widget))
                found << preview;
        }
        return found;
    }

    QWidget window;
    CertificateWindows windows{session, {folder.path()}, &window};
};

TEST_F(CertificatesOnScreen, AreShownInAPreviewUntilTheLogin) {
    windows.show(adjusted());
    ASSERT_EQ(previews().size(), 1);
    EXPECT_EQ(previews()[0]->windowTitle(), u"Calibration Certificate MT-501/502"_s);
    EXPECT_TRUE(previews()[0]->isVisible());
    windows.closePreviews();
    EXPECT_TRUE(previews().isEmpty());
}

TEST_F(CertificatesOnScreen, WithALayoutThatIsWrongSayWhy) {
    folder.write(u"certificate.rpt"_s, "{\n\"width\": \"wide\"}");
    ui.expectBox(u"certificate.rpt, line 2: \"width\" must be a number."_s, u"Certificates"_s, box::warning);
    windows.show(adjusted());
    EXPECT_TRUE(previews().isEmpty());
}

TEST_F(CertificatesOnScreen, WithoutAFolderAreNotWritten) {
    QTimer::singleShot(0, &window, [] {
        for (auto* widget : QApplication::topLevelWidgets()) {
            if (auto* dialog = qobject_cast<QFileDialog*>(widget))
                dialog->reject();
        }
    });
    EXPECT_EQ(windows.write({adjusted().instrument}), QString());
}

TEST_F(CertificatesOnScreen, AreSetUpInADialog) {
    windows.editSettings();
    EXPECT_TRUE(window.findChild<CertificateSettingsDialog*>()->isVisible());
}

} // namespace kelvane::testing
