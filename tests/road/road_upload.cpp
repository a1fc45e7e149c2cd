// An upload in a process of its own, which a test may end at any moment.
// Usage: road_upload SOURCE DEVICE MOMENT. Prints a line before each thing that stays: a writing statement,
// or a message to the calibrator. Before that of number MOMENT, from 1, it kills itself; with 0 it comes to
// its end.

#include "drivers/fluke702/dpclnk_library.h"
#include "platform/odbc_connection.h"
#include "tests/road/workplace.h"
#include "tests/support/quiet_operator.h"
#include "workflow/driver.h"

#include <QCoreApplication>

#include <csignal>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// Counts what is about to happen, and ends the process before the one of that number.
class Doom {
  public:
    explicit Doom(int moment) : moment_(moment) {}
    void before(const QString& what) {
        std::printf("%s\n", qPrintable(what));
        std::fflush(stdout);
        if (++count_ == moment_)
            std::raise(SIGKILL);
    }

  private:
    int moment_;
    int count_ = 0;
};

class MortalConnection final : public Connection {
  public:
    MortalConnection(std::unique_ptr<Connection> real, Doom& doom) : real_(std::move(real)), doom_(doom) {}
    void open(const QString& source, const QString& user, const QString& password) override {
        real_->open(source, user, password);
    }
    void close() override { real_->close(); }
    bool isOpen() const override { return real_->isOpen(); }
    bool isLost() const override { return real_->isLost(); }
    void execute(const QString& statement) override {
        if (awake)
            doom_.before(statement);
        real_->execute(statement);
    }
    std::unique_ptr<RecordSet> select(const QString& statement, Rows rows) override {
        return real_->select(statement, rows);
    }

    /// The login's own statements are not counted.
    static inline bool awake = false;

  private:
    std::unique_ptr<Connection> real_;
    Doom& doom_;
};

class MortalPort final : public SerialPort {
  public:
    MortalPort(SerialPort& real, Doom& doom) : real_(real), doom_(doom) {}
    bool portOpen() const override { return real_.portOpen(); }
    void setPortOpen(bool open) override { real_.setPortOpen(open); }
    void setCommPort(int number) override { real_.setCommPort(number); }
    void setSettings(const QString& settings) override { real_.setSettings(settings); }
    int inBufferCount() override { return real_.inBufferCount(); }
    QByteArray input() override { return real_.input(); }
    void output(const QByteArray& bytes) override {
        // All that is longer than a link start is a message.
        if (bytes.size() > 3)
            doom_.before(QString::fromLatin1(bytes.left(3)));
        real_.output(bytes);
    }

  private:
    SerialPort& real_;
    Doom& doom_;
};

int upload(const QString& source, const QString& device, int moment) {
    Doom doom(moment);
    QuietOperator ui;
    const SystemClock clock;
    Workplace workplace(ui, clock, source, device,
                        [&doom] { return std::make_unique<MortalConnection>(odbcConnections()(), doom); });
    workplace.start();
    MortalConnection::awake = true;
    MortalPort port(workplace.line, doom);
    DpclnkLibrary link;
    Calibrators calibrators{workplace.session, {workplace.session, port}, {workplace.session, link}};
    ModuleGlobals::UploadFromCalibrator(calibrators);
    for (const auto& complaint : std::as_const(ui.complaints))
        std::fprintf(stderr, "%s\n", qPrintable(complaint));
    return ui.complaints.isEmpty() ? 0 : 1;
}

} // namespace

} // namespace kelvane::testing

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    if (argc != 4)
        return 2;
    return kelvane::testing::upload(QString::fromLocal8Bit(argv[1]), QString::fromLocal8Bit(argv[2]),
                                    QByteArray(argv[3]).toInt());
}
