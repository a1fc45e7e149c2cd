#include "tests/database/upgrade_fixture.h"

#include "tests/database/databases.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

QString firstScript(const QString& name) {
    QFile script(sourceFile(u"tests/database/first_version/"_s + name));
    EXPECT_TRUE(script.open(QIODevice::ReadOnly)) << name.toStdString();
    return QString::fromUtf8(script.readAll());
}

} // namespace

QString folderInMemory() {
    return QFileInfo(u"/dev/shm"_s).isWritable() ? u"/dev/shm/kelvane-XXXXXX"_s
                                                 : QDir::temp().filePath(u"kelvane-XXXXXX"_s);
}

QStringList upgradeSteps() {
    return QDir(sourceFile(u"database/embedded"_s)).entryList({u"*.sql"_s}, QDir::Files, QDir::Name);
}

void Upgrade::makeFirstVersion() const {
    ASSERT_TRUE(QDir().mkpath(site()));
    sqlite(siteFile(u"kelvane.db"_s), firstScript(u"accounts.sql"_s));
    int first = 1'000'001;
    for (const auto& owner : {u"mt.db"_s, u"std.db"_s, u"abc.db"_s}) {
        sqlite(siteFile(owner),
               firstScript(u"owner.sql"_s).replace(u":first_ctag"_s, QString::number(first)));
        first += 1'000'000;
    }
    sqlite(siteFile(u"mt.db"_s), firstScript(u"mt.sql"_s));
    sqlite(siteFile(u"sys.db"_s), firstScript(u"sys.sql"_s));
}

QString Upgrade::newDatabase() const {
    auto made = path(u"new"_s);
    EXPECT_EQ(runScript(sourceFile(u"database/make.sh"_s), {made}).code, 0);
    return made;
}

QString Upgrade::copyOfScripts(const QString& name, const QStringList& steps) const {
    auto copy = path(name);
    EXPECT_EQ(QProcess::execute(u"cp"_s, {u"-r"_s, sourceFile(u"database"_s), copy}), 0);
    for (const auto& step : upgradeSteps()) {
        if (!steps.contains(step))
            QFile::remove(copy + u"/embedded/"_s + step);
    }
    EXPECT_EQ(QDir(copy + u"/embedded"_s).entryList(QDir::Files, QDir::Name), steps);
    return copy;
}

void Upgrade::addStep(const QString& scripts, const QString& name, const QByteArray& text) {
    QFile step(scripts + u"/embedded/"_s + name);
    ASSERT_TRUE(step.open(QIODevice::WriteOnly));
    step.write(text);
}

Outcome Upgrade::upgrade(const QString& scripts, const ScriptEnvironment& environment) const {
    const auto from = scripts.isEmpty() ? sourceFile(u"database"_s) : scripts;
    return runScript(from + u"/upgrade.sh"_s, {site()}, environment);
}

void Upgrade::expectUpgrade(const QString& scripts) const {
    const auto outcome = upgrade(scripts);
    EXPECT_EQ(outcome.code, 0) << outcome.output.toStdString();
}

int Upgrade::version() const {
    const auto file = siteFile(u"kelvane.db"_s);
    const bool entered =
        sqlite(file, u"select count(*) from sqlite_schema where name = 'kelvane_upgrades'"_s) != u"0"_s;
    return entered ? sqlite(file, u"select max(number) from kelvane_upgrades"_s).toInt() : 0;
}

void Upgrade::forgetVersion() const {
    sqlite(siteFile(u"kelvane.db"_s), u"drop table kelvane_upgrades"_s);
}

QStringList Upgrade::copies() const {
    return QDir(folder.path()).entryList({u"site.*"_s}, QDir::Dirs, QDir::Name);
}

QString Upgrade::inventoryColumns() const {
    return sqliteForEach(site(), u"select group_concat(name) from pragma_table_info('inventory')"_s);
}

void Upgrade::expectSound() const {
    EXPECT_EQ(sqliteForEach(site(), u"pragma integrity_check"_s),
              u"abc.db\nok\nkelvane.db\nok\nmt.db\nok\nstd.db\nok\nsys.db\nok"_s);
}

} // namespace kelvane::testing
