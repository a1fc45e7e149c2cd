#include "records/certificate_run.h"

#include "data/start_up.h"
#include "testkit/forwarding_connection.h"
#include "tests/records/reading_session.h"

#include <QDir>
#include <QFile>

namespace kelvane::testing {

namespace {

/// Of a database without the table of customers.
class WithoutCustomers final : public ForwardingConnection {
  public:
    using ForwardingConnection::ForwardingConnection;

    std::unique_ptr<RecordSet> select(const QString& statement, Rows rows) override {
        if (statement.contains(u"customers"_s))
            throw Error{7, u"no such table"_s};
        return ForwardingConnection::select(statement, rows);
    }
};

} // namespace

class CertificateRunOnDatabase : public ReadingSession {
  protected:
    CertificateRunOnDatabase() {
        EXPECT_TRUE(
            QFile::copy(QStringLiteral(KELVANE_SOURCES "/database/demo/rslt_db.frm"), u"rslt_db.frm"_s));
        ModuleGlobals::StartupFunctions(session, {});
        EXPECT_TRUE(QDir().mkdir(u"out"_s));
    }
    CertificateRun run(const QStringList& assets, const QString& into = u"out"_s, int end = -1) {
        return writeCertificates(session, assets, readCertificateForm(session, {}), into,
                                 [&](qsizetype number, const QString& asset) {
                                     EXPECT_EQ(asset, assets[number]);
                                     return number != end;
                                 });
    }
    static QStringList files() { return QDir(u"out"_s).entryList(QDir::Files | QDir::Hidden, QDir::Name); }
};

TEST_F(CertificateRunOnDatabase, WritesAFileForEachInstrumentByTheRule) {
    settings.values[u"Certificate/FileName"_s] = u"{asset} {number}"_s;
    const auto ctag = value(u"select max(ctag) from mt.calibration where mtag = '1402'"_s);
    const auto done = run({u"PT-101"_s, u"PT-102"_s, u"LT-10'COL"_s});
    EXPECT_EQ(done.written, 3);
    EXPECT_EQ(runText(done), u"3 certificates were written."_s);
    EXPECT_EQ(files().size(), 3);
    EXPECT_TRUE(files().contains(u"PT-102 MT-%1.pdf"_s.arg(ctag))) << files().join(u'\n').toStdString();
}

TEST_F(CertificateRunOnDatabase, NamesAnInstrumentWithoutTheBlanksThatFillUpItsNumber) {
    settings.values[u"Certificate/FileName"_s] = u"{asset} of"_s;
    write(u"update mt.inventory set i4201 = 'PT-101   ' where i4201 = 'PT-101'"_s);
    write(u"update mt.inventory set i4201 = 'PM-300   ' where i4201 = 'PM-300'"_s);
    const auto done = run({u"PT-101   "_s, u"PM-300   "_s});
    EXPECT_EQ(done.written, 1);
    EXPECT_EQ(files(), QStringList(u"PT-101 of.pdf"_s));
    EXPECT_EQ(done.failures, QStringList(u"PM-300 has no calibration record."_s));
}

TEST_F(CertificateRunOnDatabase, TakesNoRecordOfTheFuture) {
    settings.values[u"Certificate/FileName"_s] = u"{number}"_s;
    const auto newest = value(u"select max(ctag) from mt.calibration where mtag = '1401'"_s);
    write(u"update mt.calibration set c2301 = '2099-01-01' where ctag = %1"_s.arg(newest));
    run({u"PT-101"_s});
    ASSERT_EQ(files().size(), 1);
    EXPECT_FALSE(files()[0].contains(newest)) << files()[0].toStdString();
    write(u"update mt.calibration set c2301 = '2099-01-01' where mtag = '1401'"_s);
    EXPECT_EQ(run({u"PT-101"_s}).failures, QStringList(u"PT-101 has no calibration record."_s));
}

TEST_F(CertificateRunOnDatabase, GivesTwoOfOneNameANumber) {
    settings.values[u"Certificate/FileName"_s] = u"same"_s;
    run({u"PT-101"_s, u"PT-102"_s});
    EXPECT_EQ(files(), (QStringList{u"same (2).pdf"_s, u"same.pdf"_s}));
    run({u"PT-101"_s});
    EXPECT_EQ(files().size(), 2) << "the next run replaces its own";
}

TEST_F(CertificateRunOnDatabase, NamesWhatCouldNotBeWrittenAtItsEnd) {
    write(u"delete from mt.calibration where mtag = '1402'"_s);
    auto done = run({u"PT-102"_s, u"PT-101"_s});
    EXPECT_EQ(runText(done), u"1 certificates were written.\r\n\r\nThese could not be written:\r\nPT-102 has "
                             "no calibration record."_s);
    EXPECT_EQ(files().size(), 1);
    done = run({u"NO-1"_s});
    EXPECT_EQ(done.failures, QStringList(u"NO-1: not in the inventory any more"_s));
    EXPECT_EQ(done.written, 0);
    done = run({u"PT-101"_s, u"PT-103"_s}, u"gone"_s);
    EXPECT_EQ(done.written, 0);
    EXPECT_EQ(done.failures.size(), 2);
    EXPECT_FALSE(done.isEnded);
    EXPECT_TRUE(done.failures[0].startsWith(u"PT-101: gone/"_s)) << done.failures[0].toStdString();
}

TEST_F(CertificateRunOnDatabase, ThatIsEndedLeavesWholeFilesAlone) {
    const auto done = run({u"PT-101"_s, u"PT-102"_s, u"PT-103"_s}, u"out"_s, 1);
    EXPECT_TRUE(done.isEnded);
    EXPECT_EQ(runText(done), u"The run was ended: 1 of 3 certificates were written."_s);
    ASSERT_EQ(files().size(), 1);
    QFile file(u"out/"_s + files().constFirst());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().trimmed().endsWith("%%EOF"));
}

TEST_F(CertificateRunOnDatabase, EndsWhenTheRecordsCanNotBeRead) {
    closeConnection(session);
    ui.expectReport(static_cast<int>(ErrorNumber::connectionClosed), u"History,instruments"_s);
    const auto done = run({u"PT-101"_s, u"PT-102"_s});
    EXPECT_TRUE(done.isEnded);
    EXPECT_EQ(done.failures, QStringList(u"PT-101: The records could not be read."_s));
    EXPECT_EQ(files(), QStringList());
}

class CertificateRunWithoutCustomers : public ::testing::Test,
                                       protected WithScriptedOperator,
                                       protected LoggedInSession {
  protected:
    CertificateRunWithoutCustomers()
        : LoggedInSession(ui, users::technician,
                          [] { return std::make_unique<WithoutCustomers>(openConnections()()); }) {}
};

TEST_F(CertificateRunWithoutCustomers, EndsAtTheFirstCertificateAndTellsItOnce) {
    ui.expectReport(7, u"History,customer"_s);
    const auto done = writeCertificates(session, {u"PT-101"_s, u"PT-102"_s}, readCertificateForm(session, {}),
                                        folder.path(), [](qsizetype, const QString&) { return true; });
    EXPECT_TRUE(done.isEnded);
    EXPECT_EQ(done.written, 0);
    EXPECT_EQ(done.failures, QStringList(u"PT-101: The records could not be read."_s));
}

} // namespace kelvane::testing
