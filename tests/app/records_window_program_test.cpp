#include "app/records_window_program.h"

#include "app/user_folder.h"
#include "data/journal/journal.h"
#include "testkit/fixtures.h"
#include "ui/program_icon.h"

#include <QDir>
#include <QLabel>
#include <QTabWidget>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class RecordsWindowProgramTest : public ::testing::Test {
  protected:
    RecordsWindowProgramTest() { qputenv("XDG_DATA_HOME", QFile::encodeName(folder.path() + u"/data"_s)); }
    ~RecordsWindowProgramTest() override {
        if (before.isNull())
            qunsetenv("XDG_DATA_HOME");
        else
            qputenv("XDG_DATA_HOME", before);
    }

    QByteArray before = qgetenv("XDG_DATA_HOME");
    OwnFolder folder;
    SetClock clock;
    MemorySettings settings;
    RecordingConnection::Script script;
    RecordsWindowProgram program{clock, settings,
                                 [this] { return std::make_unique<RecordingConnection>(script); }};
};

TEST_F(RecordsWindowProgramTest, HasConnectionsThatRefuseToWrite) {
    auto& connection = sharedConnection(program.session);
    EXPECT_THROW(connection.execute(u"delete from mt.inventory"_s), Error);
    EXPECT_THROW(connection.beginTransaction(), Error);
    EXPECT_EQ(script.statements, QStringList());
}

TEST_F(RecordsWindowProgramTest, NotesTheLossOfItsConnection) {
    program.session.SessionConnected = true;
    script.lost = true;
    EXPECT_THROW(sharedConnection(program.session).select(u"select 1 from mt.inventory"_s), Error);
    EXPECT_FALSE(program.session.SessionConnected);
}

TEST_F(RecordsWindowProgramTest, TakesTheTemplateOfTheFolderOrOfTheWorkstation) {
    program.readTemplate();
    EXPECT_TRUE(program.session.ResultTemplateLine.isEmpty());
    ASSERT_TRUE(QDir().mkpath(userFolder()));
    folder.write(u"data/kelvane/rslt_db.frm"_s, "TN$ of the workstation\n");
    program.readTemplate();
    EXPECT_EQ(program.session.ResultTemplateLine, u"TN$ OF THE WORKSTATION"_s);
    folder.write(u"rslt_db.frm"_s, "TN$ of here\n");
    program.readTemplate();
    EXPECT_EQ(program.session.ResultTemplateLine, u"TN$ OF HERE"_s);
    EXPECT_EQ(QDir::currentPath(), QDir(folder.path()).canonicalPath());
}

TEST_F(RecordsWindowProgramTest, LooksForTheJournalInTheFolderOfTheStartAndOfTheWorkstation) {
    program.session.SessionDataSource = u"Calibration Data"_s;
    program.session.SessionConnected = true;
    auto* tabs = program.window.findChild<QTabWidget*>(u"TabsRecords"_s);
    const auto* journal = program.window.findChild<QLabel*>(u"LabelJournal"_s);
    ASSERT_TRUE(tabs != nullptr && journal != nullptr);
    program.window.show();
    const auto name = Journal::fileName(u"Calibration Data"_s);
    const auto shown = [&] {
        tabs->setCurrentIndex(0);
        tabs->setCurrentIndex(2);
        return journal->text();
    };
    EXPECT_EQ(shown(), u"Journal: "_s + QDir(userFolder()).filePath(name));
    folder.write(name, "{}\n");
    EXPECT_EQ(shown(), u"Journal: "_s + QDir::current().filePath(name));
    program.window.close();
}

TEST(ProgramIcon, HasItsSizes) {
    EXPECT_EQ(programIcon().availableSizes().size(), 4);
}

} // namespace kelvane::testing
