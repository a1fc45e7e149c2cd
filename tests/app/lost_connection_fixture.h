#pragma once

#include "testkit/forwarding_connection.h"
#include "testkit/logged_in_session.h"
#include "testkit/program_fixture.h"
#include "testkit/screen_controls.h"
#include "ui/status_line.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <utility>

namespace kelvane::testing {

/// A connection that a test cuts. Opened anew it works.
class CutConnection final : public ForwardingConnection {
  public:
    CutConnection(std::unique_ptr<Connection> real, bool& cut)
        : ForwardingConnection(std::move(real)), cut_(cut) {}

    void open(const QString& connectionString, const QString& user, const QString& password) override {
        if (std::exchange(lost_, false))
            ForwardingConnection::close();
        ForwardingConnection::open(connectionString, user, password);
    }
    bool isLost() const override { return lost_; }
    qint64 execute(const QString& statement) override {
        meet();
        return ForwardingConnection::execute(statement);
    }
    std::unique_ptr<RecordSet> select(const QString& statement, Rows rows) override {
        meet();
        return std::make_unique<CutRows>(ForwardingConnection::select(statement, rows), *this);
    }
    void beginTransaction() override {
        meet();
        ForwardingConnection::beginTransaction();
    }
    void lock(const QString& name) override {
        meet();
        ForwardingConnection::lock(name);
    }

  private:
    class CutRows final : public RecordSet {
      public:
        CutRows(std::unique_ptr<RecordSet> rows, CutConnection& connection)
            : rows_(std::move(rows)), connection_(connection) {}
        bool next() override {
            connection_.meet();
            return rows_->next();
        }
        std::optional<QString> value(int column) override { return rows_->value(column); }

      private:
        std::unique_ptr<RecordSet> rows_;
        CutConnection& connection_;
    };

    void meet() {
        lost_ = lost_ || std::exchange(cut_, false);
        if (lost_)
            throw Error{10054, QStringLiteral("Connection lost"), QStringLiteral("08S01"), true};
    }

    bool& cut_;
    bool lost_ = false;
};

/// The workstation over a copy of the demonstration database; the user may edit procedures.
class LostConnection : public ProgramTest, public ScreenControls {
  protected:
    using ProgramTest::choose;

    LostConnection() : ProgramTest(true) {
        connections = [this] { return std::make_unique<CutConnection>(openConnections()(), cut); };
        settings.values.insert(QStringLiteral("Workstation/ODBC"), database.dsn());
        program.window.resize(1200, 1000);
        start();
        typeLogin(user, QStringLiteral("kelvane"));
        EXPECT_TRUE(session.SessionConnected);
        EXPECT_FALSE(again().isVisible());
    }

    QPushButton& again() { return program.window.statusLine().connectButton(); }
    QString shownUser() { return control<QLabel>(program.window, QStringLiteral("LabelUser")).text(); }
    /// A statement of nobody's guard meets the loss.
    void lose() {
        cut = true;
        EXPECT_THROW(session.SharedConnection->select(QStringLiteral("select datecode from mt.dbconfig")),
                     Error);
        expectLost();
    }
    void expectLost() {
        EXPECT_FALSE(session.SessionConnected);
        EXPECT_TRUE(again().isVisible());
        EXPECT_TRUE(again().isEnabled());
        EXPECT_EQ(shownUser(), QStringLiteral("Not connected"));
    }
    void connectAgain(const QString& password = QStringLiteral("kelvane")) {
        if (again().isVisible())
            click(again());
        auto& secret =
            control<QLineEdit>(child(QStringLiteral("FormConnect")), QStringLiteral("TextPassword"));
        EXPECT_TRUE(secret.hasFocus());
        QTest::keyClicks(&secret, password);
        QTest::keyClick(&secret, Qt::Key_Return);
    }
    void expectConnected() {
        EXPECT_TRUE(session.SessionConnected);
        EXPECT_EQ(findChild(QStringLiteral("FormConnect")), nullptr);
        EXPECT_FALSE(again().isVisible());
        EXPECT_TRUE(shownUser().contains(user));
    }
    /// Opens a screen, whose controls are used from now on.
    void openScreen(const QString& entry, const QString& name) {
        screen_ = name;
        choose(entry);
        EXPECT_TRUE(simulatedOperator.hasMetAll());
    }
    void type(const QString& box, const QString& entry) {
        auto& field = controlNamed<QLineEdit>(box);
        field.setFocus();
        field.selectAll();
        QTest::keyClicks(&field, entry);
    }
    QStringList stored(const QString& query) { return queryRows(*database.connect(), query); }
    /// A save meets the loss; `kept` says that the screen still holds what was typed. Connected again, the
    /// save is carried out.
    void expectSavedInTheSecondTry(const QStringList& reports, const std::function<bool()>& kept,
                                   const QString& query, const QString& found) {
        const auto before = stored(query);
        EXPECT_FALSE(before.contains(found));
        EXPECT_TRUE(kept());
        cut = true;
        for (const auto& routine : reports)
            simulatedOperator.expectReport(10054, routine);
        press(QStringLiteral("CommandSave"));
        EXPECT_TRUE(simulatedOperator.hasMetAll());
        expectLost();
        EXPECT_TRUE(kept());
        connectAgain();
        expectConnected();
        EXPECT_TRUE(kept());
        EXPECT_EQ(stored(query), before);
        press(QStringLiteral("CommandSave"));
        EXPECT_TRUE(stored(query).contains(found)) << stored(query).join(u' ').toStdString();
        child(screen_).close();
        EXPECT_EQ(findChild(screen_), nullptr) << "everything is saved";
    }

    const QString user = QStringLiteral("dsantos");
    bool cut = false;
    EmbeddedDatabase database{demoDatabase()};

  private:
    ChildWindow& screen() final { return child(screen_); }
    QString screen_;
};

} // namespace kelvane::testing
