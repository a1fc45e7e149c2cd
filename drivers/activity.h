#pragma once

#include "platform/user_interface.h"

namespace kelvane {

/// Shows in the status line, for the time of a block, what a long command without a window of its own is
/// doing.
class Activity {
  public:
    explicit Activity(UserInterface& ui) : ui_(ui) {}
    ~Activity() {
        if (isShown_)
            ui_.setActivity({});
    }
    Activity(const Activity&) = delete;
    Activity& operator=(const Activity&) = delete;

    void show(const QString& text) {
        isShown_ = true;
        ui_.setActivity(text);
    }

  private:
    UserInterface& ui_;
    bool isShown_ = false;
};

} // namespace kelvane
