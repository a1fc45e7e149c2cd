#include "platform/installed_files.h"

#include "testkit/fixtures.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// An installed tree in a folder of the test, whose name has a blank.
class InstalledTree : public ::testing::Test {
  protected:
    void SetUp() override {
        ASSERT_TRUE(QDir().mkpath(root + u"/bin"_s));
        ASSERT_TRUE(QDir().mkpath(root + u"/share/kelvane/database/demo"_s));
        ASSERT_TRUE(QDir().mkpath(root + u"/share/kelvane/layouts"_s));
    }

    testing::OwnFolder folder;
    const QString root = QDir(folder.path()).canonicalPath() + u"/a site"_s;
    const InstalledFiles files{root + u"/bin"_s};
};

} // namespace

TEST_F(InstalledTree, IsFoundFromTheFolderOfThePrograms) {
    EXPECT_EQ(files.databaseScripts(), root + u"/share/kelvane/database"_s);
    EXPECT_EQ(files.layouts(), root + u"/share/kelvane/layouts"_s);
}

TEST_F(InstalledTree, ThatIsReachedThroughALinkIsNamedByItsOwnPlace) {
    const auto other = folder.path() + u"/other"_s;
    ASSERT_TRUE(QFile::link(root, other));
    EXPECT_EQ(InstalledFiles(other + u"/bin"_s).layouts(), root + u"/share/kelvane/layouts"_s);
}

TEST_F(InstalledTree, WithoutDocumentsStillNamesTheirPlace) {
    EXPECT_EQ(files.documents(), root + u"/share/doc/kelvane"_s);
}

TEST_F(InstalledTree, HasSimulatorLibrariesInAFolderOfTheirOwn) {
    EXPECT_EQ(files.simulatorLibraries(), QString());
    const auto own = QDir::cleanPath(root + u"/bin/"_s + QStringLiteral(KELVANE_LIBRARIES_FROM_PROGRAMS));
    ASSERT_TRUE(QDir().mkpath(own));
    EXPECT_EQ(files.simulatorLibraries(), own);
    EXPECT_TRUE(own.endsWith(u"/kelvane"_s)) << own.toStdString();
}

TEST(InstalledFilesOfTheBuild, AreThoseOfTheSources) {
    const InstalledFiles files;
    EXPECT_TRUE(QFileInfo(files.databaseScripts() + u"/make.sh"_s).isExecutable());
    EXPECT_TRUE(QFileInfo::exists(files.databaseScripts() + u"/demo/rslt_db.frm"_s));
    EXPECT_TRUE(QFileInfo::exists(files.layouts() + u"/kvwrksht.rpt"_s));
    EXPECT_TRUE(QFileInfo::exists(files.documents() + u"/administrators-guide.html"_s));
}

} // namespace kelvane
