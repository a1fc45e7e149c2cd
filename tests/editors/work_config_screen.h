#pragma once

#include "editors/form_work_config.h"
#include "testkit/screen_window.h"

#include <QCheckBox>

namespace kelvane::testing {

/// The configuration of calibration records in a window of its own.
class WorkConfigScreen : public EditorScreen<FormWorkConfig> {
  public:
    QListWidget& available() { return controlNamed<QListWidget>(QStringLiteral("ListAvail")); }
    QListWidget& requested() { return controlNamed<QListWidget>(QStringLiteral("ListRequest")); }
    QCheckBox& overdue() { return controlNamed<QCheckBox>(QStringLiteral("CheckOOC")); }
    QCheckBox& poorTrace() { return controlNamed<QCheckBox>(QStringLiteral("CheckTrace")); }
};

} // namespace kelvane::testing
