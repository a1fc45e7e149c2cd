#include "ui/editor_window.h"

#include "resources/strings.h"

#include <QPushButton>

namespace kelvane {

bool EditorWindow::confirms(const Question& question) {
    return session_.ui.messageBox(text(question.text), text(question.title), question.style) ==
           BoxAnswer::yes;
}

void EditorWindow::run(const std::function<void()>& command) {
    if (running_)
        return;
    running_ = true;
    guarded(session_.ui, command);
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
    return {167, box::warningYesNo, 101};
}

} // namespace kelvane
