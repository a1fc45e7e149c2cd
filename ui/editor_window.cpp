#include "ui/editor_window.h"

#include "data/small_routines.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <QPushButton>

namespace kelvane {

bool EditorWindow::confirms(const Question& question) {
    return session_.ui.messageBox(text(question.text), text(question.title), question.style) ==
           BoxAnswer::yes;
}

double EditorWindow::checkSum(const QString& routine, const QString& text) {
    double sum = 0;
    Guard(session_, routine).run([&] { sum = ModuleGlobals::CheckSum(session_, text); });
    return sum;
}

void EditorWindow::saveCheckSum() {
    savedCheckSum_ = Form_CheckSum();
    unsaved_ = false;
}

void EditorWindow::run(const std::function<void()>& command) {
    if (running_)
        return;
    running_ = true;
    runGuarded(session_.ui, command);
    running_ = false;
}

void EditorWindow::onClick(QPushButton* button, const std::function<void()>& command) {
    onCommand(button, &QPushButton::clicked, command);
}

bool EditorWindow::mayClose() {
    bool may = false;
    // The question is a command too: asked to close once more meanwhile, the window does not ask it again.
    run([&] { may = mayDiscard(closeQuestion()); });
    return may;
}

EditorWindow::Question EditorWindow::closeQuestion() const {
    return {TextId::confirmDiscardSinceSave, box::warningYesNo, TextId::applicationName};
}

} // namespace kelvane
