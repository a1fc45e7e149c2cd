#include "testkit/test_database.h"

#include <gtest/gtest.h>

#include <fnmatch.h>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// The running test has to be one of those that its program registers for both engines. ctest gives their
/// filter; without ctest there is nothing to compare with.
void requireRegisteredTest() {
    const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
    if (!test || !qEnvironmentVariableIsSet("KELVANE_DATABASE_TESTS"))
        return;
    const auto name = std::string(test->test_suite_name()) + '.' + test->name();
    const auto filter = qEnvironmentVariable("KELVANE_DATABASE_TESTS");
    // Those that are named as exceptions are known, too.
    for (const auto& pattern : QString(filter).replace(u'-', u':').split(u':', Qt::SkipEmptyParts)) {
        if (fnmatch(pattern.toUtf8().constData(), name.c_str(), 0) == 0)
            return;
    }
    ADD_FAILURE() << name << " works on the demonstration database: name it behind DATABASE where its "
                  << "program is added (kelvane_test), so that it also runs on the shared engine";
}

} // namespace

TestDatabase::TestDatabase(const QHash<QString, QString>& embeddedSettings) {
    requireRegisteredTest();
    if (usesSharedEngine())
        shared_ = std::make_unique<SharedDatabase>();
    else
        embedded_ = std::make_unique<EmbeddedDatabase>(demoDatabase(), embeddedSettings);
}

std::unique_ptr<Connection> TestDatabase::connect(const QString& user, const QString& password) const {
    return shared_ ? shared_->connect(user, password) : embedded_->connect(user, password);
}

void TestDatabase::execute(Connection& connection, const QString& statement) const {
    executeAnything(shared_ ? shared_->owner() : connection, statement);
}

void TestDatabase::executeElsewhere(const QString& statement) const {
    if (shared_)
        executeAnything(shared_->owner(), statement);
    else
        executeAnything(*embedded_->connect(), statement);
}

void TestDatabase::grant(const QString& right) const {
    if (shared_)
        executeAnything(shared_->owner(), u"grant "_s + right + u" to kelvane_records_mt"_s);
}

std::function<void()> TestDatabase::connectionEnd() const {
    if (!shared_)
        return {};
    return [this] { shared_->endConnections(); };
}

QStringList TestDatabase::rows(Connection& connection, const QString& query, int columns) const {
    return queryRows(shared_ ? shared_->owner() : connection, query, columns);
}

QString TestDatabase::realText(double value) const {
    const auto text = QString::number(value);
    return isShared() || text.contains(u'.') ? text : text + u".0"_s;
}

QStringList TestDatabase::columnsOf(Connection& connection, const QString& table) const {
    const auto query = isShared()
                           ? u"select column_name from information_schema.columns where table_schema = "
                             "'mt' and table_name = '%1' order by 1"_s
                           : u"select name from pragma_table_info('%1','mt') order by 1"_s;
    return rows(connection, query.arg(table));
}

} // namespace kelvane::testing
