#include "demo/demonstration.h"

#include "demo/records.h"
#include "simulators/torquestar/pitfalls.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::demo {

namespace {

const QString torqueStar = u"Crane TorqueStar IVc"_s;
const QString downloadTitle = u"Download Procedures To Calibrator"_s;
const QString uploadTitle = u"Upload Test Results From Calibrator"_s;

Person::OnBox noBox() {
    return {};
}

Person::OnDialog noDialog() {
    return {};
}

/// Presses `button` on the box with that title and the beginning of that text.
Person::OnBox box(const QString& expectedTitle, const QString& beginning, const QString& button) {
    return [=](const QString& title, const QString& text) -> std::optional<QString> {
        if (title == expectedTitle && text.startsWith(beginning))
            return button;
        return {};
    };
}

std::optional<QString> chooseCalibrator(const QString& caption, const QString& expectedCaption) {
    if (caption == expectedCaption)
        return torqueStar;
    return {};
}

/// What a person types who is asked for the standards of an instrument: the right one, and then nothing more.
class StandardsOfTools {
  public:
    /// `first` is named before the right one: a standard that has to be refused.
    explicit StandardsOfTools(const QString& first = {}) : first_(first) {}

    std::optional<QString> operator()(const QString& caption, const QString& prompt) {
        if (prompt != u"Standard to be used for this calibration:")
            return {};
        for (const auto& tool : tools()) {
            if (caption != tool.asset + u": External Standard Required"_s)
                continue;
            if (!first_.isEmpty())
                return std::exchange(first_, {});
            return asked_.contains(tool.asset) ? QString() : (asked_ << tool.asset, tool.standard);
        }
        return {};
    }

  private:
    QString first_;
    QStringList asked_;
};

/// The latest day before today whose date comes over the line unharmed.
QDate latestWorkDay() {
    auto day = QDate::currentDate().addDays(-1);
    while (simulators::losesDigit(day.year() * 10000 + day.month() * 100 + day.day()))
        day = day.addDays(-1);
    return day;
}

std::optional<QString> recordEntry(const QString& caption, const QString& prompt) {
    if (!caption.startsWith(u"Calibration Record Data ("))
        return {};
    if (prompt == u"Please enter information for: Place of Calibration")
        return u"IN PLACE"_s;
    if (prompt == u"Please enter information for: Ambient Temperature (C)")
        return u"21.5"_s;
    return {};
}

} // namespace

Demonstration::Demonstration(WorkstationProgram& program, Calibrator& calibrator, const QString& pictures)
    : program_(program),
      calibrator_(calibrator),
      person_(program.window, pictures),
      workDay_(latestWorkDay()) {}

void Demonstration::run() {
    logIn();
    configureCalibrator();
    listInstruments();
    download();
    carryOut();
    upload();
    checkRecords(*program_.session.SharedConnection, workDay_);
    logOut();
}

QWidget& Demonstration::child(const QString& name) {
    for (auto* one : program_.window.area().subWindowList()) {
        if (one->objectName() == name)
            return *one;
    }
    throw Difference(u"the screen %1 is not open"_s.arg(name));
}

void Demonstration::press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    // Shortcuts belong to the active window; offscreen, nothing gives that place back when a box has closed.
    program_.window.activateWindow();
    if (!QTest::qWaitForWindowActive(&program_.window))
        throw Difference(u"the main window did not become active"_s);
    QTest::keyClick(&program_.window, key, modifiers);
}

void Demonstration::logIn() {
    person_.step(u"start, up to the login screen"_s, noBox(), noDialog(), [this] { program_.start(); });
    lookAtDataSources();
    const auto type = [this](const QString& password) {
        auto& form = child(u"FormConnect"_s);
        auto& user = control<QLineEdit>(form, u"TextUsername"_s);
        user.selectAll();
        QTest::keyClicks(&user, u"jdoe"_s);
        QTest::keyClicks(&control<QLineEdit>(form, u"TextPassword"_s), password);
        QTest::mouseClick(&control<QPushButton>(form, u"CommandConnect"_s), Qt::LeftButton);
    };
    person_.step(u"log in with a wrong password: refused"_s,
                 box(u"Kelvane"_s, u"Database connection Failed!"_s, u"OK"_s), noDialog(),
                 [&] { type(u"guess"_s); });
    person_.step(u"log in as jdoe"_s, noBox(), noDialog(), [&] { type(u"kelvane"_s); });
    if (!program_.session.SessionConnected)
        throw Difference(u"the login did not connect"_s);
}

void Demonstration::lookAtDataSources() {
    person_.step(u"look at the data sources"_s, noBox(), noDialog(),
                 [this] { press(Qt::Key_D, Qt::ControlModifier); });
    const auto chosen = control<QComboBox>(child(u"FormODBC"_s), u"ComboDatasource"_s).currentText();
    if (chosen != u"Calibration Data")
        throw Difference(u"the data source is "_s + chosen);
    child(u"FormODBC"_s).close();
}

void Demonstration::configureCalibrator() {
    person_.step(u"set the line of the torque calibrator"_s, noBox(), noDialog(), [this] {
        press(Qt::Key_O, Qt::ControlModifier);
        auto& form = child(u"FormCalConfig"_s);
        QTest::keyClicks(&control<QComboBox>(form, u"ComboCalibrator"_s), u"Crane"_s);
        // One step down to 19200, and back to 9600.
        auto& baud = control<QComboBox>(form, u"ComboBaudRate"_s);
        QTest::keyClick(&baud, Qt::Key_Down);
        QTest::keyClick(&baud, Qt::Key_Up);
    });
    child(u"FormCalConfig"_s).close();
    const auto stored = program_.session.settings.value(torqueStar, u"BaudRate"_s);
    if (stored != u"9600")
        throw Difference(u"the stored baud rate is "_s + stored);
}

void Demonstration::add(const QString& entry) {
    auto& form = child(u"FormDockingDown"_s);
    QTest::keyClicks(&control<QLineEdit>(form, u"TextAdd"_s), entry);
    QTest::mouseClick(&control<QPushButton>(form, u"CommandAdd"_s), Qt::LeftButton);
}

void Demonstration::listInstruments() {
    person_.step(
        u"choose the calibrator"_s, noBox(),
        [](const QString& caption, const QString&) { return chooseCalibrator(caption, u"Download"_s); },
        [this] { press(Qt::Key_F1); });
    person_.step(u"add TW-101 with its transducer"_s, noBox(), StandardsOfTools(),
                 [this] { add(u"TW-101"_s); });
    person_.step(u"add TW-102; its first standard is overdue and refused"_s,
                 box(u"External Standard Required"_s, u"Standard is overdue for calibration!"_s, u"OK"_s),
                 StandardsOfTools(u"TT-0200F"_s), [this] { add(u"TW-102"_s); });
    person_.step(u"add HW-701: a torque calibrator can't take it"_s,
                 box(downloadTitle, u"HW-701: TorqueStar cannot accept selected input units!"_s, u"OK"_s),
                 noDialog(), [this] { add(u"HW-701"_s); });
    person_.step(u"add the task package TORQUE CREW A"_s, noBox(), StandardsOfTools(),
                 [this] { add(u"TORQUE CREW A"_s); });
    person_.look(u"FormDockingDown"_s);
    const auto rows = control<QListWidget>(child(u"FormDockingDown"_s), u"ListCal"_s).count();
    if (rows != tools().size())
        throw Difference(u"the list holds %1 instruments"_s.arg(rows));
}

void Demonstration::download() {
    person_.step(u"download over the serial line"_s, box(downloadTitle, u"Download Successful"_s, u"OK"_s),
                 noDialog(), [this] {
                     QTest::mouseClick(
                         &control<QPushButton>(child(u"FormDockingDown"_s), u"CommandDownload"_s),
                         Qt::LeftButton);
                 });
}

void Demonstration::carryOut() {
    person_.step(u"carry out in the plant"_s, noBox(), noDialog(), [this] {
        QByteArray plan;
        const auto day = workDay_.toString(u"yyyy-MM-dd"_s);
        for (const auto& tool : tools())
            plan += u"%1; %2; %3; %4 08:00\n"_s.arg(tool.asset, tool.plan, tool.comment, day).toUtf8();
        calibrator_.carryOut(plan);
    });
}

void Demonstration::upload() {
    person_.step(
        u"upload and complete the records"_s, box(uploadTitle, u"Upload Successful"_s, u"OK"_s),
        [](const QString& caption, const QString& prompt) {
            const auto calibrator = chooseCalibrator(caption, uploadTitle);
            return calibrator ? calibrator : recordEntry(caption, prompt);
        },
        [this] { press(Qt::Key_F2); });
}

void Demonstration::logOut() {
    person_.step(u"log out"_s, noBox(), noDialog(), [this] { press(Qt::Key_L, Qt::ControlModifier); });
    person_.step(u"exit"_s, box(u"Kelvane"_s, u"Are you sure you want to exit?"_s, u"Yes"_s), noDialog(),
                 [this] {
                     QTest::mouseClick(&control<QPushButton>(child(u"FormConnect"_s), u"CommandCancel"_s),
                                       Qt::LeftButton);
                 });
}

} // namespace kelvane::demo
