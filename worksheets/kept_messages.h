#pragma once

#include "platform/silent_user_interface.h"

namespace kelvane {

/// An operator for routines that run unseen: it shows nothing, asks nothing, and keeps the message boxes.
class KeptMessages final : public SilentUserInterface {
  public:
    /// The texts of the boxes, in order.
    QStringList texts;

    BoxAnswer messageBox(const QString& text, const QString&, BoxStyle style) override {
        texts << text;
        if (style.buttons == BoxButtons::ok)
            return BoxAnswer::ok;
        return style.buttons == BoxButtons::yesNo ? BoxAnswer::no : BoxAnswer::cancel;
    }
    QString askOneField(const DialogQuestion&) override { return cancelled; }
};

} // namespace kelvane
