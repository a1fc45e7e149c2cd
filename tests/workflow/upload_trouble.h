#pragma once

#include "testkit/fixtures.h"
#include "testkit/forwarding_connection.h"
#include "testkit/line_peer.h"
#include "testkit/quiet_operator.h"
#include "testkit/recorded_link.h"
#include "testkit/test_database.h"
#include "workflow/unfinished_results.h"

#include <functional>

namespace kelvane::testing {

/// What happens to one statement of a command.
enum class Trouble {
    none,
    fails,
    isBusy,
    /// The connection is gone from then on.
    isLost,
    /// It is carried out, but fails for the one who sent it.
    carryOutAndFail,
    isCarriedOutAndLost,
};

/// Brings trouble to the statement of a number, from 1.
struct TroubleSource {
    Trouble trouble = Trouble::none;
    int number = 0;
    int count = 0;
    bool isLost = false;
    /// The numbers of the statements that write.
    QList<int> writing = {};

    void before();
    void after() const;
};

class TroubledConnection final : public ForwardingConnection {
  public:
    /// `endConnection` ends the connection at its server: a lost one then fails in the engine's own way.
    TroubledConnection(std::unique_ptr<Connection> real, TroubleSource& maker,
                       const std::function<void()>& endConnection)
        : ForwardingConnection(std::move(real)), maker_(maker), endConnection_(endConnection) {}
    bool isLost() const override { return maker_.isLost || ForwardingConnection::isLost(); }
    qint64 execute(const QString& statement) override {
        before();
        maker_.writing << maker_.count;
        const auto rows = ForwardingConnection::execute(statement);
        after();
        return rows;
    }
    std::unique_ptr<RecordSet> select(const QString& statement, Rows rows) override {
        before();
        auto found = ForwardingConnection::select(statement, rows);
        after();
        return found;
    }
    void lock(const QString& name) override {
        before();
        ForwardingConnection::lock(name);
        after();
    }
    void unlock(const QString& name) override {
        before();
        ForwardingConnection::unlock(name);
        after();
    }

  private:
    void before();
    void after();

    TroubleSource& maker_;
    const std::function<void()>& endConnection_;
};

/// The demonstration laboratory, in which one statement of an upload meets trouble, and an operator who
/// answers all questions. Two instruments have been calibrated at a moment of their own; what is not their
/// whole and only record is a fault.
class UploadInTrouble : public ::testing::TestWithParam<Trouble> {
  protected:
    UploadInTrouble();

    /// Puts new results onto the calibrator, of the day's minute of that number.
    virtual void calibrate(int minute) = 0;
    virtual QString upload() = 0;
    /// True while the calibrator still has an instrument's results and an upload would find them.
    virtual bool isStored(const QString& asset) = 0;

    /// Brings the trouble to each statement of an upload in turn, or to the writing ones alone.
    void tryEachStatement(bool writingOnly = false);

    struct Instrument {
        QString asset;
        QString mtag;
        /// The record as it has to be: its fields, lines and standards.
        QStringList whole = {};
    };
    QList<Instrument> instruments;

    QStringList rows(const QString& query, int columns = 1);
    void execute(const QString& statement) { database.execute(sharedConnection(session), statement); }

    static const QString& day();
    QString time;

    OwnFolder folder;
    SetClock clock;
    MemorySettings settings;
    QuietOperator ui;
    TestDatabase database;
    TroubleSource maker;
    /// Ends the connection at its server, where there is one.
    std::function<void()> endConnection = database.connectionEnd();
    Session session;

  private:
    QStringList recordsOf(const Instrument& instrument);
    bool isWhole(const Instrument& instrument);
    bool isListed(const Instrument& instrument);
    void makeRecords();
    void expectNothingLost(const QString& result);
    void expectWholeAndOnlyRecords();
    void logInAgain();
    void recover();
};

} // namespace kelvane::testing
