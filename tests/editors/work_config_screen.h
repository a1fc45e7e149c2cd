#pragma once

#include "editors/form_work_config.h"
#include "testkit/screen_window.h"

#include <QCheckBox>

namespace kelvane::testing {

/// The configuration of calibration records in a window of its own.
class WorkConfigScreen : public EditorScreen<FormWorkConfig> {
  public:
    QListWidget& available() { return the<QListWidget>(QStringLiteral("ListAvail")); }
    QListWidget& requested() { return the<QListWidget>(QStringLiteral("ListRequest")); }
    QCheckBox& overdue() { return the<QCheckBox>(QStringLiteral("CheckOOC")); }
    QCheckBox& poorTrace() { return the<QCheckBox>(QStringLiteral("CheckTrace")); }
};

} // namespace kelvane::testing
