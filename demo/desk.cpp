#include "demo/desk.h"

#include <QLineEdit>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::demo {

Person::OnDialog choice(const QString& caption, const QString& calibrator) {
    return [=](const QString& asked, const QString& prompt) -> std::optional<QString> {
        if (asked == caption && prompt == u"Select Calibrator To Use:")
            return calibrator;
        return {};
    };
}

Person::OnDialog recordEntries(const QString& calibrator) {
    return [chosen = choice(uploadTitle, calibrator)](const QString& caption,
                                                      const QString& prompt) -> std::optional<QString> {
        if (const auto calibratorToUse = chosen(caption, prompt))
            return calibratorToUse;
        if (!caption.startsWith(u"Calibration Record Data ("_s))
            return {};
        if (prompt == u"Please enter information for: Place of Calibration")
            return u"IN PLACE"_s;
        if (prompt == u"Please enter information for: Ambient Temperature (C)")
            return u"21.5"_s;
        return {};
    };
}

QWidget& Desk::child(const QString& name) {
    for (auto* one : program.window.area().subWindowList()) {
        if (one->objectName() == name)
            return *one;
    }
    throw Difference(u"the screen %1 is not open"_s.arg(name));
}

void Desk::press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    // Shortcuts belong to the active window; offscreen, nothing gives that place back when a box has closed.
    program.window.activateWindow();
    if (!QTest::qWaitForWindowActive(&program.window))
        throw Difference(u"the main window did not become active"_s);
    QTest::keyClick(&program.window, key, modifiers);
}

void Desk::openDownloadList(const QString& calibrator) {
    person.step(u"choose the calibrator %1"_s.arg(calibrator), {}, choice(u"Download"_s, calibrator),
                [this] { press(Qt::Key_F1); });
}

void Desk::add(const QString& entry) {
    auto& form = child(u"FormDockingDown"_s);
    QTest::keyClicks(&control<QLineEdit>(form, u"TextAdd"_s), entry);
    QTest::mouseClick(&control<QPushButton>(form, u"CommandAdd"_s), Qt::LeftButton);
}

void Desk::expectList(const QStringList& rows) {
    person.look(u"FormDockingDown"_s);
    const auto& list = control<QListWidget>(child(u"FormDockingDown"_s), u"ListCal"_s);
    QStringList found;
    for (int row = 0; row < list.count(); ++row)
        found << list.item(row)->text();
    if (found != rows)
        throw Difference(u"the list holds "_s + found.join(u", "_s));
}

void Desk::download() {
    person.step(u"download"_s, {{downloadTitle, u"Download Successful"_s}}, {}, [this] {
        QTest::mouseClick(&control<QPushButton>(child(u"FormDockingDown"_s), u"CommandDownload"_s),
                          Qt::LeftButton);
    });
}

void Desk::upload(const QString& told, const QString& calibrator, QList<Person::Box> boxes) {
    boxes << Person::Box{uploadTitle, u"Upload Successful"_s};
    person.step(told, boxes, recordEntries(calibrator), [this] { press(Qt::Key_F2); });
}

} // namespace kelvane::demo
