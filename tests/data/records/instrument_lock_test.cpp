#include "data/records/instrument_lock.h"

#include "data/routine.h"
#include "platform/database/engine_adapter.h"
#include "resources/strings.h"
#include "resources/text_id.h"
#include "testkit/forwarding_connection.h"
#include "tests/data/records/cal_record_fixture.h"
#include "tests/data/records/record_statements.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString locking = u"lock mt.1301"_s;
const QString unlocking = u"unlock mt.1301"_s;
const QString creation = u"ModuleGlobals,CreateCalRecord"_s;

/// Keeps statements and locks in their order.
class OrderedConnection final : public ForwardingConnection {
  public:
    OrderedConnection(std::unique_ptr<Connection> real, QStringList& order)
        : ForwardingConnection(std::move(real)), order_(order) {}
    qint64 execute(const QString& statement) override {
        order_ << statement;
        return ForwardingConnection::execute(statement);
    }
    std::unique_ptr<RecordSet> select(const QString& statement, Rows rows) override {
        order_ << statement;
        return ForwardingConnection::select(statement, rows);
    }
    void lock(const QString& name) override {
        order_ << u"lock "_s + name;
        ForwardingConnection::lock(name);
    }
    void unlock(const QString& name) override {
        order_ << u"unlock "_s + name;
        ForwardingConnection::unlock(name);
    }

  private:
    QStringList& order_;
};

} // namespace

/// The record of A-1 with a standard, two lines and copies.
class LockOfAnInstrument : public RecordCreation {
  protected:
    LockOfAnInstrument() {
        session.SharedConnection =
            std::make_unique<OrderedConnection>(std::make_unique<RecordingConnection>(script), order);
        record.RecordStandards[0] = u"S-1"_s;
        record.RecordResults[0] = u"first"_s;
        record.RecordResults[1] = u"second"_s;
        script.answers[copiesWithinQuery] = {{u"2329"_s, u"2326"_s}};
        order.clear();
    }
    bool isHeld() const { return script.transactions.count(locking) > script.transactions.count(unlocking); }
    void expectGivenBack() { EXPECT_EQ(script.transactions, (QStringList{locking, unlocking})); }
    void prepare() {
        script.transactions.clear();
        order.clear();
        set(u"C2303"_s, {});
    }
    QString create() { return ModuleGlobals::CreateCalRecord(session, record, u"A-1"_s); }

    QStringList order;
};

TEST_F(LockOfAnInstrument, IsHeldFromTheSearchForAnEqualRecordToTheLastChild) {
    EXPECT_EQ(create(), QString());
    expectGivenBack();
    EXPECT_EQ(order.indexOf(locking) + 1, order.indexOf(duplicateQuery(u"2026-03-16"_s, u"08:05:00"_s)));
    EXPECT_LT(order.indexOf(locking), order.indexOf(insert()));
    EXPECT_GT(order.indexOf(insert()), 0);
    EXPECT_EQ(order.last(), unlocking);
    EXPECT_GT(order.indexOf(resultInsert(u"second"_s, 1)), order.indexOf(insert()));
}

TEST_F(LockOfAnInstrument, IsNamedAfterOwnerAndKeyInLowerCase) {
    session.SessionOwner = u"ABC"_s;
    {
        const InstrumentLock lock(session, u"K-17X"_s);
        EXPECT_EQ(script.transactions, QStringList{u"lock abc.k-17x"_s});
    }
    EXPECT_EQ(script.transactions.last(), u"unlock abc.k-17x"_s);
}

TEST_F(LockOfAnInstrument, IsNotHeldWhileTheOperatorIsAsked) {
    put(u"C2307"_s, {});
    script.answers[worksheetQuery] = {{u"2307"_s}};
    ui.expectDialog(u"Calibration Record Data (A-1)"_s, u"Please enter information for: C2307"_s, u"Joe"_s,
                    [this](const DialogQuestion&) { EXPECT_TRUE(script.transactions.isEmpty()); });
    EXPECT_EQ(create(), QString());
    EXPECT_TRUE(ui.hasMetAll());
    expectGivenBack();
}

TEST_F(LockOfAnInstrument, IsGivenBackBehindARefusal) {
    const auto query = duplicateQuery(u"2026-03-16"_s, u"08:05:00"_s);
    script.answers[query] = {{u"2026-03-16"_s}};
    EXPECT_EQ(create(), text(TextId::recordAlreadyExists));
    expectGivenBack();
}

TEST_F(LockOfAnInstrument, IsGivenBackWhereverAStatementFailsAndBeforeTheReportOfIt) {
    script.answers.remove(copiesWithinQuery);
    create();
    const QStringList steps{duplicateQuery(u"2026-03-16"_s, u"08:05:00"_s),
                            insert(),
                            copiesWithinQuery,
                            copiesBackQuery,
                            standardInsert(u"S-1"_s),
                            resultInsert(u"first"_s, 0),
                            resultInsert(u"second"_s, 1)};
    for (const auto& statement : steps) {
        SCOPED_TRACE(statement.toStdString());
        prepare();
        script.failures = {{statement, Error{1, u"refused"_s}}};
        ui.onBox = [&] { EXPECT_FALSE(isHeld()) << "another workstation waits as long as the box stands"; };
        ui.expectReport(1, creation);
        create();
        EXPECT_TRUE(ui.hasMetAll());
        EXPECT_TRUE(order.contains(statement));
        expectGivenBack();
    }
}

TEST_F(LockOfAnInstrument, StaysWhileACopyThatFailedIsReportedSinceChildrenFollow) {
    script.answers.remove(copiesWithinQuery);
    script.failures = {{emptied4224, Error{1, u"refused"_s}}};
    ui.onBox = [&] { EXPECT_TRUE(isHeld()); };
    ui.expectReport(1, u"ModuleGlobals,DestColumn"_s);
    EXPECT_EQ(create(), QString());
    EXPECT_TRUE(ui.hasMetAll());
    expectGivenBack();
}

TEST_F(LockOfAnInstrument, IsGivenBackByALostConnectionToo) {
    create();
    const auto statement = insert();
    prepare();
    script.failures = {{statement, Error{10054, u"Connection lost"_s, u"08S01"_s, true}}};
    ui.expectReport(10054, creation);
    create();
    expectGivenBack();
}

TEST_F(LockOfAnInstrument, ThatIsHeldElsewhereMeansNoRecordAndAReport) {
    script.failures = {{locking, lockHeldElsewhere(u"mt.1301"_s)}};
    ui.expectReport(70, creation);
    bool told = false;
    bool asked = false;
    EXPECT_EQ(ModuleGlobals::CreateCalRecord(session, record, u"A-1"_s,
                                             {.mayWrite =
                                                  [&] {
                                                      asked = true;
                                                      return true;
                                                  },
                                              .couldNotLock = [&] { told = true; }}),
              QString());
    EXPECT_TRUE(ui.hasMetAll());
    EXPECT_EQ(insert(), QString());
    EXPECT_EQ(script.transactions, QStringList{locking}) << "what was not got is not given back";
    EXPECT_TRUE(told);
    EXPECT_FALSE(asked);
    EXPECT_TRUE(folder.read(u"errors.log"_s)
                    .contains(u"Another workstation is writing a record of this instrument (mt.1301)"_s));
    EXPECT_FALSE(ui.progressShown);
}

TEST_F(LockOfAnInstrument, SendsNothingToASitesOwnServer) {
    class Silent final : public DriverLink {
      public:
        qint64 execute(const QString& statement) override {
            ADD_FAILURE() << statement.toStdString();
            return -1;
        }
        std::unique_ptr<RecordSet> select(const QString& statement, Rows) override {
            ADD_FAILURE() << statement.toStdString();
            return nullptr;
        }
    } link;
    const auto adapter = engineAdapterFor(u"Adaptive Server Anywhere"_s);
    adapter->lock(link, u"mt.1301"_s);
    adapter->unlock(link, u"mt.1301"_s);
}

} // namespace kelvane::testing
