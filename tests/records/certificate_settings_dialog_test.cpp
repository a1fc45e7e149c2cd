#include "records/certificate_settings_dialog.h"

#include "testkit/fixtures.h"
#include "testkit/screen_operator.h"
#include "tests/records/looks.h"
#include "ui/text_box.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class CertificateSettingsEntered : public RecordedSession {
  protected:
    ~CertificateSettingsEntered() override { delete dialog; }

    void open() {
        dialog = new CertificateSettingsDialog(session, nullptr);
        dialog->open();
        EXPECT_TRUE(QTest::qWaitForWindowActive(dialog));
    }
    void type(const QString& field, const QString& entry) {
        auto& edit = control<QLineEdit>(*dialog, field);
        edit.setFocus();
        edit.selectAll();
        QTest::keyClicks(&edit, entry);
    }
    QDoubleSpinBox& guardBand() { return control<QDoubleSpinBox>(*dialog, u"SpinGuardBand"_s); }

    QPointer<CertificateSettingsDialog> dialog;
};

TEST_F(CertificateSettingsEntered, AreStoredWithOkAndShownAgain) {
    open();
    type(u"TextLaboratory"_s, u"Nordhafen"_s);
    control<TextBox>(*dialog, u"TextAddress"_s).setText(u"1 Quay\r\n4000 Westport"_s);
    control<QComboBox>(*dialog, u"ComboRule"_s).setCurrentIndex(2);
    EXPECT_TRUE(guardBand().isEnabled());
    guardBand().setFocus();
    guardBand().selectAll();
    QTest::keyClicks(&guardBand(), u"20"_s);
    control<QComboBox>(*dialog, u"ComboPaper"_s).setCurrentIndex(1);
    type(u"TextFileName"_s, u"{number}"_s);
    click(control<QPushButton>(*dialog, u"CommandOk"_s));
    const auto stored = certificateSettings(session);
    EXPECT_EQ(stored.laboratory, u"Nordhafen"_s);
    EXPECT_EQ(stored.address, u"1 Quay\r\n4000 Westport"_s);
    EXPECT_EQ(stored.rule, DecisionRule::guardBand);
    EXPECT_EQ(stored.guardBand, 20);
    EXPECT_EQ(stored.paper, u"Letter"_s);
    EXPECT_EQ(stored.fileName, u"{number}"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return dialog.isNull(); }));
    open();
    click(control<QPushButton>(*dialog, u"CommandOk"_s));
    EXPECT_EQ(certificateSettings(session), stored);
}

TEST_F(CertificateSettingsEntered, AreForgottenWithCancel) {
    open();
    type(u"TextLaboratory"_s, u"Nordhafen"_s);
    click(control<QPushButton>(*dialog, u"CommandCancel"_s));
    EXPECT_EQ(settings.writes, QStringList());
}

TEST_F(CertificateSettingsEntered, TakeNoGuardBandBeyondTheTolerance) {
    open();
    EXPECT_FALSE(guardBand().isEnabled());
    control<QComboBox>(*dialog, u"ComboRule"_s).setCurrentIndex(2);
    guardBand().setFocus();
    for (const auto& entry : {u"150"_s, u"-5"_s, u"x"_s}) {
        guardBand().selectAll();
        QTest::keyClicks(&guardBand(), entry);
        guardBand().interpretText();
        EXPECT_GE(guardBand().value(), 0);
        EXPECT_LE(guardBand().value(), 100);
    }
}

TEST_F(CertificateSettingsEntered, FitASmallScreenInGermanAndLargeLetters) {
    const ShownIn german(u"de"_s);
    const LettersOfSize large(15);
    open();
    EXPECT_LE(dialog->minimumSizeHint().width(), smallScreen.width());
    EXPECT_LE(dialog->minimumSizeHint().height(), smallScreen.height());
    EXPECT_LE(dialog->height(), dialog->screen()->availableSize().height());
    dialog->resize(dialog->width(), 400);
    const auto& last = control<QLineEdit>(*dialog, u"TextFileName"_s);
    EXPECT_TRUE(last.visibleRegion().isEmpty());
    while (QApplication::focusWidget() != &last)
        QTest::keyClick(dialog->windowHandle(), Qt::Key_Tab);
    EXPECT_EQ(last.visibleRegion().boundingRect(), last.rect());
    EXPECT_TRUE(control<QPushButton>(*dialog, u"CommandOk"_s).visibleRegion().boundingRect().isValid());
}

TEST_F(CertificateSettingsEntered, AreSeenWhole) {
    expectNothingCutOff(u"certificate_settings"_s,
                        [this]() -> std::unique_ptr<QWidget> {
                            auto made = std::make_unique<CertificateSettingsDialog>(session, nullptr);
                            made->setAttribute(Qt::WA_DeleteOnClose, false);
                            return made;
                        },
                        {600, 560});
}

} // namespace kelvane::testing
