#include "app/first_start.h"

#include "platform/database/odbc_connection.h"
#include "testkit/fixtures.h"
#include "testkit/screen_operator.h"
#include "testkit/set_variable.h"

#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QScopeGuard>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

constexpr int patience = 60000; // milliseconds

class First : public ::testing::Test {
  protected:
    void show(const QString& admin = QCoreApplication::applicationDirPath() + u"/kelvane-admin"_s) {
        window.emplace(admin, folder.path(), [this](const QString& path) {
            opened << path;
            return canOpen;
        });
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&*window));
    }
    QPushButton& command(const QString& name) { return control<QPushButton>(*window, name); }
    QString outcome() {
        const auto& label = control<QLabel>(*window, u"LabelOutcome"_s);
        return label.isVisible() ? label.text() : QString();
    }
    bool isMaking() { return control<QProgressBar>(*window, u"ProgressMaking"_s).isVisible(); }
    bool waitForEnd() {
        return QTest::qWaitFor([&] { return !isMaking(); }, patience);
    }
    /// Every text has the height that its lines need.
    void expectWholeTexts() {
        QCoreApplication::processEvents();
        for (const auto* label : window->findChildren<QLabel*>()) {
            if (label->isVisible()) {
                EXPECT_GE(label->height(), label->heightForWidth(label->width()))
                    << label->text().toStdString();
            }
        }
    }
    void takePicture(const QString& name) {
        if (qEnvironmentVariableIsSet("KELVANE_PICTURES"))
            window->grab().save(qEnvironmentVariable("KELVANE_PICTURES") + u'/' + name);
    }

    OwnFolder folder;
    QString database = folder.path() + u"/data/kelvane/database"_s;
    QString list = folder.path() + u"/odbc.ini"_s;
    QString guide = folder.path() + u"/administrators-guide.html"_s;
    /// What was opened on the desktop, and whether it can.
    QStringList opened;
    bool canOpen = true;
    SetVariable data{"XDG_DATA_HOME", folder.path() + u"/data"_s};
    SetVariable sources{"ODBCINI", list};
    std::optional<FirstStart> window;
};

} // namespace

TEST_F(First, OffersThreeWaysInPlainWords) {
    show();
    EXPECT_EQ(window->windowTitle(), u"No Database Yet"_s);
    const auto offer = control<QLabel>(*window, u"LabelOffer"_s).text();
    EXPECT_TRUE(offer.contains(database)) << offer.toStdString();
    for (const auto* name : {"CommandMake", "CommandGuide", "CommandContinue"}) {
        EXPECT_TRUE(command(QString::fromLatin1(name)).isEnabled()) << name;
        EXPECT_FALSE(command(QString::fromLatin1(name)).toolTip().isEmpty()) << name;
    }
    EXPECT_FALSE(isMaking());
    EXPECT_EQ(outcome(), QString());
    expectWholeTexts();
    takePicture(u"first_start.png"_s);
}

TEST_F(First, MakesADatabaseThatTheLoginCanUse) {
    folder.write(u"odbc.ini"_s, "; the user's own list\n");
    show();
    click(command(u"CommandMake"_s));
    EXPECT_TRUE(isMaking());
    EXPECT_FALSE(command(u"CommandContinue"_s).isEnabled());
    expectWholeTexts();
    takePicture(u"first_start_making.png"_s);
    window->reject();
    EXPECT_TRUE(window->isVisible()) << "it closes behind the making only";
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(outcome(),
              u"The database stands in %1. Log in as cnguyen or jdoe with the password kelvane. The "
              "technician's guide leads to the first record; it stands in %2."_s.arg(
                  database, folder.path() + u"/technicians-guide.html"_s));
    EXPECT_EQ(window->windowTitle(), u"Kelvane"_s) << "there is a database now";
    expectWholeTexts();
    takePicture(u"first_start_made.png"_s);

    EXPECT_TRUE(folder.read(u"odbc.ini"_s).startsWith(u"; the user's own list\n\n[Calibration Data]\n"_s));
    EXPECT_TRUE(odbcDataSources().contains(u"Calibration Data"_s));
    const auto connection = odbcConnections()();
    connection->open(u"DSN=Calibration Data"_s, u"jdoe"_s, u"kelvane"_s);
    EXPECT_TRUE(connection->isOpen());
    EXPECT_TRUE(QFile::exists(u"rslt_db.frm"_s));
    EXPECT_TRUE(QFile::exists(u"kvwrksht.rpt"_s));

    EXPECT_FALSE(command(u"CommandMake"_s).isVisible());
    EXPECT_TRUE(command(u"CommandContinue"_s).hasFocus());
    QTest::keyClick(&command(u"CommandContinue"_s), Qt::Key_Return);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(First, KeepsADatabaseThatIsThereAlready) {
    show();
    click(command(u"CommandMake"_s));
    ASSERT_TRUE(waitForEnd());
    ASSERT_TRUE(QFile::remove(list));
    const auto made = QFileInfo(database + u"/mt.db"_s).birthTime();
    show();
    click(command(u"CommandMake"_s));
    ASSERT_TRUE(waitForEnd());
    EXPECT_TRUE(outcome().startsWith(u"The database stands in"_s)) << outcome().toStdString();
    EXPECT_EQ(QFileInfo(database + u"/mt.db"_s).birthTime(), made);
    EXPECT_TRUE(folder.read(u"odbc.ini"_s).startsWith(u"[Calibration Data]\n"_s));
}

TEST_F(First, SaysWhyNoDatabaseWasMadeAndOffersItAgain) {
    folder.write(u"data"_s, "a file where the folder has to be");
    show();
    click(command(u"CommandMake"_s));
    ASSERT_TRUE(waitForEnd());
    EXPECT_TRUE(outcome().startsWith(u"The database could not be made: "_s)) << outcome().toStdString();
    EXPECT_TRUE(outcome().contains(folder.path() + u"/data"_s)) << outcome().toStdString();
    EXPECT_FALSE(QFile::exists(list));
    expectWholeTexts();
    takePicture(u"first_start_failed.png"_s);

    ASSERT_TRUE(QFile::remove(folder.path() + u"/data"_s));
    click(command(u"CommandMake"_s));
    ASSERT_TRUE(waitForEnd());
    EXPECT_TRUE(outcome().startsWith(u"The database stands in"_s)) << outcome().toStdString();
}

TEST_F(First, SaysWhichProgramIsMissing) {
    show(u"/nowhere/kelvane-admin"_s);
    click(command(u"CommandMake"_s));
    ASSERT_TRUE(waitForEnd());
    EXPECT_TRUE(outcome().startsWith(u"The database could not be made: /nowhere/kelvane-admin: "_s))
        << outcome().toStdString();
    EXPECT_TRUE(command(u"CommandContinue"_s).isEnabled());
}

TEST_F(First, NamesTheDatabaseThoughTheWorkingFolderCanNotBeWritten) {
    const auto back = qScopeGuard([before = QDir::currentPath()] { QDir::setCurrent(before); });
    ASSERT_TRUE(QDir::setCurrent(u"/proc"_s));
    show();
    click(command(u"CommandMake"_s));
    ASSERT_TRUE(waitForEnd());
    EXPECT_TRUE(outcome().startsWith(u"The database stands in"_s)) << outcome().toStdString();
    EXPECT_TRUE(outcome().contains(u"/proc/rslt_db.frm"_s)) << outcome().toStdString();
    EXPECT_TRUE(QFile::exists(list));
    expectWholeTexts();
}

TEST_F(First, SaysWhichListCanNotBeWritten) {
    ASSERT_TRUE(QDir().mkpath(list));
    show();
    click(command(u"CommandMake"_s));
    ASSERT_TRUE(waitForEnd());
    EXPECT_TRUE(outcome().contains(list)) << outcome().toStdString();
}

TEST_F(First, OpensTheGuideOrSaysWhereItStands) {
    const auto place = u"The guide can't be opened. It stands in %1."_s.arg(guide);
    show();
    click(command(u"CommandGuide"_s));
    EXPECT_EQ(opened, QStringList());
    EXPECT_EQ(outcome(), place) << "there is none";

    folder.write(u"administrators-guide.html"_s, "<h1>Guide</h1>\n");
    click(command(u"CommandGuide"_s));
    EXPECT_EQ(opened, QStringList{guide});
    EXPECT_EQ(outcome(), QString());
    EXPECT_TRUE(window->isVisible());

    canOpen = false;
    click(command(u"CommandGuide"_s));
    EXPECT_EQ(outcome(), place);
}

TEST_F(First, GoesOnWithoutByItsButtonAndByEscape) {
    show();
    click(command(u"CommandContinue"_s));
    EXPECT_FALSE(window->isVisible());
    show();
    QTest::keyClick(&*window, Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
    EXPECT_FALSE(QFile::exists(list));
    EXPECT_FALSE(QFile::exists(database));
}

} // namespace kelvane::testing
