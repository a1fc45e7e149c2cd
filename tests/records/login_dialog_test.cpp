#include "records/login_dialog.h"

#include "resources/text_id.h"
#include "testkit/fixtures.h"
#include "testkit/screen_operator.h"
#include "tests/records/looks.h"

#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class RecordsLogin : public RecordedSession {
  protected:
    RecordsLogin() {
        session.SessionConnected = false;
        script.open = false;
    }
    ~RecordsLogin() override { delete dialog; }

    void open(LoginDialog::Purpose purpose = LoginDialog::Purpose::logIn) {
        dialog = new LoginDialog(
            session,
            [this](const QString& user, const QString& password) {
                tried << user + u'/' + password;
                EXPECT_FALSE(dialog->findChild<QPushButton*>(u"CommandConnect"_s)->isEnabled());
                dialog->reject();
                if (isRefused)
                    throw Error{-103, u"wrong"_s, u"28000"_s};
                session.SessionConnected = true;
            },
            purpose, nullptr);
        dialog->open();
        EXPECT_TRUE(QTest::qWaitForWindowActive(dialog));
    }
    QLineEdit& name() { return control<QLineEdit>(*dialog, u"TextUsername"_s); }
    QLineEdit& secret() { return control<QLineEdit>(*dialog, u"TextPassword"_s); }
    void type(const QString& user, const QString& password) {
        name().selectAll();
        QTest::keyClicks(&name(), user);
        QTest::keyClicks(&secret(), password);
        QTest::keyClick(&secret(), Qt::Key_Return);
    }
    void expectFailure() { ui.expectBox(text(TextId::databaseConnectionFailed), u"Kelvane"_s, box::stop); }

    bool isRefused = false;
    QStringList tried;
    QPointer<LoginDialog> dialog;
};

TEST_F(RecordsLogin, NeedsNameAndPassword) {
    open();
    EXPECT_TRUE(name().hasFocus());
    ui.expectBox(text(TextId::userNameAndPasswordRequired), u"Kelvane"_s, box::warning);
    QTest::keyClick(&name(), Qt::Key_Return);
    ui.expectBox(text(TextId::userNameAndPasswordRequired), u"Kelvane"_s, box::warning);
    type(u"jdoe"_s, {});
    EXPECT_TRUE(secret().hasFocus());
    EXPECT_EQ(tried, QStringList());
}

TEST_F(RecordsLogin, OfAnEditorIsTypedAnewAndNotRemembered) {
    settings.values[u"Records/Username"_s] = u"jdoe"_s;
    open(LoginDialog::Purpose::editing);
    dialog->setNote(u"Who may edit packages?"_s);
    EXPECT_TRUE(control<QLabel>(*dialog, u"LabelNote"_s).isVisible());
    EXPECT_EQ(name().text(), QString());
    QSignalSpy accepted(dialog, &QDialog::accepted);
    type(u"cnguyen"_s, u"secret"_s);
    EXPECT_EQ(accepted.size(), 1);
    EXPECT_EQ(settings.writes, QStringList());
}

TEST_F(RecordsLogin, ThatIsGoodIsRememberedWithoutItsPassword) {
    open();
    QSignalSpy accepted(dialog, &QDialog::accepted);
    type(u"jdoe"_s, u"secret"_s);
    EXPECT_EQ(tried, QStringList{u"jdoe/secret"_s});
    EXPECT_EQ(accepted.size(), 1) << "closing it meanwhile did nothing";
    EXPECT_EQ(settings.writes, QStringList{u"Records/Username=jdoe"_s});
    EXPECT_EQ(folder.read(u"errors.log"_s), QString());
}

TEST_F(RecordsLogin, ThatIsRefusedLeavesItsReasonInTheLogAndWaitsLongerEachTime) {
    isRefused = true;
    open();
    clock.tick = 1;
    for (int attempt = 0; attempt < 3; ++attempt) {
        expectFailure();
        type(u"jdoe"_s, u"guess"_s);
        EXPECT_TRUE(secret().hasFocus());
        EXPECT_EQ(secret().text(), QString());
        EXPECT_EQ(name().text(), u"jdoe"_s);
    }
    EXPECT_EQ(folder.read(u"errors.log"_s).count(u"The login failed: -103 wrong"_s), 3);
    EXPECT_GT(ui.events.count(u"events"_s), 3) << "it has waited";
    EXPECT_FALSE(folder.read(u"errors.log"_s).contains(u"guess"_s));
    isRefused = false;
    type(u"jdoe"_s, u"secret"_s);
    EXPECT_TRUE(session.SessionConnected);
}

TEST_F(RecordsLogin, BeginsWithTheLastNameHereOrAtTheWorkstation) {
    settings.values.insert(u"Defaults/Username"_s, u"station"_s);
    open();
    EXPECT_EQ(name().text(), u"station"_s);
    EXPECT_TRUE(secret().hasFocus());
    delete dialog;
    settings.values.insert(u"Records/Username"_s, u"here"_s);
    open();
    EXPECT_EQ(name().text(), u"here"_s);
}

TEST_F(RecordsLogin, OfASessionThatGoesOnKeepsItsUser) {
    open(LoginDialog::Purpose::connectAgain);
    EXPECT_TRUE(name().isReadOnly());
    EXPECT_EQ(name().text(), u"jdoe"_s);
    EXPECT_EQ(control<QPushButton>(*dialog, u"CommandCancel"_s).text(), text(TextId::cancel));
    QSignalSpy rejected(dialog, &QDialog::rejected);
    QTest::keyClick(&secret(), Qt::Key_Escape);
    EXPECT_EQ(rejected.size(), 1);
}

TEST_F(RecordsLogin, LooksWholeInEachSizeAndLanguage) {
    expectNothingCutOff(u"records-login"_s,
                        [&] {
                            return std::make_unique<LoginDialog>(
                                session, [](const QString&, const QString&) {}, LoginDialog::Purpose::logIn,
                                nullptr);
                        },
                        {100, 50});
}

} // namespace kelvane::testing
