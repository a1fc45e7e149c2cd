#include "data/routine.h"

#include "testkit/database_session.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// Blocks that save a test message in two statements, as an editor does.
class TransactionOnDatabase : public DatabaseSession {
  protected:
    TransactionOnDatabase() : DatabaseSession(users::editor) {}
    /// Deletes the message and inserts it anew, with that text; commits at the end of the block or not.
    bool save(const Sql& insert, bool commit = true) {
        Routine routine(session, u"Form,Save"_s);
        return routine.run([&] {
            Transaction transaction(session);
            routine.execute(u"delete from mt.hvm_kv_prompts where pname = 'SAVED';commit");
            routine.execute(insert);
            if (commit)
                transaction.commit();
        });
    }
    /// The connection does not outlive it.
    void loseDatabase() {
        if (database.isShared())
            database.shared().endConnections();
        else
            rename(u"sys.db"_s, u"away"_s);
    }
    void restoreDatabase() {
        if (!database.isShared())
            rename(u"away"_s, u"sys.db"_s);
    }
    void rename(const QString& from, const QString& to) {
        EXPECT_TRUE(QFile::rename(database.embedded().file(from), database.embedded().file(to)));
    }
    QString stored() {
        return queryRows(*database.connect(), u"select prompt from mt.hvm_kv_prompts where pname = 'SAVED'"_s)
            .join(u',');
    }

    const Sql first = u"insert into mt.hvm_kv_prompts (pname,prompt) values ('SAVED','first');commit";
    const Sql second = u"insert into mt.hvm_kv_prompts (pname,prompt) values ('SAVED','second');commit";
};

} // namespace

TEST_F(TransactionOnDatabase, ACommittedBlockIsStored) {
    EXPECT_TRUE(save(first));
    EXPECT_TRUE(save(second));
    EXPECT_EQ(stored(), u"second"_s);
}

TEST_F(TransactionOnDatabase, ABlockThatEndsWithoutACommitLeavesWhatWasStored) {
    ASSERT_TRUE(save(first));
    EXPECT_TRUE(save(second, false));
    EXPECT_EQ(stored(), u"first"_s);
}

TEST_F(TransactionOnDatabase, ARefusedInsertIsReportedAndLeavesWhatWasStored) {
    ASSERT_TRUE(save(first));
    ui.expectReport(database.refusedRow(), u"Form,Save"_s);
    EXPECT_FALSE(save(u"insert into mt.hvm_kv_tag_config (mtag,input_low) values ('x','abc');commit"));
    EXPECT_EQ(stored(), u"first"_s);
    EXPECT_TRUE(save(second)) << "the connection goes on";
    EXPECT_EQ(stored(), u"second"_s);
}

TEST_F(TransactionOnDatabase, AValueThatEndsItsQuotesLeavesWhatWasStored) {
    ASSERT_TRUE(save(first));
    ui.expectReport(1, u"Form,Save"_s);
    EXPECT_FALSE(save(u"insert into mt.hvm_kv_prompts (pname,prompt) values (" + sqlText(u"O'Brien"_s) +
                      u",'x');commit"));
    EXPECT_EQ(stored(), u"first"_s);
}

TEST_F(TransactionOnDatabase, AnInnerBlockIsReportedAndTheOuterOneStaysWhole) {
    Routine outer(session, u"Form,Save"_s);
    EXPECT_TRUE(outer.run([&] {
        Transaction transaction(session);
        outer.execute(first);
        ui.expectReport(1, u"Form,Save"_s);
        EXPECT_FALSE(save(second));
        transaction.commit();
    }));
    EXPECT_EQ(stored(), u"first"_s);
}

TEST_F(TransactionOnDatabase, AConnectionThatIsLostInABlockStoresNothingAndEndsTheSessionsConnection) {
    ASSERT_TRUE(save(first));
    Routine routine(session, u"Form,Save"_s);
    ui.expectReport(database.isShared() ? 35 : 14, u"Form,Save"_s);
    EXPECT_FALSE(routine.run([&] {
        Transaction transaction(session);
        routine.execute(u"delete from mt.hvm_kv_prompts where pname = 'SAVED';commit");
        loseDatabase();
        transaction.commit();
    }));
    EXPECT_FALSE(session.SessionConnected);
    restoreDatabase();
    EXPECT_EQ(stored(), u"first"_s);
    database.connect(users::editor)->execute(u"update mt.hvm_kv_prompts set prompt = 'other';commit"_s);
    EXPECT_EQ(stored(), u"other"_s) << "the lost connection holds no lock";
}

} // namespace kelvane::testing
