// A command in a process of its own, which a test may end at any moment.
// Usage: end_to_end_command SOURCE DEVICE MOMENT CALIBRATOR [INSTRUMENT...]: downloads the instruments,
// without any it uploads. Prints a line before each thing that stays: a writing statement, or a message or a
// step of a transfer to the calibrator. Before that of number MOMENT, from 1, it kills itself; with 0 it
// comes to its end.

#include "drivers/fluke702/dpclnk_library.h"
#include "drivers/fluke74x/dpclnk3_library.h"
#include "platform/database/odbc_connection.h"
#include "testkit/forwarding_connection.h"
#include "testkit/quiet_operator.h"
#include "tests/end_to_end/connected_workstation.h"
#include "tests/workflow/scripted_screen.h"
#include "workflow/upload.h"

#include <QCoreApplication>

#include <csignal>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// Counts what is about to happen, and ends the process before the one of that number.
class EndAtMoment {
  public:
    explicit EndAtMoment(int moment) : moment_(moment) {}
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

class MortalConnection final : public ForwardingConnection {
  public:
    MortalConnection(std::unique_ptr<Connection> real, EndAtMoment& doom)
        : ForwardingConnection(std::move(real)), endAtMoment_(doom) {}
    qint64 execute(const QString& statement) override {
        if (awake)
            endAtMoment_.before(statement);
        return ForwardingConnection::execute(statement);
    }
    std::unique_ptr<RecordSet> select(const QString& statement, Rows rows) override {
        return ForwardingConnection::select(statement, rows);
    }

    /// The login's own statements are not counted.
    static inline bool awake = false;

  private:
    EndAtMoment& endAtMoment_;
};

class MortalPort final : public SerialPort {
  public:
    MortalPort(SerialPort& real, EndAtMoment& doom) : real_(real), endAtMoment_(doom) {}
    bool portOpen() const override { return real_.portOpen(); }
    void setPortOpen(bool open) override { real_.setPortOpen(open); }
    void setCommPort(int number) override { real_.setCommPort(number); }
    void setSettings(const QString& settings) override { real_.setSettings(settings); }
    int inBufferCount() override { return real_.inBufferCount(); }
    QByteArray input() override { return real_.input(); }
    void output(const QByteArray& bytes) override {
        // All that is longer than a link start is a message.
        if (bytes.size() > 3)
            endAtMoment_.before(QString::fromLatin1(bytes.left(3)));
        real_.output(bytes);
    }

  private:
    SerialPort& real_;
    EndAtMoment& endAtMoment_;
};

class MortalLink final : public DpclnkLibrary {
  public:
    explicit MortalLink(EndAtMoment& doom) : endAtMoment_(doom) {}
    Status DPCdnlStep(qint32& count) override {
        endAtMoment_.before(u"DPCdnlStep"_s);
        return DpclnkLibrary::DPCdnlStep(count);
    }
    Status DPCuplStep(qint32& count) override {
        endAtMoment_.before(u"DPCuplStep"_s);
        return DpclnkLibrary::DPCuplStep(count);
    }

  private:
    EndAtMoment& endAtMoment_;
};

class MortalLink3 final : public Dpclnk3Library {
  public:
    explicit MortalLink3(EndAtMoment& doom) : endAtMoment_(doom) {}
    Status DPC3mapStep(qint32& count) override {
        endAtMoment_.before(u"DPC3mapStep"_s);
        return Dpclnk3Library::DPC3mapStep(count);
    }
    Status DPC3dnlStep(qint32& count, qint32& kept1, qint32& kept2, qint32& kept3) override {
        endAtMoment_.before(u"DPC3dnlStep"_s);
        return Dpclnk3Library::DPC3dnlStep(count, kept1, kept2, kept3);
    }
    Status DPC3uplStep(qint32& count) override {
        endAtMoment_.before(u"DPC3uplStep"_s);
        return Dpclnk3Library::DPC3uplStep(count);
    }

  private:
    EndAtMoment& endAtMoment_;
};

/// What the command is carried out with.
struct Arguments {
    QString source;
    QString device;
    int moment = 0;
    QString calibrator;
    QStringList instruments;
};

int carryOut(const Arguments& arguments) {
    EndAtMoment doom(arguments.moment);
    QuietOperator ui;
    const SystemClock clock;
    ConnectedWorkstation workplace(ui, clock, arguments.source, arguments.device, [&doom] {
        return std::make_unique<MortalConnection>(odbcConnections()(), doom);
    });
    workplace.start();
    workplace.settings.setValue(u"Defaults"_s, u"LastUploadCalibrator"_s, arguments.calibrator);
    MortalConnection::awake = true;
    MortalPort port(workplace.line, doom);
    MortalLink link(doom);
    MortalLink3 link3(doom);
    Calibrators calibrators{workplace.session, {port, link, link3}};
    if (arguments.instruments.isEmpty()) {
        ModuleGlobals::UploadFromCalibrator(calibrators);
    } else {
        ScriptedScreen screen;
        screen.name = arguments.calibrator;
        screen.list = arguments.instruments;
        downloadList(calibrators, screen);
    }
    for (const auto& complaint : std::as_const(ui.reportedErrors))
        std::fprintf(stderr, "%s\n", qPrintable(complaint));
    return ui.reportedErrors.isEmpty() ? 0 : 1;
}

} // namespace

} // namespace kelvane::testing

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const auto arguments = QCoreApplication::arguments();
    if (arguments.size() < 5)
        return 2;
    return kelvane::testing::carryOut(
        {arguments[1], arguments[2], arguments[3].toInt(), arguments[4], arguments.mid(5)});
}
