#pragma once

#include "testkit/scripted_user_interface.h"

namespace kelvane::testing {

inline const QString entryTitle = QStringLiteral("Enter Test Results From Worksheet(s)");
inline const QString standardsTitle = QStringLiteral("Standards Used");

using QuestionCheck = std::function<void(const DialogQuestion&)>;

/// The questions of the worksheet entry that are to come, with their answers.
class WorksheetQuestions {
  public:
    explicit WorksheetQuestions(ScriptedUserInterface& ui) : ui_(ui) {}

    void instrument(const QString& answer, const QuestionCheck& check = {}) {
        ui_.expectDialog(entryTitle, QStringLiteral("Enter instrument #: (or press CANCEL to quit)"), answer,
                         check);
    }
    void field(const QString& asset, const QString& title, const QString& answer,
               const QuestionCheck& check = {}) {
        ui_.expectDialog(QStringLiteral("Calibration Record Data (") + asset + QLatin1Char(')'),
                         QStringLiteral("Please enter information for: ") + title, answer, check);
    }
    void standard(const QString& answer, const QuestionCheck& check = {}) {
        ui_.expectDialog(standardsTitle, QStringLiteral("Enter standard used:"), answer, check);
    }
    /// An empty answer ends the standards.
    void noMoreStandards() { standard({}); }
    void warning(const QString& text, const QString& title) { ui_.expectBox(text, title, box::warning); }
    /// The operator gives a field up.
    void cancelledField(const QString& asset, const QString& title) {
        field(asset, title, cancelled);
        ui_.expectBox(QStringLiteral("Required field - must provide an entry!"),
                      QStringLiteral("Calibration Record Data"), box::warningOkCancel, BoxAnswer::cancel);
    }

  private:
    ScriptedUserInterface& ui_;
};

} // namespace kelvane::testing
