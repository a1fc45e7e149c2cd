#include "ui/editor_window.h"

#include "resources/strings.h"
#include "resources/text_id.h"

#include <QPushButton>

namespace kelvane {

bool EditorWindow::confirms(const Question& question) {
    return session_.ui.messageBox(text(question.text), text(question.title), question.style) ==
           BoxAnswer::yes;
}

void EditorWindow::saveCheckSum() {
    savedCheckSum_ = Form_CheckSum();
    unsaved_ = false;
}

bool EditorWindow::runSave(Routine& routine, const std::function<void()>& save,
                           const std::function<void(const Error&)>& refused) {
    std::optional<Error> failure;
    const bool saved = routine.run([&] {
        try {
            save();
        } catch (const Error& error) {
            failure = error;
            markUnsaved();
            throw;
        }
    });
    if (failure)
        refused(*failure);
    return saved;
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
    return {TextId::confirmDiscardSinceSave, box::warningYesNo, TextId::applicationName};
}

} // namespace kelvane
