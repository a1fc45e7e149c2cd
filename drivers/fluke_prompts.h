#pragma once

#include "data/session.h"
#include "platform/values/fixed_list.h"

#include <functional>

namespace kelvane {

/// A test message as it lies on a Fluke calibrator.
struct FlukePrompt {
    QString pname;
    QString prompt;
    /// "PRE" before the test, "PST" after it.
    QString prompt_type;
    /// Ten characters by which a task refers to the message.
    QString key;
};

/// The test messages of one instrument.
struct FlukePrompts {
    FixedList<FlukePrompt, 50> list;
    int count = 0;

    /// Reads the messages of an asset, expands their macros and gives each a key and then to `take`, empty
    /// ones too. False as soon as `take` gives false. Error 9 at the 52nd message.
    bool read(Session& session, const QString& asset, const std::function<bool(const FlukePrompt&)>& take);
};

} // namespace kelvane
