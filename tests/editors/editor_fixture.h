#pragma once

#include "testkit/database_session.h"
#include "testkit/forwarding_connection.h"
#include "testkit/quiet_operator.h"
#include "ui/child_window.h"

#include <QMainWindow>
#include <QMdiArea>

#include <type_traits>

namespace kelvane::testing {

/// How one step of a connection fails: a statement, or the begin or commit of a transaction. Steps count from
/// the moment at which `count` is set to 0.
struct PlannedFault {
    enum class Kind {
        /// The step is refused.
        refused,
        /// The step is carried out, and still fails.
        answerLost,
        /// The connection is gone with the step.
        connectionLost,
    };
    Kind kind = Kind::refused;
    int failAt = -1;
    int count = 0;
    bool reached = false;
    bool lost = false;
    /// A transaction has been committed.
    bool committed = false;
};

class FaultyConnection final : public ForwardingConnection {
  public:
    FaultyConnection(std::unique_ptr<Connection> real, PlannedFault& fault)
        : ForwardingConnection(std::move(real)), fault_(fault) {}

    qint64 execute(const QString& statement) override {
        return step([&] { return ForwardingConnection::execute(statement); });
    }
    std::unique_ptr<RecordSet> select(const QString& statement, Rows rows) override {
        return step([&] { return ForwardingConnection::select(statement, rows); });
    }
    void beginTransaction() override {
        step([&] { ForwardingConnection::beginTransaction(); });
    }
    void commitTransaction() override {
        step([&] {
            ForwardingConnection::commitTransaction();
            fault_.committed = true;
        });
    }

  private:
    template <class Run>
    std::invoke_result_t<Run> step(Run run) {
        if (fault_.lost)
            throw Error{10054, QStringLiteral("Connection lost"), QStringLiteral("08S01"), true};
        if (fault_.count++ != fault_.failAt)
            return run();
        fault_.reached = true;
        if (fault_.kind == PlannedFault::Kind::answerLost)
            run();
        if (fault_.kind == PlannedFault::Kind::connectionLost) {
            fault_.lost = true;
            close();
        }
        throw Error{13, QStringLiteral("planned fault"), QStringLiteral("HY000"), fault_.lost};
    }

    PlannedFault& fault_;
};

/// Answers each dialog with the next entry, and each box with `answer` where that is a button; keeps the
/// boxes and how many of them were error reports.
class AnsweringOperator final : public QuietOperator {
  public:
    BoxAnswer messageBox(const QString& text, const QString& title, BoxStyle style) override {
        QuietOperator::messageBox(text, title, style);
        boxes << text;
        reports += style.icon == BoxIcon::stop ? 1 : 0;
        return style.buttons == BoxButtons::yesNo ? answer : BoxAnswer::ok;
    }
    QString askOneField(const DialogQuestion&) override {
        return entries.isEmpty() ? cancelled : entries.takeFirst();
    }

    QStringList entries;
    QStringList boxes;
    int reports = 0;
    BoxAnswer answer = BoxAnswer::yes;
};

/// A workstation's editors over a copy of the demonstration database, with a second connection that looks on.
/// The user is jdoe of owner MT.
class EditorFixture {
  public:
    EditorFixture();

    /// All rows that the editors write, in words that do not change from save to save.
    QStringList stored() const;
    /// What the screen shows, its title among it.
    static QStringList contents(const QWidget& screen);
    /// Shows a screen that was made with `new`.
    template <class Screen>
    Screen& show(Screen* made) {
        made->showIn(*area);
        return *made;
    }
    static void press(const QWidget& screen, const QString& button);

    OwnFolder folder;
    SessionClock clock;
    MemorySettings settings;
    AnsweringOperator simulatedOperator;
    EmbeddedDatabase database;
    std::unique_ptr<Connection> observer;
    PlannedFault fault;
    Session session;
    QMainWindow window;
    QMdiArea* area;
};

} // namespace kelvane::testing
