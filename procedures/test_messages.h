#pragma once

#include "data/session.h"
#include "procedures/refusal.h"

#include <QStringList>

#include <optional>

namespace kelvane {

/// A named text that the operator sees before or after a test. Instruments refer to it by name.
struct TestMessage {
    QString name;
    /// Empty is stored as null.
    QString prompt = {};
};

/// The names of all messages, in the order of the database, and one of them. Its name is empty when there is
/// none.
struct MessageList {
    QStringList names;
    TestMessage shown;
};

/// Reads all names, and the message of that name, or the first one for an empty or a vanished name. Nothing
/// when the database failed, which is reported as "FormTestMess,LoadPrompts".
std::optional<MessageList> loadMessages(Session& session, const QString& name);

/// Asks for the name of a new message until it is free; `cancelled` when the user gives up, nothing when the
/// database failed. Reported as "FormTestMess,CommandCreate".
std::optional<QString> askMessageName(Session& session);

/// Stores a new message without a text. False when the database failed, which is reported as
/// "FormTestMess,CommandCreate".
bool createMessage(Session& session, const QString& name);

/// Stores the text of a message; the name goes in as it stands. Gives the failure, nothing when it is stored.
/// Reported as "FormTestMess,CommandSave".
std::optional<SaveFailure> saveMessage(Session& session, const TestMessage& message);

/// Deletes a message and takes it off all instruments; when there are any, the user is asked before. True
/// when it is deleted. Reported as "FormTestMess,CommandDelete".
bool deleteMessage(Session& session, const QString& name);

} // namespace kelvane
