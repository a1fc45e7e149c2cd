#pragma once

#include "editors/cal_param/form_cal_param.h"
#include "testkit/screen_window.h"
#include "testkit/scripted_user_interface.h"

namespace kelvane::testing {

/// The calibration parameter editor in a window of its own, and its controls by name. Boxes and dialogs are
/// answered by the session's scripted operator.
class CalParamScreen : public EditorScreen<FormCalParam> {
  public:
    CalParamScreen(Session& session, ScriptedUserInterface& ui) : session_(session), ui_(ui) {}

    /// Opens it with that instrument.
    void open(const QString& instrument);

    /// Puts a value into a text box, selects a row of a list (empty: none), or turns an option or a check box
    /// on ("on") or off ("off").
    void set(const QString& name, const QString& value);
    QString text(const QString& name);
    QStringList rows(const QString& list);
    void fill(const QString& list, const QStringList& rows);
    void select(const QString& list, int row);
    void doubleClick(const QString& list, int row);
    int page();
    void showPage(int page);
    QString focus();

  private:
    Session& session_;
    ScriptedUserInterface& ui_;
};

} // namespace kelvane::testing
