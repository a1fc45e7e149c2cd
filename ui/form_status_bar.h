#pragma once

#include "ui/child_window.h"

class QProgressBar;

namespace kelvane {

class ElidedLabel;

/// The progress window of long actions. The user can't close it; who opened it unloads it.
class FormStatusBar final : public ChildWindow {
    Q_OBJECT
  public:
    explicit FormStatusBar(Session& session);

    void setStatus(const QString& text);
    /// Percentage; values beyond 0 to 100 are cut.
    void setValue(int percent);

  private:
    bool mayClose() override { return false; }

    ElidedLabel* LabelStatus;
    QProgressBar* ProgressBar;
};

} // namespace kelvane
