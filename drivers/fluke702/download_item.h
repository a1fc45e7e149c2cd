#pragma once

#include "drivers/fluke_download_item.h"

namespace kelvane::Module702Interface {

/// One instrument of a download in the words of the Fluke 702: temperatures in "celsius" or "fahrenheit", a
/// cold junction that it can "measure" or that the "user" gives, and so on.
struct Download702Item : FlukeDownloadItem {
    /// Given by the library; 0 for an instrument whose points make no strategy.
    qint32 strategyId = 0;
    qint32 stateId = 0;
};

/// Reads an instrument's parameters and puts them into the calibrator's terms. What the library gives and the
/// tolerance stay empty.
Download702Item gatherItem(Session& session, const AssetEntry& entry);

} // namespace kelvane::Module702Interface
