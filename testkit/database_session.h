#pragma once

#include "testkit/logged_in_session.h"

namespace kelvane::testing {

/// The scripted operator of a fixture, which is there before the session that asks it.
struct WithScriptedOperator {
    ScriptedUserInterface ui;
};

/// A test with such a session and a scripted operator.
class DatabaseSession : public ::testing::Test, protected WithScriptedOperator, protected LoggedInSession {
  protected:
    explicit DatabaseSession(const QString& user = users::technician) : LoggedInSession(ui, user) {}
};

} // namespace kelvane::testing
