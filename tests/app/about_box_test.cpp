#include "app/about_box.h"

#include "data/journal/journal.h"
#include "platform/communication_log.h"
#include "platform/installed_files.h"
#include "platform/version.h"
#include "resources/strings.h"
#include "testkit/program_fixture.h"
#include "testkit/screen_controls.h"
#include "ui/status_line.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

class About : public ProgramTest {
  protected:
    /// Opens the box by its button, and closes it behind `look`.
    void lookAtBox(const std::function<void(QWidget&)>& look) {
        bool looked = false;
        simulatedOperator.expectWindow(u"About Kelvane"_s, [&](QWidget& box) {
            look(box);
            looked = true;
            click(control<QPushButton>(box, u"CommandClose"_s));
        });
        click(program.window.statusLine().aboutButton());
        EXPECT_TRUE(QTest::qWaitFor([&] { return looked; }));
    }
    QString valueOf(const QString& name) {
        for (const auto& line : aboutLines(session)) {
            if (line.name == name)
                return line.value;
        }
        ADD_FAILURE() << name.toStdString();
        return {};
    }
};

} // namespace

TEST_F(About, TheStatusLineHasItsButtonAtTheRightEndWithTheVersion) {
    start();
    auto& button = program.window.statusLine().aboutButton();
    EXPECT_EQ(button.text(), u"Kelvane "_s + programVersion().section(u'.', 0, 1));
    EXPECT_EQ(button.objectName(), u"ButtonAbout"_s);
    EXPECT_TRUE(button.isFlat());
    for (const auto* label : program.window.statusLine().findChildren<QLabel*>()) {
        if (label->isVisible()) {
            EXPECT_LE(label->geometry().right(), button.geometry().left())
                << label->objectName().toStdString();
        }
    }
}

TEST_F(About, TellsTheVersionAndWhereTheFilesStand) {
    start();
    lookAtBox([&](QWidget& box) {
        EXPECT_EQ(control<QLabel>(box, u"LabelVersion"_s).text(), u"Kelvane "_s + programVersion());
        const auto& purpose = control<QLabel>(box, u"LabelPurpose"_s);
        EXPECT_TRUE(purpose.text().contains(InstalledFiles().documents())) << purpose.text().toStdString();
        EXPECT_GE(purpose.height(), purpose.heightForWidth(purpose.width())) << "the text is whole";
        for (const auto& line : aboutLines(session)) {
            auto& field = control<QLineEdit>(box, line.name);
            EXPECT_EQ(field.text(), line.value);
            EXPECT_TRUE(field.isReadOnly());
            EXPECT_EQ(field.accessibleName(), text(line.caption));
            EXPECT_EQ(field.focusPolicy() & Qt::TabFocus, Qt::TabFocus);
        }
        if (qEnvironmentVariableIsSet("KELVANE_PICTURES"))
            box.grab().save(qEnvironmentVariable("KELVANE_PICTURES") + u"/about.png"_s);
    });
    EXPECT_EQ(valueOf(u"TextWorkingFolder"_s), QDir::currentPath());
    EXPECT_EQ(valueOf(u"TextErrorLog"_s), QDir::currentPath() + u"/errors.log"_s);
    EXPECT_EQ(valueOf(u"TextSettings"_s), IniSettingsStore::defaultPath());
    EXPECT_EQ(valueOf(u"TextCommunicationLogs"_s), communicationLogFolder());
}

TEST_F(About, NamesTheTemplateThatIsInUse) {
    start();
    EXPECT_EQ(valueOf(u"TextTemplate"_s), QDir::currentPath() + u"/rslt_db.frm"_s);
    session.ResultTemplateLine.clear();
    EXPECT_EQ(valueOf(u"TextTemplate"_s), u"not found"_s);
}

TEST_F(About, NamesTheTemplateOfTheSiteWhereTheFolderHasNone) {
    start();
    ASSERT_TRUE(QFile::rename(u"rslt_db.frm"_s, u"site.frm"_s));
    folder.write(u"metcal.ini"_s,
                 "RSLT_TEMPLATE = " + QDir::current().filePath(u"site.frm"_s).toUtf8() + "\n");
    session.WinDir = QDir::currentPath();
    EXPECT_EQ(valueOf(u"TextTemplate"_s), QDir::currentPath() + u"/site.frm"_s);
    session.WinDir = u"/nowhere"_s;
    EXPECT_EQ(valueOf(u"TextTemplate"_s), u"not found"_s);
}

TEST_F(About, NamesTheJournalFromItsFirstResultOn) {
    startLoggedIn(4);
    EXPECT_EQ(valueOf(u"TextJournal"_s), u"none yet"_s);
    Journal(session).add({});
    EXPECT_EQ(valueOf(u"TextJournal"_s), QDir::current().absoluteFilePath(Journal(session).path()));
}

TEST_F(About, CopiesAllOfIt) {
    start();
    lookAtBox([&](QWidget& box) { click(control<QPushButton>(box, u"CommandCopy"_s)); });
    const auto copied = QApplication::clipboard()->text();
    EXPECT_TRUE(copied.startsWith(u"Kelvane "_s + programVersion() + u'\n')) << copied.toStdString();
    for (const auto& line : aboutLines(session))
        EXPECT_TRUE(copied.contains(u'\n' + text(line.caption) + u": "_s + line.value + u'\n'))
            << copied.toStdString();
}

TEST_F(About, ClosesWithEscapeAndReturn) {
    start();
    for (const auto key : {Qt::Key_Escape, Qt::Key_Return}) {
        QPointer<QWidget> shown;
        simulatedOperator.expectWindow(u"About Kelvane"_s, [&](QWidget& box) {
            shown = &box;
            QTest::keyClick(&box, key);
        });
        click(program.window.statusLine().aboutButton());
        EXPECT_TRUE(QTest::qWaitFor([&] { return simulatedOperator.hasMetAll() && !shown; }));
    }
}

} // namespace kelvane::testing
