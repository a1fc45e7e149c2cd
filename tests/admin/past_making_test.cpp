#include "admin/commands.h"
#include "platform/database/odbc_link.h"
#include "tests/admin/admin_server.h"

#include <QDir>
#include <QProcess>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// The rows that the past consists of; the text of a value is the same on both engines.
const QStringList pastQueries{
    u"select mtag, i4201, i4202, i4203, i4204, i4206, i4209, i4228, i4229, i4230, i4231, i4240 from mt.inventory where mtag > '5000' order by 1"_s,
    u"select ctag, mtag, cdsrc, c2301, c2302, c2303, c2306, c2307, c2308, c2309, c2315, c2316, c2317, c2320, c2323, c2326, c2331, c2333, c2334, c2336, c2338, c2339, c2350, c2352, c2390, c2391 from mt.calibration where mtag > '5000' order by 1"_s,
    u"select ctag, mtag, c2502, c2501 from mt.calresults where mtag > '5000' order by 1, 3"_s,
    u"select ctag, mtag, c2430 from mt.standards where mtag > '5000' order by 1, 3"_s,
    u"select mtag, l2801, l2815 from mt.location where mtag > '5000' order by 1"_s,
    u"select mtag, tp_name, input_type, output_type, loop_pwr from mt.hvm_kv_tag_config where mtag > '5000' order by 1"_s,
};

QStringList rowsOf(const QString& folder, const QString& query) {
    OdbcLink link(u"Driver=SQLite3;Database=:memory:"_s, {}, {});
    link.execute(u"attach '%1/mt.db' as mt"_s.arg(folder));
    const auto columns = static_cast<int>(query.left(query.indexOf(u" from "_s)).count(u',')) + 1;
    QStringList rows;
    for (const auto found = link.select(query, Rows::all); found->next();) {
        QStringList cells;
        for (int column = 0; column < columns; ++column)
            cells << found->value(column).value_or(QString());
        rows << cells.join(u'|');
    }
    return rows;
}

class PastMaking : public ::testing::Test {
  protected:
    QString path(const QString& name) const { return folder.path() + u"/it's here/"_s + name; }
    void SetUp() override { ASSERT_TRUE(QDir().mkpath(path({}))); }
    QStringList files() const {
        return QDir(path({})).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden);
    }
    /// The past of a database, made without the folder's quote: it stands in a statement.
    QStringList pastOf(const QString& name) const {
        QStringList rows;
        for (const auto& query : pastQueries)
            rows << rowsOf(path(name).replace(u"'"_s, u"''"_s), query);
        return rows;
    }
    AdminOutcome makeWith(const QString& program, const QString& name) const {
        QProcess make;
        make.start(QStringLiteral(KELVANE_SOURCES "/database/make.sh"),
                   {path(name), u"--demo"_s, u"--past="_s + program});
        EXPECT_TRUE(make.waitForFinished(60000));
        return {make.exitCode(), QString::fromUtf8(make.readAllStandardOutput()),
                QString::fromUtf8(make.readAllStandardError())};
    }

    QTemporaryDir folder;
};

const QString databaseFiles = u"abc.db kelvane.db mt.db std.db sys.db"_s;

} // namespace

TEST_F(PastMaking, LeavesNothingBesideTheDatabase) {
    expectDone(runAdmin({u"make"_s, path(u"db"_s), u"--demo"_s}));
    EXPECT_EQ(files(), QStringList{u"db"_s});
    EXPECT_EQ(QDir(path(u"db"_s)).entryList(QDir::Files | QDir::Hidden).join(u' '), databaseFiles);
    // Of what is out, the demonstration's own rows alone.
    const auto place = path(u"db"_s).replace(u"'"_s, u"''"_s);
    EXPECT_EQ(rowsOf(place, u"select count(*) from mt.hvm_kv_task_inuse where mtag > '5000'"_s),
              QStringList{u"0"_s});
    EXPECT_EQ(rowsOf(place, u"select count(*) from mt.hvm_kv_task_inuse"_s), QStringList{u"2"_s});
    EXPECT_EQ(rowsOf(place, u"select count(*) from mt.hvm_kv_task_standards_inuse"_s), QStringList{u"2"_s});
    EXPECT_EQ(rowsOf(place, u"select count(*) from mt.hvm_kv_last_standards_used where mtag > '5000'"_s),
              QStringList{u"0"_s});
    EXPECT_TRUE(runAdmin({u"check"_s, path(u"db"_s)}).output.endsWith(u", and whole.\n"_s));
}

TEST_F(PastMaking, FillsAFolderThatIsThere) {
    ASSERT_TRUE(QDir().mkpath(path(u"db"_s)));
    expectDone(runAdmin({u"make"_s, path(u"db"_s), u"--demo"_s}));
    EXPECT_EQ(QDir(path(u"db"_s)).entryList(QDir::Files | QDir::Hidden).join(u' '), databaseFiles);
    EXPECT_EQ(rowsOf(path(u"db"_s).replace(u"'"_s, u"''"_s),
                     u"select count(distinct mtag) from mt.calibration where mtag > '5000'"_s),
              QStringList{u"46"_s});
}

TEST_F(PastMaking, GivesTheSameRecordsForTheSameDayAndChangesNoneThatAreThere) {
    for (const auto& name : {u"db"_s, u"other"_s})
        expectDone(runAdmin({u"make"_s, path(name), u"--demo"_s, u"--day=2027-01-01"_s}));
    const auto past = pastOf(u"db"_s);
    EXPECT_GT(past.size(), 2000);
    EXPECT_EQ(pastOf(u"other"_s), past);
    EXPECT_EQ(runAdmin({u"make"_s, path(u"db"_s), u"--demo"_s, u"--day=2028-02-29"_s}).code, 0);
    EXPECT_EQ(pastOf(u"db"_s), past);
}

TEST_F(PastMaking, ThatFailsMakesNoDatabase) {
    const auto outcome = makeWith(u"/bin/false"_s, u"db"_s);
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(outcome.errors, u"make.sh: the demonstration has got no past\n"_s);
    EXPECT_EQ(files(), QStringList());
}

TEST_F(PastMaking, LeavesNoRecordWhenSomethingUnexpectedIsAsked) {
    ASSERT_EQ(makeWith(u"/bin/true"_s, u"db"_s).code, 0); // instruments without records
    const auto place = path(u"db"_s);
    {
        OdbcLink link(u"Driver=SQLite3;Database="_s + place + u"/mt.db"_s, {}, {});
        link.execute(u"insert into hvm_kv_worksheetfields (fldnum, sequence) values ('2319', 2)"_s);
    }
    expectRefused(runAdmin({u"demonstration-past"_s, u"--day=2027-01-01"_s, place}), 1,
                  u"Certificate Note"_s);
    OdbcLink link(u"Driver=SQLite3;Database="_s + place + u"/mt.db"_s, {}, {});
    for (const auto& table : {u"calibration"_s, u"calresults"_s, u"standards"_s}) {
        const auto rows = link.select(u"select count(*) from %1 where mtag > '5000'"_s.arg(table), Rows::all);
        ASSERT_TRUE(rows->next());
        EXPECT_EQ(rows->value(0), u"0") << table.toStdString();
    }
}

TEST_F(PastMaking, IsRefusedWhereTheInstrumentsHaveRecords) {
    expectDone(runAdmin({u"make"_s, path(u"db"_s), u"--demo"_s, u"--day=2027-01-01"_s}));
    const auto past = pastOf(u"db"_s);
    expectRefused(runAdmin({u"demonstration-past"_s, u"--day=2027-01-01"_s, path(u"db"_s)}), 1,
                  u"B1-PT-01 has records already"_s);
    EXPECT_EQ(pastOf(u"db"_s), past);
}

TEST_F(PastMaking, IsRefusedWithoutTheInstruments) {
    expectRefused(runAdmin({u"demonstration-past"_s, u"--day=2027-01-01"_s, demoDatabase()}), 1,
                  u"B1-PT-01 is missing, or has no interval in months"_s);
    expectRefused(runAdmin({u"demonstration-past"_s, u"--day=2027-01-01"_s, path(u"gone"_s)}), 1,
                  u"can't be opened"_s);
}

TEST_F(PastMaking, IsNamedByNoHelp) {
    for (const auto& command : admin::commandsOfScripts())
        EXPECT_FALSE(runAdmin({u"--help"_s}).output.contains(command.name)) << command.name.toStdString();
    expectRefused(runAdmin({u"demonstration-past"_s, u"--day=2027-02-29"_s, u"db"_s}), 2,
                  u"no such day: 2027-02-29"_s);
}

using PastOnServer = AdminOnServer;

TEST_F(PastOnServer, IsTheSameAsInAFolder) {
    const QTemporaryDir folder;
    const auto place = folder.filePath(u"db"_s);
    expectDone(runAdmin({u"make"_s, place, u"--demo"_s, u"--day=2028-02-29"_s}));
    psql(u"postgres"_s, u"drop database if exists past with (force)"_s);
    expectDone(runAdmin({u"make"_s, server().address(u"past"_s), u"--demo"_s, u"--day=2028-02-29"_s}));
    for (const auto& query : pastQueries) {
        const auto expected = rowsOf(place, query);
        EXPECT_FALSE(expected.isEmpty());
        EXPECT_EQ(psql(u"past"_s, query).split(u'\n'), expected) << query.toStdString();
    }
    psql(u"postgres"_s, u"drop database past with (force)"_s);
}

} // namespace kelvane::testing
