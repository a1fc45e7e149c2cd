#include "app/records_window_program.h"

#include "app/user_folder.h"
#include "data/journal/journal.h"
#include "testkit/fixtures.h"
#include "testkit/set_variable.h"
#include "ui/program_icon.h"

#include <QDir>
#include <QLabel>
#include <QTabWidget>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class RecordsWindowProgramTest : public ::testing::Test {
  protected:
    OwnFolder folder;
    // The program asks for it when it is made.
    SetVariable data{"XDG_DATA_HOME", folder.path() + u"/data"_s};
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

TEST_F(RecordsWindowProgramTest, KeepsSizeAndPlaceOfItsWindow) {
    program.start();
    program.storeWindowPlace();
    EXPECT_EQ(settings.writes, QStringList()) << "nobody has moved it";
    program.window.resize(700, 500);
    program.window.move(30, 20);
    program.window.close();
    program.storeWindowPlace();
    EXPECT_EQ(settings.values.value(u"RecordsWindow/Width"_s), u"700"_s);
    RecordsWindowProgram next(clock, settings,
                              [this] { return std::make_unique<RecordingConnection>(script); });
    next.start();
    EXPECT_EQ(next.window.size(), QSize(700, 500));
    EXPECT_EQ(next.window.pos(), QPoint(30, 20));
    settings.values.insert(u"RecordsWindow/Left"_s, u"99999"_s);
    RecordsWindowProgram offScreen(clock, settings,
                                   [this] { return std::make_unique<RecordingConnection>(script); });
    offScreen.start();
    EXPECT_LT(offScreen.window.pos().x(), 99999) << "no screen is there";
    EXPECT_EQ(offScreen.window.size(), QSize(700, 500));
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
    EXPECT_EQ(shown(), u"Journal file: "_s + QDir(userFolder()).filePath(name));
    folder.write(name, "{}\n");
    EXPECT_EQ(shown(), u"Journal file: "_s + QDir::current().filePath(name));
    program.window.close();
}

TEST(ProgramIcon, HasItsSizes) {
    EXPECT_EQ(programIcon().availableSizes().size(), 4);
}

} // namespace kelvane::testing
