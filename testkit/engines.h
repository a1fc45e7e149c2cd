#pragma once

#include "platform/database/engine_adapter.h"
#include "testkit/database_session.h"

#include <vector>

namespace kelvane::testing {

/// The engines that a session may use.
enum class Engine {
    /// That of the demonstration database.
    own,
    verbatim,
};

/// A session on the demonstration database, or on an engine whose driver takes every text and answers each
/// query with `answer`, or no row when that is empty. `sent` holds what has reached the connection.
class EngineSession : public DatabaseSession {
  protected:
    void useEngine(Engine engine);
    bool hasDatabase() const { return engine_ == Engine::own; }

    /// Runs `action`, which has to end in the syntax error of these routines, to send no text that holds
    /// `value`, and to leave the database as it is.
    void expectRefusal(const QString& value, const QStringList& routines,
                       const std::function<void()>& action);
    /// What changes with the rows of the database, as other connections see it.
    QStringList versions();

    QStringList sent;
    Row answer;

  private:
    QStringList fileVersions();
    QStringList tableVersions();

    Engine engine_ = Engine::own;
    std::vector<std::unique_ptr<DriverLink>> files_;
    QString versionsQuery_;
};

/// Texts that end their own quotes: with and without a second statement, with quotes in pairs and not.
QStringList breakingTexts();

} // namespace kelvane::testing
