#include "admin/password_questions.h"
#include "platform/terminal.h"
#include "tests/admin/admin_program.h"

#include <QCoreApplication>
#include <QProcess>

#include <csignal>
#include <fcntl.h>
#include <pty.h>
#include <termios.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

constexpr int patience = 60000; // milliseconds

/// kelvane-admin at a terminal: what it asks on the standard error, what a person types, what the terminal
/// shows.
class AdminAtTerminal : public AdminOnDatabase {
  protected:
    AdminAtTerminal() {
        EXPECT_EQ(::openpty(&master_, &terminal_, nullptr, nullptr, nullptr), 0);
        ::fcntl(master_, F_SETFL, O_NONBLOCK);
        process.setChildProcessModifier([this] { ::dup2(terminal_, STDIN_FILENO); });
    }
    ~AdminAtTerminal() override {
        ::close(master_);
        ::close(terminal_);
    }

    void start(const QStringList& arguments) {
        process.start(QCoreApplication::applicationDirPath() + u"/kelvane-admin"_s,
                      QStringList{arguments.first(), database.path()} + arguments.mid(1));
    }
    /// Waits for a question that ends so; what is typed earlier would be thrown away.
    void awaitQuestion(const QByteArray& end) {
        while (!asked.endsWith(end)) {
            ASSERT_TRUE(process.waitForReadyRead(patience)) << asked.toStdString();
            asked += process.readAllStandardError();
        }
    }
    void answer(const QByteArray& question, const QByteArray& typed) {
        awaitQuestion(question);
        ASSERT_EQ(::write(master_, typed.constData(), static_cast<std::size_t>(typed.size())), typed.size());
    }
    int exitCode() {
        EXPECT_TRUE(process.waitForFinished(patience));
        asked += process.readAllStandardError();
        return process.exitCode();
    }
    QByteArray shown() const {
        QByteArray all(4096, '\0');
        const auto count = ::read(master_, all.data(), static_cast<std::size_t>(all.size()));
        return all.left(std::max<qsizetype>(count, 0));
    }
    bool showsInput() const {
        termios settings{};
        return ::tcgetattr(terminal_, &settings) == 0 && (settings.c_lflag & ECHO) != 0;
    }

    QProcess process;
    QByteArray asked;

  private:
    int master_ = -1;
    int terminal_ = -1;
};

} // namespace

TEST_F(AdminAtTerminal, ANewPasswordIsAskedForTwiceAndNotShown) {
    process.setReadChannel(QProcess::StandardError);
    start({u"account"_s, u"ann"_s, u"--owner=MT"_s, u"--level=2"_s});
    awaitQuestion("New password of ann: ");
    EXPECT_FALSE(showsInput());
    answer("New password of ann: ", "geheim\n");
    answer("The same once more: ", "geheim\n");
    EXPECT_EQ(exitCode(), 0);
    EXPECT_EQ(asked, "New password of ann: The same once more: ");
    EXPECT_EQ(shown(), "\r\n\r\n") << "the line ends alone";
    EXPECT_TRUE(showsInput());
    EXPECT_TRUE(takesLogin(u"ann"_s, u"geheim"_s));
}

TEST_F(AdminAtTerminal, TwoPasswordsThatDifferChangeNothing) {
    process.setReadChannel(QProcess::StandardError);
    start({u"password"_s, u"jdoe"_s});
    answer("New password of jdoe: ", "geheim\n");
    answer("The same once more: ", "gehiem\n");
    EXPECT_EQ(exitCode(), 1);
    EXPECT_TRUE(asked.endsWith("kelvane-admin: the two passwords differ; nothing was changed\n"));
    EXPECT_FALSE(asked.contains("geh")) << asked.toStdString();
    EXPECT_TRUE(takesLogin(u"jdoe"_s, u"kelvane"_s));
}

TEST_F(AdminAtTerminal, AnEmptyPasswordIsRefusedBeforeTheSecondQuestion) {
    process.setReadChannel(QProcess::StandardError);
    start({u"password"_s, u"jdoe"_s});
    answer("New password of jdoe: ", "\n");
    EXPECT_EQ(exitCode(), 1);
    EXPECT_TRUE(asked.endsWith("an empty password is refused\n")) << asked.toStdString();
}

TEST_F(AdminAtTerminal, AClosedInputIsNoPassword) {
    process.start(u"sh"_s, {u"-c"_s, u"exec \"$0\" \"$@\" <&-"_s,
                            QCoreApplication::applicationDirPath() + u"/kelvane-admin"_s, u"password"_s,
                            database.path(), u"jdoe"_s});
    EXPECT_EQ(exitCode(), 1);
    EXPECT_EQ(asked, "kelvane-admin: no password was given on the standard input\n");
    EXPECT_TRUE(takesLogin(u"jdoe"_s, u"kelvane"_s));
}

TEST_F(AdminAtTerminal, ASignalLeavesTheTerminalAsItWas) {
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        process.setReadChannel(QProcess::StandardError);
        asked.clear();
        start({u"password"_s, u"jdoe"_s});
        awaitQuestion("New password of jdoe: ");
        EXPECT_FALSE(showsInput());
        ::kill(static_cast<pid_t>(process.processId()), signal);
        ASSERT_TRUE(process.waitForFinished(patience));
        EXPECT_EQ(process.exitStatus(), QProcess::CrashExit);
        EXPECT_TRUE(showsInput()) << signal;
    }
}

} // namespace kelvane::testing
