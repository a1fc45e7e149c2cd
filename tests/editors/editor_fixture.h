#pragma once

#include "testkit/answering_operator.h"
#include "testkit/faulty_connection.h"
#include "testkit/logged_in_session.h"
#include "testkit/screen_window.h"

namespace kelvane::testing {

/// What a fixture scripts of its session, which is there before it.
struct ScriptedEditing {
    AnsweringOperator simulatedOperator;
    PlannedFault fault;
};

/// A workstation's editors over a copy of the demonstration database, with a second connection that looks on.
/// One editor is shown at a time. The user is an editor of owner MT, or another one.
class EditorFixture : public ScriptedEditing, public LoggedInSession, public ScreenWindow {
  public:
    explicit EditorFixture(const QString& user = users::editor);

    /// All rows that the editors write, in words that do not change from save to save.
    QStringList stored() const;
    /// What a screen shows, its title among it.
    static QStringList contents(const QWidget& screen);
    /// Shows a screen that was made with `new`.
    template <class Screen>
    Screen& show(Screen* made) {
        ScreenWindow::show(std::unique_ptr<ChildWindow>(made));
        return *made;
    }

    std::unique_ptr<Connection> observer;
};

} // namespace kelvane::testing
