#pragma once

#include "testkit/quiet_operator.h"

namespace kelvane::testing {

/// Answers each dialog with the next entry, and each box with `answer` where that is a button; keeps the
/// boxes and how many of them were error reports.
class AnsweringOperator final : public QuietOperator {
  public:
    BoxAnswer messageBox(const QString& text, const QString& title, BoxStyle style) override {
        QuietOperator::messageBox(text, title, style);
        boxes << text;
        reports += style.icon == BoxIcon::stop ? 1 : 0;
        return style.buttons == BoxButtons::yesNo ? answer : BoxAnswer::ok;
    }
    QString askOneField(const DialogQuestion&) override {
        return entries.isEmpty() ? cancelled : entries.takeFirst();
    }

    QStringList entries;
    QStringList boxes;
    int reports = 0;
    BoxAnswer answer = BoxAnswer::yes;
};

} // namespace kelvane::testing
