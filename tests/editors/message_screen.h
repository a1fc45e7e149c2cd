#pragma once

#include "testkit/program_screen.h"
#include "tests/editors/questions.h"
#include "ui/text_box.h"

namespace kelvane::testing {

inline const QString messagesTitle = QStringLiteral("Create/Edit Test Messages");
inline const QString selectNames = QStringLiteral("select pname from mt.hvm_kv_prompts");

/// The editor of test messages, on a workstation whose database has the messages "PERMIT" ("Get a permit.")
/// and "LABEL" (without a text), until `setMessages` says otherwise.
class MessageScreen : public ProgramScreen {
  protected:
    MessageScreen();
    using Message = std::pair<QString, std::optional<QString>>;
    void setMessages(const QList<Message>& messages);
    static QString selectPrompt(const QString& name);
    static QString updatePrompt(const QString& value, const QString& name);

    QComboBox& names() { return controlNamed<QComboBox>(QStringLiteral("ComboMessageName")); }
    TextBox& message() { return controlNamed<TextBox>(QStringLiteral("TextMessage")); }
    /// Types at the end of the text; the focus is put there without a word.
    void type(const QString& text);
    /// Clicks into the text, and lets the question come that this may bring.
    void enterMessage();
    QStringList rows() { return choicesOf(names()); }
    /// The names of the buttons that are enabled, in their order on the screen.
    QStringList enabled();
    /// The dialog of a new message, answered.
    void expectName(const QString& name);
    void cancelDialog();
};

} // namespace kelvane::testing
