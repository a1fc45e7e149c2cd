#include "records/package_making.h"

#include "data/session_values.h"
#include "procedures/task_packages.h"
#include "records/login_dialog.h"
#include "resources/strings.h"
#include "resources/text_id.h"
#include "testkit/forwarding_connection.h"
#include "testkit/screen_operator.h"
#include "tests/records/reading_session.h"

#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QProgressDialog>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// Counts how many connections are open, and fails the n-th instrument of a package, or what is asked of the
/// n-th, when it shall.
struct WatchedWriting {
    int open = 0;
    int failAt = -1;
    int failQuestionAt = -1;
    Error error = {};
    int instruments = 0;
    int questions = 0;
};

class WatchedWriter final : public ForwardingConnection {
  public:
    WatchedWriter(std::unique_ptr<Connection> real, WatchedWriting& watched)
        : ForwardingConnection(std::move(real)), watched_(watched) {}

    void open(const QString& connectionString, const QString& user, const QString& password) override {
        ForwardingConnection::open(connectionString, user, password);
        ++watched_.open;
    }
    void close() override {
        watched_.open -= isOpen() ? 1 : 0;
        ForwardingConnection::close();
    }
    qint64 execute(const QString& statement) override {
        if (statement.startsWith(u"insert into mt.hvm_kv_task_assets"_s) &&
            watched_.instruments++ == watched_.failAt)
            throw watched_.error;
        return ForwardingConnection::execute(statement);
    }
    std::unique_ptr<RecordSet> select(const QString& statement, Rows rows) override {
        if (statement.contains(u"hvm_kv_tag_config"_s) && watched_.questions++ == watched_.failQuestionAt)
            throw watched_.error;
        return ForwardingConnection::select(statement, rows);
    }

  private:
    WatchedWriting& watched_;
};

} // namespace

class PackageOfSelection : public ReadingSession {
  protected:
    PackageOfSelection() {
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    PackageAccess access() {
        return {[this] { return std::make_unique<WatchedWriter>(openConnections()(), writing); },
                [this](Session& writer, const QString& user, const QString& password) {
                    sharedConnection(writer).open(database.connectionString(), user, password);
                    writer.SessionUser = user;
                    writer.SessionConnected = true;
                    readSessionValues(writer, user);
                }};
    }
    LoginDialog* login() const { return window.findChild<LoginDialog*>(); }
    void begin(const QStringList& assets) {
        makePackage(session, access(), assets, &window, [this](const QString& told) { outcome = told; });
        EXPECT_TRUE(QTest::qWaitFor([this] { return login() != nullptr && login()->isVisible(); }));
    }
    void typeLogin(const QString& user) {
        QTest::keyClicks(&control<QLineEdit>(*login(), u"TextUsername"_s), user);
        auto& secret = control<QLineEdit>(*login(), u"TextPassword"_s);
        QTest::keyClicks(&secret, u"kelvane"_s);
        QTest::keyClick(&secret, Qt::Key_Return);
        EXPECT_TRUE(QTest::qWaitFor([this] { return login() == nullptr; }));
    }
    /// Each of these names is typed behind what stands there when a name is asked for; an empty one gives up.
    void answerNames(const QStringList& names) {
        names_ = names;
        typing_.disconnect();
        QObject::connect(&typing_, &QTimer::timeout, &window, [this] {
            auto* dialog = window.findChild<QInputDialog*>(u"PackageName"_s);
            if (dialog == nullptr || !dialog->isVisible() || dialog == answered_)
                return;
            answered_ = dialog;
            ASSERT_FALSE(names_.isEmpty());
            const auto name = names_.takeFirst();
            auto& field = *dialog->findChild<QLineEdit*>();
            QTest::keyClick(&field, Qt::Key_End);
            QTest::keyClicks(&field, name);
            QTest::keyClick(&field, name.isEmpty() ? Qt::Key_Escape : Qt::Key_Return);
        });
        typing_.start(1);
    }
    /// All of it.
    void make(const QStringList& assets, const QStringList& names, const QString& user = users::editor) {
        begin(assets);
        answerNames(names);
        typeLogin(user);
        EXPECT_TRUE(QTest::qWaitFor([this] { return writing.open == 0; }));
        // The queue has come to the outcome, too.
        QTest::qWait(10);
        EXPECT_EQ(names_, QStringList());
        typing_.stop();
    }
    QStringList configured(int count) {
        return values(u"select i4201 from mt.inventory where mtag in (select mtag from mt.hvm_kv_tag_config "
                      u"where "
                      "tp_name in (select tp_name from mt.hvm_kv_proc_points))"_s)
            .mid(0, count);
    }
    QString unconfigured() {
        return values(u"select i4201 from mt.inventory where mtag not in (select mtag from "
                      "mt.hvm_kv_tag_config)"_s)
            .value(0);
    }
    QStringList packages() { return values(u"select taskname from mt.hvm_kv_task_packages"_s); }
    /// What is stored of a package, but for its key and its time.
    QStringList stored(const QString& name) {
        return rows(u"select tptype,tp_definition,task_sql,segregate,model,description,mtuser,notes from "
                    "mt.hvm_kv_task_packages where taskname = '%1'"_s.arg(name),
                    8);
    }
    QStringList members(const QString& name) {
        return values(
            u"select i4201 from mt.inventory where mtag in (select mtag from mt.hvm_kv_task_assets where "
            "tptag in (select tptag from mt.hvm_kv_task_packages where taskname = '%1'))"_s.arg(name));
    }

    WatchedWriting writing;
    QWidget window;
    QString outcome;

  private:
    QStringList names_;
    QPointer<QInputDialog> answered_;
    QTimer typing_;
};

TEST_F(PackageOfSelection, IsStoredAsTheEditorStoresIt) {
    const auto assets = configured(3);
    ASSERT_EQ(assets.size(), 3);
    make(assets, {u"FROM THE LIST"_s});
    EXPECT_EQ(outcome, text(TextId::packageMade).arg(u"FROM THE LIST"_s).arg(3));
    Session editor({ui, clock, settings}, openConnections());
    sharedConnection(editor).open(database.connectionString(), users::editor, u"kelvane"_s);
    editor.SessionUser = users::editor;
    readSessionValues(editor, users::editor);
    ASSERT_FALSE(savePackage(editor, {.name = u"BY THE EDITOR"_s, .assets = assets}));
    ASSERT_EQ(stored(u"FROM THE LIST"_s).size(), 1);
    EXPECT_EQ(stored(u"FROM THE LIST"_s), stored(u"BY THE EDITOR"_s));
    EXPECT_EQ(members(u"FROM THE LIST"_s), assets);
    EXPECT_EQ(value(u"select length(tptag) from mt.hvm_kv_task_packages where taskname = 'FROM THE LIST'"_s),
              u"30"_s);
    const auto loaded = loadPackage(session, u"FROM THE LIST"_s);
    EXPECT_TRUE(loaded.isComplete && loaded.exists);
    EXPECT_EQ(loaded.assets.size(), 3);
    closeConnection(editor);
}

TEST_F(PackageOfSelection, HoldsNumbersThatAreFilledUpWithBlanks) {
    const auto asset = configured(1).value(0);
    const auto bare = unconfigured();
    for (const auto& number : {asset, bare})
        write(u"update mt.inventory set i4201 = '%1    ' where i4201 = '%1'"_s.arg(number));
    ui.expectBox(text(TextId::configurationDataIncomplete) + u"\r\n"_s + bare + u"\r\n\r\n"_s +
                     text(TextId::packageMakeOthers).arg(1),
                 text(TextId::newPackageTitle), box::question, BoxAnswer::yes);
    make({asset + u"    "_s, bare + u"    "_s}, {u"FILLED UP"_s});
    EXPECT_EQ(members(u"FILLED UP"_s), QStringList(asset + u"    "_s));
}

TEST_F(PackageOfSelection, LeavesNoConnectionAndNoTraceOfTheLogin) {
    make(configured(1), {u"CREW"_s});
    EXPECT_EQ(writing.open, 0);
    EXPECT_EQ(settings.writes, QStringList());
    EXPECT_EQ(session.SessionUser, users::technician);
    EXPECT_TRUE(session.SessionConnected);
    EXPECT_EQ(folder.read(u"errors.log"_s), QString());
}

TEST_F(PackageOfSelection, NeedsAnEditorOfTheSameOwner) {
    const auto before = packages();
    for (const auto& user : {users::technician, users::configurer, users::editorOfAbc}) {
        ui.expectBox(text(TextId::packageNeedsEditor).arg(u"MT"_s), text(TextId::newPackageTitle),
                     box::warning);
        make(configured(1), {}, user);
        EXPECT_EQ(outcome, QString()) << user.toStdString();
    }
    EXPECT_EQ(packages(), before);
}

TEST_F(PackageOfSelection, AsksForTheLoginAndCanBeGivenUp) {
    const auto before = packages();
    begin(configured(1));
    EXPECT_EQ(control<QLabel>(*login(), u"LabelNote"_s).text(),
              text(TextId::packageNeedsEditor).arg(u"MT"_s));
    EXPECT_EQ(control<QLineEdit>(*login(), u"TextUsername"_s).text(), QString());
    click(control<QPushButton>(*login(), u"CommandCancel"_s));
    EXPECT_TRUE(QTest::qWaitFor([this] { return login() == nullptr; }));
    make(configured(1), {QString()});
    make(configured(1), {u"   "_s});
    EXPECT_EQ(packages(), before);
    EXPECT_EQ(outcome, QString());
}

TEST_F(PackageOfSelection, TellsWhatCanNotBePartOfItAndIsMadeOfTheOthersWhenTheUserAgrees) {
    const auto unfit = unconfigured();
    const auto quoted = u"LT-10'COL"_s;
    ASSERT_EQ(value(u"select count(*) from mt.inventory where i4201 = 'LT-10''COL'"_s), u"1"_s);
    const auto assets = configured(2) << unfit << u"NO-SUCH"_s << quoted;
    const auto faults = text(TextId::configurationDataIncomplete) + u"\r\n"_s + unfit + u"\r\n\r\n"_s +
                        text(TextId::instrumentNumberInvalid) + u"\r\nNO-SUCH, LT-10'COL"_s;
    const auto question = faults + u"\r\n\r\n"_s + text(TextId::packageMakeOthers).arg(2);
    const auto before = packages();
    ui.expectBox(question, text(TextId::newPackageTitle), box::question, BoxAnswer::no);
    make(assets, {});
    EXPECT_EQ(packages(), before);
    ui.expectBox(question, text(TextId::newPackageTitle), box::question, BoxAnswer::yes);
    make(assets, {u"CREW"_s});
    EXPECT_EQ(members(u"CREW"_s), configured(2));

    ui.expectBox(faults, text(TextId::newPackageTitle), box::warning);
    make({unfit, u"NO-SUCH"_s, quoted}, {});
}

TEST_F(PackageOfSelection, OfTwiceTheSameNumberHasItOnce) {
    const auto asset = configured(1).value(0);
    ui.expectBox(text(TextId::instrumentAlreadyListed) + u"\r\n"_s + asset.toLower() + u"\r\n\r\n"_s +
                     text(TextId::packageMakeOthers).arg(1),
                 text(TextId::newPackageTitle), box::question, BoxAnswer::yes);
    make({asset, asset.toLower()}, {u"CREW"_s});
    EXPECT_EQ(members(u"CREW"_s), QStringList{asset});
}

TEST_F(PackageOfSelection, AsksForAnotherNameUntilItIsFree) {
    make(configured(1), {u"O'Brien's %2"_s});
    EXPECT_EQ(outcome, text(TextId::packageMade).arg(u"O'Brien's %2"_s, u"1"_s));
    EXPECT_EQ(stored(u"O''Brien''s %2"_s).size(), 1);
    ui.expectBox(text(TextId::packageAlreadyExists), text(TextId::newPackageTitle), box::warning);
    // The taken name stands in the field again, which takes 30 characters.
    make(configured(2), {u"O'Brien's %2"_s, u" of May which is far too long"_s});
    EXPECT_EQ(members(u"O''Brien''s %2 of May which is f"_s), configured(2));
    EXPECT_EQ(members(u"O''Brien''s %2"_s), configured(1)) << "the other one stays as it was";
}

TEST_F(PackageOfSelection, ThatFailsHalfWayIsNotStoredAtAll) {
    const auto before = packages();
    const auto count = value(u"select count(*) from mt.hvm_kv_task_assets"_s);
    for (const bool isLoss : {false, true}) {
        writing.failAt = 1;
        writing.instruments = 0;
        writing.error = {10054, u"Connection reset"_s, u"08S01"_s, isLoss};
        ui.expectReport(10054, u"FormPredefinedTasks,CommandSave"_s);
        make(configured(3), {u"CREW"_s});
        EXPECT_EQ(writing.instruments, 2);
        EXPECT_EQ(outcome, QString());
        EXPECT_EQ(packages(), before);
        EXPECT_EQ(value(u"select count(*) from mt.hvm_kv_task_assets"_s), count);
        EXPECT_TRUE(session.SessionConnected) << "reading goes on";
    }
}

TEST_F(PackageOfSelection, OfADatabaseThatFailsIsToldOnce) {
    const auto before = packages();
    writing.failQuestionAt = 2;
    writing.error = {10054, u"Connection reset"_s, u"08S01"_s, true};
    ui.expectReport(10054, u"ModuleGlobals,HasConfigData"_s);
    make(configured(9), {});
    EXPECT_EQ(writing.questions, 3) << "the rest is not asked for";
    EXPECT_EQ(packages(), before);
}

TEST_F(PackageOfSelection, OfManyInstrumentsCanBeCancelledWhileTheyAreLookedAt) {
    const auto before = packages();
    QStringList assets;
    for (int number = 0; number < 100000; ++number)
        assets << u"NONE-%1"_s.arg(number);
    QTimer waiting;
    QObject::connect(&waiting, &QTimer::timeout, &window, [&] {
        auto* progress = window.findChild<QProgressDialog*>();
        if (progress == nullptr || !progress->isVisible())
            return;
        waiting.stop();
        QTest::keyClick(progress, Qt::Key_Escape);
    });
    waiting.start(1);
    make(assets, {});
    EXPECT_FALSE(waiting.isActive()) << "it was there";
    EXPECT_EQ(packages(), before);
}

} // namespace kelvane::testing
