#include "tests/database/shared_scripts.h"

#include "tests/database/databases.h"

#include <QFileInfo>
#include <QProcess>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

QString SharedScripts::contentOfServer(const QString& database) {
    QProcess process;
    process.start(u"pg_dump"_s, {u"-w"_s, u"-d"_s, address(database)});
    EXPECT_TRUE(process.waitForFinished(60000));
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    auto lines = QString::fromUtf8(process.readAllStandardOutput()).split(u'\n');
    lines.removeIf([](const QString& line) { return line.startsWith(u'\\') || line.startsWith(u"-- "_s); });
    lines.sort(); // the server gives rights in no order
    return lines.join(u'\n');
}

QString SharedScripts::version(const QString& database) {
    return answer(database, u"select max(number) from kelvane.upgrades"_s);
}

int SharedScripts::databases() {
    return answer(u"postgres"_s, u"select count(*) from pg_database"_s).toInt();
}

QString SharedScripts::groupsOf(const QString& login) {
    return answer(u"postgres"_s,
                  u"select string_agg(roleid::regrole::text, ' ' order by roleid::regrole::text) from "
                  "pg_auth_members where member = '%1'::regrole"_s.arg(login));
}

void SharedScripts::write(const QString& file, const QByteArray& text) const {
    QFile script(copyOfScripts() + u'/' + file);
    EXPECT_TRUE(script.open(QIODevice::Append));
    script.write(text);
}

void SharedScripts::replace(const QString& file, const QByteArray& text) const {
    QFile script(copyOfScripts() + u'/' + file);
    EXPECT_TRUE(script.exists());
    EXPECT_TRUE(script.open(QIODevice::WriteOnly));
    script.write(text);
}

Outcome SharedScripts::runCopy(const QString& script, const QStringList& arguments) const {
    return runScript(copyOfScripts() + u'/' + script, arguments);
}

QString SharedScripts::copyOfScripts() const {
    const auto copy = folder.filePath(u"it's a copy"_s);
    if (!QFileInfo::exists(copy))
        QProcess::execute(u"cp"_s, {u"-r"_s, sourceFile(u"database"_s), copy});
    return copy + u"/postgresql"_s;
}

} // namespace kelvane::testing
