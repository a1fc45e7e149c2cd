#include "app/display_check.h"

#include "platform/program_options.h"

#include <QtGlobal>

#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// What was said before it is clear whether there is a display. The toolkit's handler has no place for it.
QStringList& heldBack() {
    static QStringList messages;
    return messages;
}

/// The name before the sentence.
QString& checkedProgram() {
    static QString name;
    return name;
}

/// `words` are the toolkit's own about the platform that it has tried first.
QString reason(const QString& words) {
    if (!words.contains("could not connect to display"_L1))
        return u"no window can be opened: "_s + words;
    const auto display = qEnvironmentVariable("DISPLAY");
    return display.isEmpty()
               ? u"there is no display; start it on a desktop"_s
               : u"the display %1 can't be opened; start it on a desktop of your own"_s.arg(display);
}

void hold(QtMsgType type, const QMessageLogContext&, const QString& message) {
    // The toolkit aborts behind its fatal message.
    if (type == QtFatalMsg)
        std::_Exit(
            writeAnswer(checkedProgram(), {reason(heldBack().value(0, message).section(u'\n', 0, 0)), 1}));
    heldBack() << message;
}

} // namespace

DisplayCheck::DisplayCheck(const QString& program) {
    checkedProgram() = program;
    qInstallMessageHandler(hold);
}

DisplayCheck::~DisplayCheck() {
    qInstallMessageHandler(nullptr);
    for (const auto& message : heldBack())
        std::fprintf(stderr, "%s\n", qPrintable(message));
    heldBack().clear();
}

} // namespace kelvane
