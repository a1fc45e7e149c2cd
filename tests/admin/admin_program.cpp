#include "tests/admin/admin_program.h"

#include "platform/database/odbc_link.h"

#include <QCoreApplication>
#include <QProcess>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

constexpr int patience = 120000; // milliseconds

QString adminProgram() {
    return QCoreApplication::applicationDirPath() + u"/kelvane-admin"_s;
}

AdminOutcome runProgram(const QString& program, const QStringList& arguments, const QByteArray& input,
                        const QProcessEnvironment& environment) {
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    process.write(input);
    process.closeWriteChannel();
    EXPECT_TRUE(process.waitForFinished(patience)) << process.errorString().toStdString();
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit) << arguments.join(u' ').toStdString();
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

} // namespace

AdminOutcome runAdmin(const QStringList& arguments, const QByteArray& input,
                      const QProcessEnvironment& environment) {
    return runProgram(adminProgram(), arguments, input, environment);
}

AdminOutcome runAdminWithoutPrivileges(const QStringList& arguments, const QByteArray& input) {
    const auto environment = QProcessEnvironment::systemEnvironment();
    if (::getuid() != 0)
        return runProgram(adminProgram(), arguments, input, environment);
    return runProgram(u"setpriv"_s,
                      QStringList{u"--bounding-set=-dac_override,-dac_read_search"_s, adminProgram()} +
                          arguments,
                      input, environment);
}

void expectDone(const AdminOutcome& outcome) {
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.output, QString());
    EXPECT_EQ(outcome.errors, QString());
}

void expectRefused(const AdminOutcome& outcome, int code, const QString& text) {
    EXPECT_EQ(outcome.code, code);
    EXPECT_EQ(outcome.output, QString());
    EXPECT_EQ(outcome.errors.count(u'\n'), 1) << outcome.errors.toStdString();
    EXPECT_TRUE(outcome.errors.startsWith(u"kelvane-admin: "_s)) << outcome.errors.toStdString();
    EXPECT_TRUE(outcome.errors.contains(text))
        << outcome.errors.toStdString() << "without: " << text.toStdString();
}

QString lineOfAccount(const AdminOutcome& list, const QString& name) {
    EXPECT_EQ(list.code, 0) << list.errors.toStdString();
    for (const auto& line : list.output.split(u'\n')) {
        if (line.startsWith(name + u' '))
            return line.simplified();
    }
    return {};
}

bool AdminOnDatabase::takesLogin(const QString& user, const QString& password) const {
    try {
        return database.connect(user, password)->isOpen();
    } catch (const Error&) {
        return false;
    }
}

QString AdminOnDatabase::valueOf(const QString& query) const {
    OdbcLink link(u"Driver=SQLite3;Database="_s + database.file(u"kelvane.db"_s), {}, {});
    link.execute(u"attach '%1' as mt"_s.arg(database.file(u"mt.db"_s)));
    const auto rows = link.select(query, Rows::all);
    return rows->next() ? rows->value(0).value_or(u"(null)"_s) : QString();
}

} // namespace kelvane::testing
