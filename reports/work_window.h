#pragma once

#include <QProgressDialog>

namespace kelvane {

/// Shows how far long work is, once it takes a while. The user may end the work there, or has to wait for its
/// end.
class WorkWindow final : public QProgressDialog {
  public:
    WorkWindow(const QString& title, qsizetype steps, bool canBeEnded, QWidget* parent);
    void reject() override;

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    bool canBeEnded_;
};

} // namespace kelvane
