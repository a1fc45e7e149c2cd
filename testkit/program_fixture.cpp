#include "testkit/program_fixture.h"

#include "resources/strings.h"
#include "resources/text_id.h"
#include "ui/child_window.h"
#include "ui/form_custom_dialog.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QMdiArea>
#include <QTest>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

void MissingPort::setPortOpen(bool open) {
    if (open)
        throw makeError(ErrorNumber::pathFileAccess);
}

ProgramTest::ProgramTest(bool worksheets)
    : program(clock, settings, [this] { return connections(); }, links,
              {
                  .dataSources = [this] { return dataSources; },
                  .commandLine = u"kelvane"_s,
                  .worksheets = worksheets,
                  .endProcess = [this] { atEnd(); },
              }) {
    script.open = false;
    folder.write(u"rslt_db.frm"_s, "# a result template\nFN NM AP\n");
}

ProgramTest::~ProgramTest() = default;

void ProgramTest::start() {
    program.start();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&program.window));
}

void ProgramTest::answerLogin(const QString& user, const QString& owner, const QString& level,
                              const QString& procedit) {
    script.answers.insert(u"select (select i4240 from mt.userlist where mtuser = '"_s + user +
                              u"'),(select mtlevel  from mt.userlist where mtuser = '"_s + user + u"')"_s,
                          {Row{owner, level}});
    script.answers.insert(u"select datecode,version,b_cal_4225,b_cal_4224,b_cal_p from mt.dbconfig"_s,
                          {Row{u"0"_s, u"6"_s, u"0"_s, u"0"_s, u"0"_s}});
    script.answers.insert(u"select procedit from mt.dbconfig"_s, {Row{procedit}});
}

void ProgramTest::typeLogin(const QString& user, const QString& password) {
    auto& form = child(u"FormConnect"_s);
    auto& name = control<QLineEdit>(form, u"TextUsername"_s);
    auto& secret = control<QLineEdit>(form, u"TextPassword"_s);
    name.clear();
    secret.clear();
    QTest::keyClicks(&name, user);
    QTest::keyClicks(&secret, password);
    QTest::keyClick(&secret, Qt::Key_Return);
}

void ProgramTest::startLoggedIn(int level) {
    answerLogin(u"jdoe"_s, u"MT"_s, QString::number(level));
    start();
    typeLogin(u"jdoe"_s, u"secret"_s);
    ASSERT_TRUE(session.SessionConnected);
    script.statements.clear();
    settings.writes.clear();
}

QAction* ProgramTest::action(const QString& entry) {
    auto* found = program.window.findChild<QAction*>(entry);
    if (!found)
        throw std::runtime_error("no menu entry " + entry.toStdString());
    return found;
}

void ProgramTest::choose(const QString& entry) {
    action(entry)->trigger();
}

void ProgramTest::pressKeys(const QString& shortcut) {
    const auto keys = QKeySequence(shortcut)[0];
    auto* focused = QApplication::focusWidget();
    QTest::keyClick(focused ? focused : &program.window, keys.key(), keys.keyboardModifiers());
}

ChildWindow* ProgramTest::findChild(const QString& name) {
    for (auto* sub : program.window.area().subWindowList()) {
        auto* found = qobject_cast<ChildWindow*>(sub);
        if (found && found->isOpen() && found->objectName() == name)
            return found;
    }
    return nullptr;
}

ChildWindow& ProgramTest::child(const QString& name) {
    if (auto* found = findChild(name))
        return *found;
    const auto message =
        "no window " + name.toStdString() + " among: " + openChildren().join(u' ').toStdString();
    ADD_FAILURE() << message;
    throw std::runtime_error(message);
}

QStringList ProgramTest::openChildren() {
    QStringList names;
    for (auto* sub : program.window.area().subWindowList()) {
        if (auto* found = qobject_cast<ChildWindow*>(sub); found && found->isOpen())
            names << found->objectName();
    }
    return names;
}

void ProgramTest::cancel(FormCustomDialog& dialog) {
    simulatedOperator.expectBox(text(TextId::confirmCancel), u"Kelvane"_s, box::warningYesNo, BoxAnswer::yes);
    dialog.close();
}

void ProgramTest::expectCancelledDialog(const QString& caption, const QString& prompt) {
    simulatedOperator.expectDialog(caption, prompt, [this](FormCustomDialog& dialog) { cancel(dialog); });
}

void ProgramTest::expectDiscard(BoxAnswer answer) {
    simulatedOperator.expectBox(text(TextId::confirmDiscardSinceSave), u"Kelvane"_s, box::warningYesNo,
                                answer);
}

} // namespace kelvane::testing
