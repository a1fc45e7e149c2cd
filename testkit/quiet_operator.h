#pragma once

#include "platform/error.h"
#include "platform/silent_user_interface.h"

namespace kelvane::testing {

/// An operator interface that answers at once and shows nothing: the proposed choice or the first one, the
/// proposed text, or a number. It keeps errors, since the time of work that failed is no measurement.
class QuietOperator : public SilentUserInterface {
  public:
    BoxAnswer messageBox(const QString& text, const QString&, BoxStyle style) override {
        if (style.icon != BoxIcon::information)
            reportedErrors << text;
        return style.buttons == BoxButtons::ok ? BoxAnswer::ok : BoxAnswer::cancel;
    }
    QString askOneField(const DialogQuestion& question) override {
        if (question.fromList && !question.choices.isEmpty())
            return question.choices.contains(question.defaultText) ? question.defaultText
                                                                   : question.choices.first();
        return question.defaultText.isEmpty() ? QStringLiteral("21.5") : question.defaultText;
    }

    QStringList reportedErrors;
};

/// An operator interface that fails while it shows a message about an instrument, and works for the report.
class BrokenNotes final : public QuietOperator {
  public:
    BoxAnswer messageBox(const QString& text, const QString& title, BoxStyle style) override {
        if (style == box::information)
            throw makeError(ErrorNumber::invalidArgument);
        return QuietOperator::messageBox(text, title, style);
    }
};

} // namespace kelvane::testing
