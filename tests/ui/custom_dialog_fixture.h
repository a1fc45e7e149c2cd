#pragma once

#include "testkit/program_fixture.h"
#include "ui/form_custom_dialog.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace kelvane::testing {

/// The dialog in the running program, and what is done with it while it is open.
class CustomDialogTest : public ProgramTest {
  protected:
    /// The controls of the dialog.
    struct Controls {
        explicit Controls(FormCustomDialog& dialog)
            : prompt(control<QLabel>(dialog, QStringLiteral("LabelCustomDialog"))),
              field(control<QLineEdit>(dialog, QStringLiteral("TextCustomDialog"))),
              list(control<QComboBox>(dialog, QStringLiteral("ComboCustomDialog"))),
              ok(control<QPushButton>(dialog, QStringLiteral("CommandCustomDialogOK"))),
              cancel(control<QPushButton>(dialog, QStringLiteral("CommandCustomDialogCancel"))) {}
        QLabel& prompt;
        QLineEdit& field;
        QComboBox& list;
        QPushButton& ok;
        QPushButton& cancel;
    };

    CustomDialogTest() { startLoggedIn(4); }

    QString ask(const DialogQuestion& question) { return program.ui.askOneField(question); }
    static DialogQuestion textQuestion(bool required = true, qint16 fieldType = 0) {
        return {.caption = QStringLiteral("A caption"),
                .prompt = QStringLiteral("A prompt:"),
                .required = required,
                .fieldType = fieldType};
    }
    static DialogQuestion listQuestion(const QStringList& choices, const QString& start = {},
                                       bool required = true) {
        return {.caption = QStringLiteral("A caption"),
                .prompt = QStringLiteral("A prompt:"),
                .required = required,
                .fromList = true,
                .choices = choices,
                .defaultText = start};
    }
    void meet(const std::function<void(FormCustomDialog&, Controls)>& act) {
        simulatedOperator.expectDialog(QStringLiteral("A caption"), QStringLiteral("A prompt:"),
                                       [act](FormCustomDialog& dialog) { act(dialog, Controls(dialog)); });
    }

    const QString title = QStringLiteral("Kelvane");
};

} // namespace kelvane::testing
