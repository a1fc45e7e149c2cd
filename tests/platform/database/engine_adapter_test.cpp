#include "platform/database/engine_adapter.h"

#include "testkit/fixtures.h"
#include "tests/platform/database/recorded_link.h"
#include "tests/platform/database/small_database.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const auto twoDeletes = u"delete from mt.a;delete from mt.b;commit"_s;

} // namespace

TEST(VerbatimAdapter, PassesEveryTextUntouched) {
    for (const auto& engine : {u"Adaptive Server Anywhere"_s, u"Other"_s, u"sqlite"_s, QString()}) {
        RecordedLink link;
        const auto adapter = engineAdapterFor(engine);
        adapter->prepareSession(link, u"jdoe"_s, u"secret"_s);
        EXPECT_TRUE(link.statements.isEmpty()) << "the login was the server's own";
        const QStringList texts{u""_s, u"delete from t where d < now(*) - 30;commit"_s,
                                u"select load_extension(?) -- 'x"_s};
        for (const auto& text : texts)
            adapter->execute(link, text);
        EXPECT_EQ(link.statements, texts);
    }
}

TEST(EngineAdapter, MakesItsOwnEnginesRefuseWritingAndLeavesASitesAlone) {
    const auto statementsOf = [](const QString& engine) {
        RecordedLink link;
        engineAdapterFor(engine)->refuseWriting(link);
        return link.statements;
    };
    EXPECT_EQ(statementsOf(u"SQLite"_s), QStringList(u"pragma query_only = on"_s));
    EXPECT_EQ(statementsOf(u"PostgreSQL"_s), QStringList(u"set default_transaction_read_only to on"_s));
    EXPECT_EQ(statementsOf(u"Adaptive Server Anywhere"_s), QStringList());
}

TEST(VerbatimAdapter, GivesNoRowCountSinceItsStatementIsUnknown) {
    RecordedLink link;
    const auto update = u"update t set a = 1;commit"_s;
    link.changedRows = {{update, 0}};
    EXPECT_EQ(engineAdapterFor(u"Other"_s)->execute(link, update), -1);
}

TEST(EmbeddedAdapter, GivesTheRowCountOfAllStatementsOrNoneWhenOneIsUnknown) {
    RecordedLink link;
    link.changedRows = {{u"delete from mt.a"_s, 2}, {u"delete from mt.b"_s, 3}};
    const auto adapter = engineAdapterFor(u"SQLite"_s);
    EXPECT_EQ(adapter->execute(link, twoDeletes), 5);
    link.changedRows.remove(u"delete from mt.a"_s);
    EXPECT_EQ(adapter->execute(link, twoDeletes), -1);
}

TEST(VerbatimAdapter, LeavesTheFirstRowToTheDriver) {
    RecordedLink link;
    const auto adapter = engineAdapterFor(u"Other"_s);
    adapter->select(link, u"select a from t"_s, Rows::first);
    adapter->select(link, u"select a from t"_s, Rows::all);
    EXPECT_EQ(link.statements, (QStringList{u"select a from t"_s, u"select a from t"_s}));
    EXPECT_EQ(link.rows, (QList<Rows>{Rows::first, Rows::all}));
}

TEST(EmbeddedAdapter, ASingleStatementWithCommitIsSentAlone) {
    RecordedLink link;
    engineAdapterFor(u"SQLite"_s)->execute(link, u"delete from mt.a where d < now(*) - 90;commit"_s);
    EXPECT_EQ(link.statements,
              QStringList{u"delete from mt.a where d < datetime('now','localtime','-90 days')"_s});
}

TEST(EmbeddedAdapter, SeveralStatementsWithCommitAreOneTransaction) {
    RecordedLink link;
    engineAdapterFor(u"SQLite"_s)->execute(link, twoDeletes);
    EXPECT_EQ(link.statements,
              (QStringList{u"begin immediate"_s, u"delete from mt.a"_s, u"delete from mt.b"_s, u"commit"_s}));
}

TEST(EmbeddedAdapter, SeveralStatementsWithoutCommitCommitOneByOneUpToTheFirstFailure) {
    RecordedLink link;
    link.failAt = 1;
    const auto error = errorOf(
        [&] { engineAdapterFor(u"SQLite"_s)->execute(link, u"delete from a;bogus;delete from b"_s); });
    ASSERT_TRUE(error);
    EXPECT_EQ(link.statements, (QStringList{u"delete from a"_s, u"bogus"_s}));
}

TEST(EmbeddedAdapter, AFailureAnywhereInATransactionIsRolledBackAndReportedItself) {
    const QStringList wanted{u"begin immediate"_s, u"delete from mt.a"_s, u"delete from mt.b"_s, u"commit"_s};
    for (qsizetype failing = 0; failing < wanted.size(); ++failing) {
        RecordedLink link;
        link.failAt = failing;
        const auto error = errorOf([&] { engineAdapterFor(u"SQLite"_s)->execute(link, twoDeletes); });
        ASSERT_TRUE(error) << failing;
        EXPECT_EQ(error->description, u"statement %1 failed"_s.arg(failing));
        EXPECT_FALSE(error->connectionLost);
        auto sent = wanted.first(failing + 1);
        if (failing > 0)
            sent << u"rollback"_s;
        EXPECT_EQ(link.statements, sent) << failing;
    }
}

TEST(EmbeddedAdapter, ATransactionThatCantBeRolledBackLosesTheConnection) {
    for (const auto& [native, lost] : {std::pair{1.0, false}, {10.0, true}, {5.0, true}}) {
        RecordedLink link;
        link.failAt = 3;
        link.failures.insert(u"rollback"_s, {native, u"rollback failed"_s});
        const auto error = errorOf([&] { engineAdapterFor(u"SQLite"_s)->execute(link, twoDeletes); });
        ASSERT_TRUE(error);
        EXPECT_EQ(error->description, u"statement 3 failed"_s);
        EXPECT_EQ(error->connectionLost, lost) << native;
    }
}

TEST(EmbeddedAdapter, AsksForTheFirstRowInTheTextItself) {
    RecordedLink link;
    engineAdapterFor(u"SQLite"_s)->select(link, u"select a from t"_s, Rows::first);
    EXPECT_EQ(link.statements, QStringList{u"select a from t limit 1"_s});
    EXPECT_EQ(link.rows, QList<Rows>{Rows::all});
}

TEST(EngineAdapters, KnowWhichErrorsMeanThatTheConnectionIsGone) {
    struct Case {
        QString engine;
        double native;
        QString state;
        bool lost;
    };
    const Case cases[] = {
        {u"SQLite"_s, 10, u"HY000"_s, true},       // input or output failed
        {u"SQLite"_s, 10 + 256, u"HY000"_s, true}, // the same, reading
        {u"SQLite"_s, 11, u"HY000"_s, true},       // damaged
        {u"SQLite"_s, 14, u"HY000"_s, true},       // a file can't be opened any more
        {u"SQLite"_s, 26, u"HY000"_s, true},       // replaced by something else
        {u"SQLite"_s, 5, u"HY000"_s, false},       // locked by another workstation
        {u"SQLite"_s, 8, u"HY000"_s, false},       // read-only
        {u"SQLite"_s, 13, u"HY000"_s, false},      // disk full
        {u"SQLite"_s, 19, u"HY000"_s, false},      // constraint
        {u"SQLite"_s, 1, u"HY000"_s, false},       {u"SQLite"_s, -1, u"HY000"_s, false},
        {u"Other"_s, 0, u"57P01"_s, true},         {u"Other"_s, 0, u"57P02"_s, true},
        {u"Other"_s, 0, u"57P03"_s, true},         {u"Other"_s, 10, u"HY000"_s, false},
        {u"Other"_s, 0, u"57014"_s, false},
    };
    for (const auto& testCase : cases)
        EXPECT_EQ(engineAdapterFor(testCase.engine)->isConnectionLoss({testCase.native, {}, testCase.state}),
                  testCase.lost)
            << testCase.engine.toStdString() << ' ' << testCase.native << ' ' << testCase.state.toStdString();
}

} // namespace kelvane::testing
