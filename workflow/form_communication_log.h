#pragma once

#include "platform/followed_file.h"
#include "ui/child_window.h"
#include "workflow/calibrators.h"

class QLabel;
class QLineEdit;
class QMdiArea;
class QPlainTextEdit;
class QPushButton;

namespace kelvane {

/// The communication with a calibrator: above, what is known of its port; below, the end of its log, which
/// the window follows until it is told to pause. The log can be searched and saved as far as it is shown. The
/// window may stay open when a user logs out, and shows the port whether or not the log is on.
class FormCommunicationLog final : public ChildWindow {
    Q_OBJECT
  public:
    FormCommunicationLog(Session& session, Calibrators& calibrators, const QString& calibrator);
    ~FormCommunicationLog() override;

    /// Shows another calibrator.
    void setCalibrator(const QString& calibrator);

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    void layOut();
    void connectCommands();
    CommunicationLog& log() const { return calibrators_.log(calibrator_); }
    /// Something was logged, or the line was opened or could not be.
    void takeChange();
    void takeNewLines();
    void lookAtPort();
    void showPort();
    void showFile();
    void pause();
    void findNext();
    void save();
    void saveAs(const QString& path);

    Calibrators& calibrators_;
    QString calibrator_;
    FollowedFile file_;
    /// The opening of the line that is shown.
    std::optional<LineOpening> shownOpening_;
    bool paused_ = false;

    QLabel* LabelPort;
    QLabel* LabelFile;
    QPlainTextEdit* TextLog;
    QLineEdit* TextSearch;
    QPushButton* CommandNext;
    QLabel* LabelOutcome;
    QPushButton* CommandPause;
    QPushButton* CommandSave;
    QPushButton* CommandClose;
};

/// Opens the window with the log of that calibrator in the area, or brings it forward.
void showCommunicationLog(QMdiArea& area, Session& session, Calibrators& calibrators,
                          const QString& calibrator);

} // namespace kelvane
