#pragma once

#include "drivers/fluke702/status_rule.h"
#include "platform/values/fixed_list.h"

namespace kelvane::Module702Interface {

/// A test message as it lies on the calibrator.
struct Prompt702 {
    QString pname;
    QString prompt;
    /// "PRE" before the test, "PST" after it.
    QString prompt_type;
    /// Ten characters by which a task refers to the message.
    QString key;
};

/// The test messages of one instrument.
class DownloadPrompts {
  public:
    /// Reads the messages of an asset, expands their macros and defines them on the calibrator, empty ones
    /// too. False when a status ended it. Error 9 at the 52nd message.
    bool define(Fluke702& driver, StatusRule& rule, const QString& asset);
    /// Puts every message for before the test into the task in hand.
    bool placeBefore(Dpclnk& link, StatusRule& rule) const;
    /// Puts the first message for after the test into the task in hand; no task refers to a second one.
    bool placeAfter(Dpclnk& link, StatusRule& rule) const;

  private:
    FixedList<Prompt702, 50> prompts_;
    int count_ = 0;
};

} // namespace kelvane::Module702Interface
