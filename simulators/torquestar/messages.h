#pragma once

#include "simulators/torquestar/memory_file.h"

#include <QByteArray>

#include <optional>

namespace kelvane::simulators {

/// The reply that brings one result to the workstation.
QByteArray resultReply(const Result& result);
/// The reply that brings a comment; its last character ends the text and is no part of it.
QByteArray commentReply(const QString& comment);
/// The reply that says which calibrator this is.
QByteArray identityReply(qint32 serial);

/// The calibrator's understanding of messages. What it selects and the round that it is creating are
/// forgotten when it is switched off and when a link test begins a new session; all the rest is in its
/// memory.
class Messages {
  public:
    /// `room`: how many characteristics the memory takes.
    Messages(MemoryFile& memory, qint32 serial, std::size_t room);

    /// True when the identifier is one of the protocol's.
    static bool knows(const QByteArray& message);
    /// Carries the message out and gives its reply. Only for messages that it knows.
    QByteArray answer(const QByteArray& message);

  private:
    struct Reply {
        QByteArray body;
        bool memoryChanged = false;
    };
    using Routine = Reply (Messages::*)(Memory& memory, QByteArrayView rest);
    struct Entry {
        const char* identifier;
        Routine routine;
    };
    static const Entry entries[];
    static const Entry* entryOf(const QByteArray& message);

    Reply testLink(Memory& memory, QByteArrayView rest);
    Reply identify(Memory& memory, QByteArrayView rest);
    Reply lookForRound(Memory& memory, QByteArrayView rest);
    Reply eraseRound(Memory& memory, QByteArrayView rest);
    Reply createRound(Memory& memory, QByteArrayView rest);
    Reply storeRound(Memory& memory, QByteArrayView rest);
    Reply select(Memory& memory, QByteArrayView rest);
    Reply removeSelected(Memory& memory, QByteArrayView rest);
    Reply addCharacteristic(Memory& memory, QByteArrayView rest);
    Reply readResult(Memory& memory, QByteArrayView rest);
    Reply readComment(Memory& memory, QByteArrayView rest);

    /// The round between its creation and its storing.
    struct Creation {
        Round round;
        std::size_t announced = 0; ///< characteristics to come
        std::size_t added = 0;
    };

    MemoryFile& memory_;
    qint32 serial_;
    std::size_t room_;
    QString selected_;
    std::size_t nextResult_ = 0;
    std::optional<Creation> creation_;
};

} // namespace kelvane::simulators
