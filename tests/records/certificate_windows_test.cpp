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
    /// The instrument stands in the inventory, with that description now.
    void hold(const QString& description) {
        script.answers[u"select inv.mtag,inv.i4201 from MT.inventory inv where inv.i4201 = 'PT-101' order by "
                       "inv.i4201 asc"_s] = {{u"1401"_s, u"PT-101"_s}};
        Row row(12);
        row[0] = u"1401"_s;
        row[1] = u"PT-101"_s;
        row[2] = description;
        script.answers
            [u"select inv.mtag,inv.i4201,inv.i4204,inv.i4202,inv.i4203,inv.i4206,inv.i4240,cal.c2308,"
             "cal.c2323,cal.c2301,cal.c2303,(select max(l2801) from MT.location where mtag = inv.mtag and "
             "l2815 = '1') from MT.inventory inv left outer join MT.calibration cal on cal.mtag = inv.mtag "
             "and cal.c2339 = '1' where inv.mtag in ('1401') and not exists (select 1 from MT.calibration "
             "newer where newer.mtag = inv.mtag and newer.c2339 = '1' and newer.ctag > cal.ctag) and "
             "inv.i4201 = 'PT-101'"_s] = {row};
    }

    QWidget window;
    CertificateWindows windows{session, {folder.path()}, &window};
};

TEST_F(CertificatesOnScreen, AreShownInAPreviewUntilTheLogin) {
    hold(u"REPLACED TRANSMITTER"_s);
    windows.show(adjusted());
    ASSERT_EQ(previews().size(), 1);
    EXPECT_EQ(previews()[0]->windowTitle(), u"Calibration Certificate MT-501/502"_s);
    EXPECT_TRUE(previews()[0]->isVisible());
    windows.closePreviews();
    EXPECT_TRUE(previews().isEmpty());
}

TEST_F(CertificatesOnScreen, OfAnInstrumentThatHasLeftTheInventoryAreNotShown) {
    ui.expectBox(u"PT-101: not in the inventory any more"_s, u"Certificates"_s, box::warning);
    windows.show(adjusted());
    EXPECT_TRUE(previews().isEmpty());
}

TEST_F(CertificatesOnScreen, WhoseCustomerCanNotBeReadAreNotShownAndToldOnce) {
    hold(u"TRANSMITTER"_s);
    script.failures = {
        {u"select max(k4601) from MT.customers where mtag = '1401'"_s, {7, u"no such table"_s}}};
    ui.expectReport(7, u"History,customer"_s);
    windows.show(adjusted());
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
    EXPECT_EQ(windows.write({u"PT-101"_s}), QString());
}

TEST_F(CertificatesOnScreen, AreSetUpInADialog) {
    windows.editSettings();
    EXPECT_TRUE(window.findChild<CertificateSettingsDialog*>()->isVisible());
}

} // namespace kelvane::testing
