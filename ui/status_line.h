#pragma once

#include "data/session.h"

#include <QStatusBar>

namespace kelvane {

class ElidedLabel;

/// The line at the foot of the main window: what runs without a window of its own, who is logged in, and to
/// which data source.
class StatusLine final : public QStatusBar {
    Q_OBJECT
  public:
    explicit StatusLine(const Session& session);

    /// Shows who is logged in now, and where.
    void refresh();
    /// Shows at once what runs; empty: nothing does.
    void showActivity(const QString& text);

  private:
    const Session& session_;
    ElidedLabel* LabelActivity;
    ElidedLabel* LabelUser;
    ElidedLabel* LabelDataSource;
};

} // namespace kelvane
