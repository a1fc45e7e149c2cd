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
                  const QString& input = {}) {
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    process.write(input.toUtf8());
    process.closeWriteChannel();
    EXPECT_TRUE(process.waitForFinished(60000)) << process.errorString().toStdString();
    return {process.exitCode(), QString::fromUtf8(process.readAll())};
}

} // namespace

Outcome runScript(const QString& script, const QStringList& arguments, const ScriptEnvironment& environment) {
    QProcess process;
    process.setProcessEnvironment(environment.variables);
    process.setWorkingDirectory(environment.workingFolder);
    if (environment.asNobody)
        process.setChildProcessModifier([] {
            if (::getuid() == 0 && ::setuid(nobody) != 0)
                ::_exit(100);
        });
    return outcomeOf(process, script, arguments);
}

QString sqlite(const QString& file, const QString& statement) {
    QProcess process;
    const auto outcome =
        outcomeOf(process, u"sqlite3"_s, {u"-batch"_s, u"-bail"_s, u"-init"_s, u"/dev/null"_s, file},
                  statement + u"\n;\n"_s);
    EXPECT_EQ(outcome.code, 0) << statement.toStdString() << "\n" << outcome.output.toStdString();
    return outcome.output.trimmed();
}

QString contentOf(const QString& database) {
    QString all;
    for (const auto& file : databaseFiles)
        all += sqlite(database + u'/' + file, u".dump\n"_s);
    return all;
}

QStringList definitionsIn(const QString& database) {
    static const QRegularExpression comment(u"--[^\n]*"_s);
    static const QRegularExpression blanks(u"\\s+"_s);
    static const QRegularExpression blankAtSign(u" ?([(),]) ?"_s);
    QStringList definitions;
    for (const auto& file : databaseFiles) {
        const auto found =
            sqlite(database + u'/' + file,
                   u"select sql || ';;' from sqlite_schema where sql is not null "
                   "and name not like 'sqlite!_%' escape '!' and name <> 'kelvane_upgrades'"_s);
        for (auto definition : found.split(u";;"_s, Qt::SkipEmptyParts)) {
            definition.remove(comment).replace(blanks, u" "_s).replace(blankAtSign, u"\\1"_s);
            definitions << file + u": "_s + definition.trimmed();
        }
    }
    definitions.sort();
    return definitions;
}

QString rowsIn(const QString& database, const QString& columnsFrom) {
    QString rows;
    for (const auto& file : databaseFiles) {
        const auto queries =
            sqlite(columnsFrom + u'/' + file,
                   u"select 'select ''' || t.name || ''', ' || group_concat('quote(' || c.name || ')') || "
                   "' from ' || t.name || ' order by rowid;' "
                   "from sqlite_schema as t, pragma_table_info(t.name) as c "
                   "where t.type = 'table' and t.name not like 'sqlite!_%' escape '!' "
                   "and t.name <> 'kelvane_upgrades' group by t.name"_s);
        rows += file + u'\n' + sqlite(database + u'/' + file, queries) + u'\n';
    }
    return rows;
}

} // namespace kelvane::testing
