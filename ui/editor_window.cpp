#include "ui/editor_window.h"

#include "resources/strings.h"

namespace kelvane {

bool EditorWindow::confirms(const Question& question) {
    return session_.ui.messageBox(text(question.text), text(question.title), question.style) ==
           BoxAnswer::yes;
}

EditorWindow::Question EditorWindow::closeQuestion() const {
    return {167, box::warningYesNo, 101};
}

} // namespace kelvane
