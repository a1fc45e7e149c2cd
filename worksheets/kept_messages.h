#pragma once

#include "platform/user_interface.h"

namespace kelvane {

/// An operator for routines that run unseen: it shows nothing, asks nothing, and keeps the message boxes.
class KeptMessages final : public UserInterface {
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
    bool bringQuestionForward() override { return false; }
    void showProgress(const QString&) override {}
    void setProgressText(const QString&) override {}
    void setProgressValue(int) override {}
    void hideProgress() override {}
    void setActivity(const QString&) override {}
    void setBusyPointer() override {}
    void setNormalPointer() override {}
    void processEvents() override {}
    void waitForWindow(const QString&) override {}
    void repaint() override {}
};

} // namespace kelvane
