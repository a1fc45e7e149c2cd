#pragma once

#include "drivers/fluke_download_item.h"

namespace kelvane::Module74xInterface {

/// One instrument of a download in the words of the Fluke 743 and 744.
struct Task74x : FlukeDownloadItem {
    /// How the calibrator works out the error: "Normal", or "UEV" and the sides whose values a user enters.
    QString errorMode = QStringLiteral("Normal");
};

/// Who supplies the values of the two sides. Once a side is a user's it stays so for the rest of the list.
struct EnteredSides {
    bool measure = false;
    bool source = false;
};

/// Reads an instrument's parameters and puts them into the calibrator's terms. The tolerance stays empty.
Task74x gatherTask(Session& session, const AssetEntry& entry);

/// Completes the task's values: the usual words for what is empty, ranges in base units for a side that isn't
/// indicated, and a voltage channel for a side whose values a user enters. Error 6 for a range that is no
/// number.
void prepareTask(Task74x& task, EnteredSides& entered);

} // namespace kelvane::Module74xInterface
