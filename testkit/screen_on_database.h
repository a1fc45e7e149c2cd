#pragma once

#include "testkit/database_session.h"
#include "testkit/screen_window.h"

namespace kelvane::testing {

/// A screen over a copy of the demonstration database. Boxes and dialogs are answered by the scripted
/// operator.
template <class Form>
class ScreenOnDatabase : public DatabaseSession, public EditorScreen<Form> {
  protected:
    explicit ScreenOnDatabase(const QString& user = users::editor) : DatabaseSession(user) {}
};

} // namespace kelvane::testing
