#include "tests/database/scripts.h"

#include <QProcess>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

constexpr uid_t nobody = 65534;

/// Runs a program to its end, with `input` as what it reads.
Outcome outcomeOf(QProcess& process, const QString& program, const QStringList& arguments,
                  const QString& input) {
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    process.write(input.toUtf8());
    process.closeWriteChannel();
    EXPECT_TRUE(process.waitForFinished(60000)) << process.errorString().toStdString();
    return {process.exitCode(), QString::fromUtf8(process.readAll())};
}

} // namespace

Outcome runProgram(const QString& program, const QStringList& arguments, const QString& input,
                   const ScriptEnvironment& environment) {
    QProcess process;
    process.setProcessEnvironment(environment.variables);
    process.setWorkingDirectory(environment.workingFolder);
    if (environment.withoutPrivileges)
        process.setChildProcessModifier([] {
            if (::getuid() == 0 && ::setuid(nobody) != 0)
                ::_exit(100);
        });
    return outcomeOf(process, program, arguments, input);
}

Outcome runScript(const QString& script, const QStringList& arguments, const ScriptEnvironment& environment) {
    return runProgram(script, arguments, {}, environment);
}

Outcome runSqlite(const QString& file, const QString& statement) {
    return runProgram(u"sqlite3"_s, {u"-batch"_s, u"-bail"_s, u"-init"_s, u"/dev/null"_s, file},
                      statement + u"\n;\n"_s);
}

QString sqlite(const QString& file, const QString& statement) {
    const auto outcome = runSqlite(file, statement);
    EXPECT_EQ(outcome.code, 0) << statement.toStdString() << "\n" << outcome.output.toStdString();
    return outcome.output.trimmed();
}

QString sqliteForEach(const QString& database, const QString& statement) {
    QString script;
    for (const auto& file : databaseFiles)
        script += u".open \"%1/%2\"\n.print %2\n%3\n;\n"_s.arg(database, file, statement);
    return sqlite(u":memory:"_s, script);
}

QString contentOf(const QString& database) {
    return sqliteForEach(database, u".dump"_s);
}

QStringList definitionsIn(const QString& database) {
    static const QRegularExpression comment(u"--[^\n]*"_s);
    static const QRegularExpression blanks(u"\\s+"_s);
    static const QRegularExpression blankAtSign(u" ?([(),]) ?"_s);
    const auto found =
        sqliteForEach(database, u"select ';;' || sql || ';;' from sqlite_schema where sql is not null "
                                "and name not like 'sqlite!_%' escape '!' and name <> 'kelvane_upgrades'"_s);
    QString file;
    QStringList definitions;
    for (auto part : found.split(u";;"_s)) {
        part.remove(comment).replace(blanks, u" "_s).replace(blankAtSign, u"\\1"_s);
        part = part.trimmed();
        if (part.endsWith(u".db"_s))
            file = part;
        else if (!part.isEmpty())
            definitions << file + u": "_s + part;
    }
    definitions.sort();
    return definitions;
}

QString rowsIn(const QString& database, const QString& columnsFrom) {
    const auto queries = sqliteForEach(
        columnsFrom, u"select 'select ''' || t.name || ''', ' || group_concat('quote(' || c.name || ')') || "
                     "' from ' || t.name || ' order by rowid;' "
                     "from sqlite_schema as t, pragma_table_info(t.name) as c "
                     "where t.type = 'table' and t.name not like 'sqlite!_%' escape '!' "
                     "and t.name <> 'kelvane_upgrades' group by t.name"_s);
    QString script;
    for (const auto& line : queries.split(u'\n'))
        script += line.endsWith(u".db"_s) ? u".open \"%1/%2\"\n"_s.arg(database, line) : line + u'\n';
    return sqlite(u":memory:"_s, script);
}

} // namespace kelvane::testing
