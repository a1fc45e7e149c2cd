#include "demo/demo_workstation.h"

#include <QDir>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace kelvane::demo {

DemoWorkstation::DemoWorkstation(WorkstationProgram& workstation, const QString& pictures)
    : program(workstation),
      simulatedOperator([this](const QString& description) { reportedErrors_ << description; }),
      pictures_(pictures) {
    QDir().mkpath(pictures_);
    simulatedOperator.onShown = [this](QWidget& widget) {
        if (qobject_cast<QMessageBox*>(&widget))
            takePicture(widget, u"box"_s);
        else
            takePicture(program.window, widget.objectName());
    };
}

void DemoWorkstation::takePicture(QWidget& widget, const QString& name) {
    const auto file = u"%1/%2-%3.png"_s.arg(pictures_).arg(++taken_, 3, 10, QChar(u'0')).arg(name);
    if (!widget.grab().save(file))
        reportedErrors_ << u"the picture %1 could not be written"_s.arg(file);
}

void DemoWorkstation::step(const QString& description, const std::function<void()>& act) {
    std::printf("- %s\n", qPrintable(description));
    std::fflush(stdout);
    act();
    QCoreApplication::processEvents();
    simulatedOperator.reportMissing();
    if (!reportedErrors_.isEmpty())
        throw Difference(description + u": "_s + reportedErrors_.join(u"; "_s));
}

QWidget& DemoWorkstation::child(const QString& name) {
    for (auto* subWindow : program.window.area().subWindowList()) {
        if (subWindow->objectName() == name)
            return *subWindow;
    }
    throw Difference(u"the screen %1 is not open"_s.arg(name));
}

void DemoWorkstation::press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    // Shortcuts belong to the active window; offscreen, nothing gives that place back when a box has closed.
    program.window.activateWindow();
    if (!QTest::qWaitForWindowActive(&program.window))
        throw Difference(u"the main window did not become active"_s);
    QTest::keyClick(&program.window, key, modifiers);
}

void DemoWorkstation::expectChoice(const QString& title, const QString& calibrator) {
    simulatedOperator.expectDialog(title, text(TextId::selectCalibratorToUse), calibrator);
}

void DemoWorkstation::expectStandard(const QString& asset, const QString& standard) {
    simulatedOperator.expectDialog(asset + u": "_s + text(TextId::externalStandardRequired),
                                   text(TextId::standardToUse), standard);
}

void DemoWorkstation::expectRecord(const QString& asset) {
    const auto caption = recordQuestion(asset);
    simulatedOperator.expectDialog(caption, fieldQuestion(u"Place of Calibration"_s), u"IN PLACE"_s);
    simulatedOperator.expectDialog(caption, fieldQuestion(u"Ambient Temperature (C)"_s), u"21.5"_s);
}

void DemoWorkstation::openDownloadList(const QString& calibrator) {
    expectChoice(text(TextId::downloadCommand), calibrator);
    step(u"choose the calibrator %1"_s.arg(calibrator), [this] { press(Qt::Key_F1); });
}

void DemoWorkstation::add(const QString& description, const QString& entry) {
    step(description, [&] {
        auto& form = child(u"FormDockingDown"_s);
        QTest::keyClicks(&control<QLineEdit>(form, u"TextAdd"_s), entry);
        click(control<QPushButton>(form, u"CommandAdd"_s));
    });
}

void DemoWorkstation::expectList(const QStringList& rows) {
    takePicture(u"FormDockingDown"_s);
    const auto& list = control<QListWidget>(child(u"FormDockingDown"_s), u"ListCal"_s);
    QStringList found;
    for (int row = 0; row < list.count(); ++row)
        found << list.item(row)->text();
    if (found != rows)
        throw Difference(u"the list holds "_s + found.join(u", "_s));
}

void DemoWorkstation::download() {
    simulatedOperator.expectBox(text(TextId::downloadSuccessful), downloadTitle(), box::information);
    step(u"download"_s,
         [this] { click(control<QPushButton>(child(u"FormDockingDown"_s), u"CommandDownload"_s)); });
}

void DemoWorkstation::upload(const QString& description) {
    simulatedOperator.expectBox(text(TextId::uploadSuccessful), uploadTitle(), box::information);
    step(description, [this] { press(Qt::Key_F2); });
}

} // namespace kelvane::demo
