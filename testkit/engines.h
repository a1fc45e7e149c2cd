#pragma once

#include "platform/database/engine_adapter.h"
#include "testkit/database_session.h"

#include <vector>

namespace kelvane::testing {

/// The engines that a session may use.
enum class Engine { embedded, verbatim };

/// A session on the demonstration database, or on an engine whose driver takes every text and answers each
/// query with `answer`, or no row when that is empty. `sent` holds what has reached the connection.
class EngineSession : public DatabaseSession {
  protected:
    void useEngine(Engine engine);
    bool isEmbedded() const { return engine_ == Engine::embedded; }

    /// Runs `action`, which has to end in the syntax error of these routines, to send no text that holds
    /// `value`, and to leave the database as it is.
    void expectRefusal(const QString& value, const QStringList& routines,
                       const std::function<void()>& action);
    /// How often the files of the database have changed, counted by other connections.
    QStringList versions() const;

    QStringList sent;
    Row answer;

  private:
    Engine engine_ = Engine::embedded;
    std::vector<std::unique_ptr<DriverLink>> files_;
};

/// Texts that end their own quotes: with and without a second statement, with quotes in pairs and not.
QStringList breakingTexts();

} // namespace kelvane::testing
