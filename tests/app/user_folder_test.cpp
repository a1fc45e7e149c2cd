#include "app/user_folder.h"
#include "testkit/fixtures.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// The user's own data stand in a folder of the test.
class UserFolder : public ::testing::Test {
  protected:
    UserFolder() { qputenv("XDG_DATA_HOME", QFile::encodeName(data())); }
    ~UserFolder() override {
        if (before.isNull())
            qunsetenv("XDG_DATA_HOME");
        else
            qputenv("XDG_DATA_HOME", before);
    }
    QString data() const { return folder.path() + u"/data"_s; }
    QString made() const { return data() + u"/kelvane"_s; }

    OwnFolder folder;
    QByteArray before = qgetenv("XDG_DATA_HOME");
};

} // namespace

TEST_F(UserFolder, IsMadeForTheUserAloneAndBecomesTheCurrentOne) {
    EXPECT_EQ(userFolder(), made());
    EXPECT_FALSE(QFileInfo::exists(made()));
    EXPECT_EQ(enterUserFolder(), QString());
    EXPECT_EQ(QDir::currentPath(), QFileInfo(made()).canonicalFilePath());
    const auto permissions = QFile::permissions(made());
    EXPECT_FALSE(permissions & (QFile::ReadGroup | QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther));
}

TEST_F(UserFolder, ThatIsThereKeepsItsContentAndItsRights) {
    ASSERT_TRUE(QDir().mkpath(made()));
    const auto permissions = QFile::permissions(made()) | QFile::ReadGroup | QFile::ExeGroup;
    QFile::setPermissions(made(), permissions);
    folder.write(u"data/kelvane/rslt_db.frm"_s, "kept");
    EXPECT_EQ(enterUserFolder(), QString());
    EXPECT_EQ(QFile::permissions(made()), permissions);
    EXPECT_TRUE(QFile::exists(u"rslt_db.frm"_s));
}

TEST_F(UserFolder, ThatCanNotBeMadeIsNamed) {
    folder.write(u"data"_s, "a file");
    const auto current = QDir::currentPath();
    EXPECT_EQ(enterUserFolder(), u"the folder %1 can't be made"_s.arg(made()));
    EXPECT_EQ(QDir::currentPath(), current);
}

} // namespace kelvane::testing
