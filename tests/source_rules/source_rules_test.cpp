#include "testkit/fixtures.h"
#include "tests/source_rules/source_rules.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace kelvane {

using testing::databaseInScreens;
using testing::includeFaults;
using testing::numberedTexts;
using testing::posixFaults;
using testing::sourcesWithoutTest;
using testing::statementsInModulesWithWindows;

namespace {

QDir sources() {
    return QDir(QStringLiteral(KELVANE_SOURCES));
}

std::string lines(const QStringList& faults) {
    return faults.join(u'\n').toStdString();
}

/// A tree made up for a test.
class SourceTree : public ::testing::Test {
  protected:
    void put(const QString& path, const QByteArray& content = {}) const {
        QDir(folder.path()).mkpath(QFileInfo(path).path());
        folder.write(path, content);
    }
    QStringList faults() const { return includeFaults(QDir(folder.path())); }

    testing::OwnFolder folder;
};

} // namespace

TEST(SourceRules, ReadTheTreeOfThisBuild) {
    EXPECT_TRUE(sources().exists(u"platform/error.h"_s)) << sources().path().toStdString();
    EXPECT_TRUE(sources().exists(u"tests/source_rules/source_rules_test.cpp"_s));
}

TEST(SourceRules, IncludesGoDownwardsAndInNoLoop) {
    const auto faults = includeFaults(sources());
    EXPECT_TRUE(faults.isEmpty()) << lines(faults);
}

TEST(SourceRules, EachSourceHasATest) {
    const auto untested = sourcesWithoutTest(sources());
    EXPECT_TRUE(untested.isEmpty()) << lines(untested);
}

TEST(SourceRules, PosixHeadersStandInFilesNamedAfterIt) {
    const auto faults = posixFaults(sources());
    EXPECT_TRUE(faults.isEmpty()) << lines(faults);
}

TEST(SourceRules, TextsAreNamedAndNotNumbered) {
    const auto numbered = numberedTexts(sources());
    EXPECT_TRUE(numbered.isEmpty()) << lines(numbered);
}

TEST(SourceRules, NoStatementStandsInAModuleWithWindows) {
    const auto faults = statementsInModulesWithWindows(sources());
    EXPECT_TRUE(faults.isEmpty()) << lines(faults);
}

TEST(SourceRules, NoScreenReachesTheDatabase) {
    const auto faults = databaseInScreens(sources());
    EXPECT_TRUE(faults.isEmpty()) << lines(faults);
}

TEST_F(SourceTree, InOrderHasNoFault) {
    put(u"resources/strings.h"_s, "#include <QString>\n");
    put(u"platform/error.h"_s, "#include <QString>\n#include <vector>\n#include <sql.h>\n");
    put(u"platform/report.h"_s, "#include \"platform/error.h\"\n#include \"resources/strings.h\"\n");
    put(u"data/routine.h"_s, "#include \"platform/report.h\"\n");
    put(u"drivers/status.h"_s, "#include \"data/routine.h\"\n");
    put(u"drivers/fluke702/link.h"_s, "#include \"drivers/status.h\"\n");
    put(u"drivers/fluke702/link.cpp"_s, "#include \"drivers/fluke702/link.h\"\n");
    put(u"drivers/torquestar/port.h"_s, "#include <QSerialPort>\n#include <QtCore/QByteArray>\n");
    put(u"ui/form.h"_s, "#include <QWidget>\n#include \"data/routine.h\"\n");
    put(u"workflow/list.h"_s, "#include \"ui/form.h\"\n#include \"drivers/fluke702/link.h\"\n");
    put(u"app/main.cpp"_s, "#include \"workflow/list.h\"\n#include <QApplication>\n");
    put(u"tests/x_test.cpp"_s, "#include \"app/window.h\"\n#include \"tests/help.h\"\n");
    put(u"app/window.h"_s);
    put(u"tests/help.h"_s);
    EXPECT_EQ(faults(), QStringList());
}

TEST_F(SourceTree, ReportsAnIncludeUpwards) {
    put(u"resources/strings.cpp"_s, "#include \"platform/error.h\"\n");
    put(u"platform/error.h"_s, "  #  include \"data/session.h\"\n");
    put(u"data/session.h"_s, "#include \"app/window.h\"\n");
    put(u"app/window.h"_s);
    EXPECT_EQ(faults(), (QStringList{
                            u"data/session.h: includes upwards: app/window.h"_s,
                            u"platform/error.h: includes upwards: data/session.h"_s,
                            u"resources/strings.cpp: includes upwards: platform/error.h"_s,
                        }));
}

TEST_F(SourceTree, ReportsAnIncludeAcrossALayer) {
    put(u"drivers/torquestar/port.h"_s, "#include \"ui/form.h\"\n");
    put(u"ui/form.h"_s);
    put(u"ui/other.h"_s, "#include \"drivers/torquestar/port.h\"\n");
    put(u"workflow/list.h"_s, "#include \"editors/strategies.h\"\n");
    put(u"editors/strategies.h"_s);
    EXPECT_EQ(faults(), (QStringList{
                            u"drivers/torquestar/port.h: includes another module of its layer: ui/form.h"_s,
                            u"ui/other.h: includes another module of its layer: drivers/torquestar/port.h"_s,
                            u"workflow/list.h: includes another module of its layer: editors/strategies.h"_s,
                        }));
}

TEST_F(SourceTree, ReportsADriverThatUsesAnother) {
    put(u"drivers/fluke74x/link.h"_s, "#include \"drivers/torquestar/port.h\"\n");
    put(u"drivers/torquestar/port.h"_s);
    put(u"drivers/status.h"_s, "#include \"drivers/fluke74x/link.h\"\n");
    EXPECT_EQ(faults(), (QStringList{
                            u"drivers/fluke74x/link.h: includes another driver: drivers/torquestar/port.h"_s,
                            u"drivers/status.h: includes another driver: drivers/fluke74x/link.h"_s,
                        }));
}

TEST_F(SourceTree, ReportsACoreModuleThatIncludesWindows) {
    put(u"data/a.h"_s, "#include <QWidget>\n");
    put(u"drivers/torquestar/b.h"_s, "#include <QtWidgets/QLabel>\n");
    put(u"platform/c.h"_s, "#include <QMessageBox>\n#include <QtWidgets>\n");
    put(u"resources/d.h"_s, "#include <QPixmap>\n");
    put(u"ui/e.h"_s, "#include <QWidget>\n");
    EXPECT_EQ(faults(), (QStringList{
                            u"data/a.h: includes windows: QWidget"_s,
                            u"drivers/torquestar/b.h: includes windows: QtWidgets/QLabel"_s,
                            u"platform/c.h: includes windows: QMessageBox"_s,
                            u"platform/c.h: includes windows: QtWidgets"_s,
                            u"resources/d.h: includes windows: QPixmap"_s,
                        }));
}

TEST_F(SourceTree, ReportsALoopOfFilesOnce) {
    put(u"data/a.h"_s, "#include \"data/b.h\"\n");
    put(u"data/b.h"_s, "#include \"data/c.h\"\n");
    put(u"data/c.h"_s, "#include \"data/b.h\"\n");
    put(u"data/d.h"_s, "#include \"data/b.h\"\n");
    put(u"tests/self.h"_s, "#include \"tests/self.h\"\n");
    EXPECT_EQ(faults(), (QStringList{
                            u"loop: data/b.h > data/c.h > data/b.h"_s,
                            u"loop: tests/self.h > tests/self.h"_s,
                        }));
}

TEST_F(SourceTree, ReportsIncludesThatAreNotWrittenFromTheRoot) {
    put(u"data/a.cpp"_s, "#include \"b.h\"\n#include \"../platform/c.h\"\n#include \"data/gone.h\"\n");
    put(u"data/b.h"_s);
    put(u"platform/c.h"_s);
    EXPECT_EQ(faults(), (QStringList{
                            u"data/a.cpp: includes what is no file from the root: b.h"_s,
                            u"data/a.cpp: includes what is no file from the root: ../platform/c.h"_s,
                            u"data/a.cpp: includes what is no file from the root: data/gone.h"_s,
                        }));
}

TEST_F(SourceTree, ReportsAModuleThatIncludesFromAnotherTree) {
    put(u"drivers/torquestar/a.cpp"_s, "#include \"simulators/torquestar/frames.h\"\n");
    put(u"simulators/torquestar/frames.h"_s);
    put(u"app/main.cpp"_s, "#include \"tests/help.h\"\n");
    put(u"tests/help.h"_s);
    EXPECT_EQ(faults(), (QStringList{
                            u"app/main.cpp: includes from outside the layers: tests/help.h"_s,
                            u"drivers/torquestar/a.cpp: includes from outside the layers: "
                            u"simulators/torquestar/frames.h"_s,
                        }));
}

TEST_F(SourceTree, ReportsATestkitThatIncludesATest) {
    put(u"simulators/peer.h"_s, "#include \"data/a.h\"\n");
    put(u"data/a.h"_s);
    put(u"testkit/link.h"_s, "#include \"simulators/peer.h\"\n#include \"tests/help.h\"\n");
    put(u"tests/help.h"_s, "#include \"testkit/link.h\"\n");
    put(u"demo/day.h"_s, "#include \"testkit/other.h\"\n");
    put(u"testkit/other.h"_s);
    put(u"benchmarks/site.h"_s, "#include \"demo/day.h\"\n");
    EXPECT_EQ(faults(), (QStringList{
                            u"benchmarks/site.h: includes what comes after it: demo/day.h"_s,
                            u"testkit/link.h: includes what comes after it: tests/help.h"_s,
                            u"loop: testkit/link.h > tests/help.h > testkit/link.h"_s,
                        }));
}

TEST_F(SourceTree, ReportsSourcesWithoutATest) {
    put(u"data/tested.h"_s);
    put(u"data/tested.cpp"_s, "#include \"data/tested.h\"\n");
    put(u"data/part_of_it.cpp"_s, "#include \"data/tested.h\"\n#include \"data/inner.h\"\n");
    put(u"data/inner.h"_s);
    put(u"data/inner.cpp"_s, "#include \"data/inner.h\"\n#include \"platform/elsewhere.h\"\n");
    put(u"platform/elsewhere.h"_s);
    put(u"platform/elsewhere.cpp"_s, "#include \"platform/elsewhere.h\"\n");
    put(u"data/forgotten.h"_s);
    put(u"data/forgotten.cpp"_s, "#include \"data/forgotten.h\"\n");
    put(u"data/part_of_that.cpp"_s, "#include \"data/forgotten.h\"\n");
    put(u"data/header_only.h"_s);
    put(u"app/main.cpp"_s);
    put(u"tests/data/tested_test.cpp"_s, "#include \"data/tested.h\"\n");
    put(u"app/form.h"_s, "#include \"app/menu.h\"\n");
    put(u"app/form.cpp"_s, "#include \"app/form.h\"\n");
    put(u"app/menu.h"_s);
    put(u"app/menu.cpp"_s, "#include \"app/menu.h\"\n");
    put(u"tests/app/form_test.cpp"_s, "#include \"tests/help.h\"\n");
    EXPECT_EQ(
        sourcesWithoutTest(QDir(folder.path())),
        (QStringList{u"platform/elsewhere.cpp"_s, u"data/forgotten.cpp"_s, u"data/part_of_that.cpp"_s}));
}

TEST_F(SourceTree, ReportsPosixHeadersOutsideTheirFiles) {
    put(u"data/a.cpp"_s, "#include <unistd.h>\n#include <QFile>\n#include <sys/stat.h>\n#include <cmath>\n");
    put(u"platform/b_posix.cpp"_s, "#include <unistd.h>\n");
    put(u"platform/b_posix.h"_s, "#include <termios.h>\n");
    put(u"simulators/c.cpp"_s, "#include <csignal>\n#include <system_error>\n");
    put(u"testkit/d.cpp"_s, "#include <dlfcn.h>\n");
    put(u"tests/e_test.cpp"_s, "#include <fcntl.h>\n");
    EXPECT_EQ(posixFaults(QDir(folder.path())),
              (QStringList{u"data/a.cpp: includes what only POSIX has: unistd.h"_s,
                           u"data/a.cpp: includes what only POSIX has: sys/stat.h"_s,
                           u"platform/b_posix.h: includes what only POSIX has: termios.h"_s,
                           u"simulators/c.cpp: includes what only POSIX has: csignal"_s}));
}

TEST_F(SourceTree, ReportsTextsByTheirNumber) {
    put(u"data/a.cpp"_s, "text(TextId::fileMenu) + text(TextId{103}) + text(static_cast<TextId>(number))");
    EXPECT_EQ(numberedTexts(QDir(folder.path())),
              (QStringList{u"data/a.cpp: TextId{103"_s, u"data/a.cpp: static_cast<TextId>"_s}));
}

TEST_F(SourceTree, ReportsStatementsInModulesWithWindows) {
    put(u"data/a.cpp"_s, "select(u\"select a from mt.b\" + sqlText(a));\n");
    put(u"procedures/a.h"_s, "Sql statementOf(const QString& a);\n");
    put(u"app/list.cpp"_s, "routine.select(u\"SELECT a FROM MT.b\");\n// select a from mt.b\n");
    put(u"editors/list/form.cpp"_s, "execute(u\"delete from mt.x;commit\"_s);\n"
                                    "button(u\"CommandSelect\"_s, text); // select one\n");
    put(u"reports/band.h"_s, "const auto order = \"a order by b\";\n");
    put(u"ui/form.cpp"_s, "statement += u\",now(*)\";\nlabel(u\"comma, 'quoted'\");\n");
    put(u"workflow/form.h"_s, "const auto query = \"Update mt.b set a = 1\";\n");
    put(u"worksheets/list.cpp"_s, "#include \"platform/database/sql.h\"\nadd(sqlText(asset), u\"mt.b\");\n");
    put(u"worksheets/list.h"_s, "Sql statementOf(SqlWords words); // mySqlText is no part\n");
    EXPECT_EQ(statementsInModulesWithWindows(QDir(folder.path())),
              (QStringList{
                  u"reports/band.h: \"a order by b\""_s,
                  u"ui/form.cpp: \",now(*)\""_s,
                  u"workflow/form.h: \"Update mt.b set a = 1\""_s,
                  u"editors/list/form.cpp: \"delete from mt.x;commit\""_s,
                  u"worksheets/list.cpp: \"mt.b\""_s,
                  u"worksheets/list.cpp: sqlText"_s,
                  u"worksheets/list.h: Sql"_s,
                  u"worksheets/list.h: SqlWords"_s,
                  u"app/list.cpp: \"SELECT a FROM MT.b\""_s,
              }));
}

TEST_F(SourceTree, ReportsScreensThatReachTheDatabase) {
    put(u"editors/CMakeLists.txt"_s,
        "kelvane_sources(\n    kelvane_screens\n    form.cpp\n    list/form.cpp)\n");
    put(u"workflow/CMakeLists.txt"_s, "kelvane_sources(kelvane_core list.cpp)\n"
                                      "kelvane_sources(kelvane_screens form.cpp form.h)\n");
    put(u"platform/database/sql.h"_s);
    put(u"data/routine.h"_s, "#include \"platform/database/sql.h\"\n");
    put(u"data/session.h"_s);
    put(u"editors/form.h"_s, "#include \"data/session.h\"\n");
    put(u"editors/form.cpp"_s, "#include \"editors/form.h\"\n#include \"data/routine.h\"\n");
    put(u"editors/list/form.cpp"_s, "#include \"data/session.h\"\nsession.SharedConnection->close();\n");
    put(u"workflow/list.h"_s, "Connection& sharedConnection(Session& session);\n");
    put(u"workflow/list.cpp"_s, "#include \"data/routine.h\"\n");
    put(u"workflow/form.h"_s, "const auto& connection = sharedConnection(session);\n");
    put(u"workflow/form.cpp"_s, "#include \"workflow/form.h\"\n#include \"workflow/list.h\"\n");
    EXPECT_EQ(databaseInScreens(QDir(folder.path())),
              (QStringList{
                  u"workflow/form.h: uses the shared connection"_s,
                  u"editors/form.cpp > data/routine.h > platform/database/sql.h"_s,
                  u"editors/list/form.cpp: uses the shared connection"_s,
              }));
}

} // namespace kelvane
