#include "app/database_to_try.h"

#include "platform/file_error.h"
#include "testkit/fixtures.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

class DatabaseToTry : public ::testing::Test {
  protected:
    QString list() const { return folder.path() + u"/odbc.ini"_s; }
    QString content() const { return folder.read(u"odbc.ini"_s); }

    OwnFolder folder;
};

} // namespace

TEST_F(DatabaseToTry, ItsDataSourceMakesTheListOrStandsBehindWhatIsThere) {
    addDataSource(list(), "[Calibration Data]\nDriver = SQLite3\n");
    EXPECT_EQ(content(), u"[Calibration Data]\nDriver = SQLite3\n"_s);
    for (const auto& [before, between] : {std::pair{"; mine\n[Other]\nDriver = X\n", "\n"},
                                          std::pair{"; mine\n[Other]\nDriver = X", "\n\n"}}) {
        folder.write(u"odbc.ini"_s, before);
        addDataSource(list(), "[Calibration Data]\n");
        EXPECT_EQ(content(),
                  QString::fromLatin1(before) + QString::fromLatin1(between) + u"[Calibration Data]\n"_s);
    }
}

TEST_F(DatabaseToTry, ItsDataSourceIsWrittenBehindALink) {
    folder.write(u"kept.ini"_s, "[Other]\n");
    ASSERT_TRUE(QFile::link(folder.path() + u"/kept.ini"_s, list()));
    addDataSource(list(), "[Calibration Data]\n");
    EXPECT_TRUE(QFileInfo(list()).isSymLink());
    EXPECT_EQ(folder.read(u"kept.ini"_s), u"[Other]\n\n[Calibration Data]\n"_s);
}

TEST_F(DatabaseToTry, AListThatCanNotBeWrittenStaysAndIsNamed) {
    ASSERT_TRUE(QDir().mkpath(list()));
    try {
        addDataSource(list(), "[Calibration Data]\n");
        FAIL() << "a folder was written";
    } catch (const FileError& error) {
        EXPECT_TRUE(error.reason.contains(list())) << error.reason.toStdString();
    }
    EXPECT_THROW(addDataSource(folder.path() + u"/nowhere/odbc.ini"_s, "x"), FileError);
}

TEST_F(DatabaseToTry, TheListOfTheUserIsNamedByAVariableOrStandsAtHome) {
    const auto before = qgetenv("ODBCINI");
    qputenv("ODBCINI", "/somewhere/odbc.ini");
    EXPECT_EQ(userDataSources(), u"/somewhere/odbc.ini"_s);
    qunsetenv("ODBCINI");
    EXPECT_EQ(userDataSources(), QDir::homePath() + u"/.odbc.ini"_s);
    if (!before.isNull())
        qputenv("ODBCINI", before);
}

TEST_F(DatabaseToTry, TemplateAndLayoutAreProvidedWhereThereAreNone) {
    folder.write(u"rslt_db.frm"_s, "the user's own");
    provideWorkFiles(folder.path());
    EXPECT_EQ(folder.read(u"rslt_db.frm"_s), u"the user's own"_s);
    EXPECT_FALSE(folder.read(u"kvwrksht.rpt"_s).isEmpty());

    ASSERT_TRUE(QFile::remove(folder.path() + u"/rslt_db.frm"_s));
    folder.write(u"kvwrksht.rpt"_s, "the user's own");
    provideWorkFiles(folder.path());
    EXPECT_TRUE(folder.read(u"rslt_db.frm"_s).contains(u"subst$"_s));
    EXPECT_EQ(folder.read(u"kvwrksht.rpt"_s), u"the user's own"_s);
    EXPECT_TRUE(QFile::permissions(folder.path() + u"/rslt_db.frm"_s) & QFile::WriteOwner);
    const auto layout = folder.path() + u"/kvwrksht.rpt"_s;
    ASSERT_TRUE(QFile::setPermissions(layout, QFile::ReadOwner));
    provideWorkFiles(folder.path());
    EXPECT_FALSE(QFile::permissions(layout) & QFile::WriteOwner) << "what is there stays as it is";
    EXPECT_THROW(provideWorkFiles(folder.path() + u"/nowhere"_s), FileError);
}

} // namespace kelvane::testing
