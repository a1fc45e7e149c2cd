#pragma once

#include "data/session.h"

#include <QMdiSubWindow>

class QMdiArea;
class QPushButton;

namespace kelvane {

/// 15 twips are one pixel at 96 dots per inch.
constexpr int pixels(int twips) {
    return twips / 15;
}

/// The base of every screen: a child window of the main window with a fixed size, whose position is kept in
/// the settings store (section "Left" or "Top", key the window's name, in twips) and which counts as open
/// (`ui/open_windows.h`) from its construction until it has closed. Control with PageUp or PageDown changes
/// the page of the tab control that has the focus.
class ChildWindow : public QMdiSubWindow {
    Q_OBJECT
  public:
    /// Position and size in twips, the frame included.
    struct Place {
        int left = 105;
        int top = 75;
        int width = 0;
        int height = 0;
        /// The main window's given size has no room for this one, and grows with it.
        bool isLarge = false;
    };

    /// `name` is the screen's name, such as "FormConnect"; it becomes the object name and the key of the
    /// position.
    ChildWindow(Session& session, const QString& name, const Place& place);

    /// Shows the window inside `area` at its stored position, moved into view where that position is not
    /// visible; or brings it forward when it is shown already. The size grows where caption and controls, in
    /// the user's font, would be cut off otherwise, and the main window grows with it.
    void showIn(QMdiArea& area);
    /// Closes without asking `mayClose`.
    void unload();
    /// False once it has closed, even while the object still exists.
    bool isOpen() const { return open_; }
    /// True while it counts among the open windows of a session.
    bool countsAsOpenIn(const Session& session) const {
        return open_ && countsAsOpen_ && &session == &session_;
    }

  protected:
    /// False rejects a request to close the window. It must not close the window itself.
    virtual bool mayClose() { return true; }

    /// The controls of the screen.
    void setBody(QWidget* body);
    /// The button that Return clicks while no other button has the focus.
    void setDefaultButton(QPushButton* button);
    /// The button that Escape clicks.
    void setCancelButton(QPushButton* button) { cancelButton_ = button; }
    /// The control that has the focus when the window opens.
    void setFirstFocus(QWidget* control) { firstFocus_ = control; }

    /// Whether the window counts as open from now on; it does from the beginning.
    void setCountsAsOpen(bool counts) { countsAsOpen_ = counts; }

    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

    Session& session_;

  private:
    QSize neededSize() const;
    int titleWidth() const;
    void bindPageKeys();
    void changePageAtFocus(int step);
    QPoint position() const;
    void storePosition();
    QPushButton* buttonFor(int key) const;

    Place place_;
    QPushButton* defaultButton_ = nullptr;
    QPushButton* cancelButton_ = nullptr;
    QWidget* firstFocus_ = nullptr;
    /// The position at which the window was shown; until the user moves it, its setting stays unchanged.
    QPoint shownAt_;
    bool open_ = true;
    bool countsAsOpen_ = true;
    bool unloading_ = false;
};

} // namespace kelvane
