#pragma once

#include "data/session.h"

#include <QMdiSubWindow>

class QMdiArea;

namespace kelvane {

/// 15 twips are one pixel at 96 dots per inch.
constexpr int pixels(int twips) {
    return twips / 15;
}

/// The base of every screen: a child window of the main window with a fixed size, whose position is kept in
/// the settings store (section "Left" or "Top", key the window's name, in twips) and whose open flag stands
/// in the session.
class ChildWindow : public QMdiSubWindow {
    Q_OBJECT
  public:
    /// Position and size in twips, the frame included.
    struct Place {
        int left = 105;
        int top = 75;
        int width = 0;
        int height = 0;
    };

    /// `name` is the screen's name, such as "FormConnect"; it becomes the object name and the key of the
    /// position.
    ChildWindow(Session& session, ChildForm form, const QString& name, const Place& place);
    /// Stores the position and clears the open flag.
    ~ChildWindow() override;

    /// Shows the window inside `area` at its stored position, or brings it forward when it is shown already.
    void showIn(QMdiArea& area);
    /// Closes without asking `mayClose`.
    void unload();

  protected:
    /// False refuses a request to close the window.
    virtual bool mayClose() { return true; }
    void closeEvent(QCloseEvent* event) override;

    Session& session_;

  private:
    ChildForm form_;
    Place place_;
    bool unloading_ = false;
};

} // namespace kelvane
