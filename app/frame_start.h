#pragma once

#include "app/frame_contents.h"

#include <QWidget>

class QGridLayout;
class QLabel;
class QMdiArea;
class QPushButton;

namespace kelvane {

class ElidedLabel;

/// What the area of the main window shows behind the child windows, over its whole visible part: the mark and
/// the version of the program, who is logged in and where, and the next steps with their keys. A step can be
/// clicked, or reached with Tab while no child window has the keyboard.
class FrameStart final : public QWidget {
    Q_OBJECT
  public:
    explicit FrameStart(QMdiArea& area);

    /// Shows these; the same contents change nothing.
    void setContents(const FrameContents& contents);

    /// Called with the step that the user takes.
    std::function<void(MenuEntry entry)> chosen;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    struct Row {
        QPushButton* button;
        QLabel* keys;
    };

    void layOut();
    void takeFonts();
    /// The row of that number, made when it is not there yet.
    const Row& row(qsizetype number);
    void take(qsizetype number);

    FrameContents contents_;
    QWidget* mark_;
    QLabel* LabelProgram;
    QLabel* LabelVersion;
    ElidedLabel* LabelFrameUser;
    ElidedLabel* LabelFrameWarning;
    QLabel* LabelNextSteps;
    QLabel* LabelMenuKey;
    QGridLayout* stepGrid_;
    QList<Row> rows_;
};

} // namespace kelvane
