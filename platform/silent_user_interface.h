#pragma once

#include "platform/user_interface.h"

namespace kelvane {

/// An operator interface for work that runs unseen: it shows nothing and waits for nothing. What its boxes
/// and questions answer is left to the derived class.
class SilentUserInterface : public UserInterface {
  public:
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
