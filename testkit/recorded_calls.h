#pragma once

#include "platform/values/numbers.h"

#include <QHash>
#include <QList>
#include <QStringList>

#include <functional>

namespace kelvane::testing {

inline QString displayText(const QString& value) {
    return u'"' + value + u'"';
}

inline QString displayText(float value) {
    return plainText(value);
}

template <class Integer>
QString displayText(Integer value) {
    return QString::number(value);
}

/// The points of a strategy, with a blank between.
QString displayText(const float* points, qsizetype count);

/// What the link libraries under a test's control have in common: they record each call, and return status 0
/// unless set otherwise.
class RecordedCalls {
  public:
    /// Each call as a line: the operation and its in arguments, such as `DPCopen(9600, "COM1", 1000, 5)`.
    QStringList calls;
    /// The calls of one operation.
    QStringList callsOf(const QString& operation) const;
    /// The arguments of one operation's calls, such as `9600, "COM1", 1000, 5`.
    QStringList argumentsOf(const QString& operation) const;
    /// The operations of all calls, in their order.
    QStringList operations() const;

    /// From now on this operation gives that status: at its n-th call from now, or at every call (0).
    void answer(const QString& operation, qint16 status, int occasion = 0);
    /// Runs at each call, before it gives its status, with the operation's name.
    std::function<void(const QString&)> onCall;

    QString reasonMissing;
    /// Runs when it is asked what is missing, before anything else of a driver.
    std::function<void()> onQuestion;
    /// Written over the buffer in place of a text and its zero, when a test sets it.
    std::function<QString(const QString& text, const QString& buffer)> writeText;

  protected:
    template <class... Values>
    qint16 record(const char* operation, const Values&... values) {
        return recordLine(QString::fromLatin1(operation), {displayText(values)...});
    }
    /// Writes a text as a library does.
    void put(QString& buffer, const QString& value) const;
    QString answerQuestion() const;

  private:
    struct Answer {
        qint16 status = 0;
        int occasion = 0;
    };
    qint16 recordLine(const QString& operation, const QStringList& arguments);
    qint16 statusOf(const QString& operation);

    QHash<QString, QList<Answer>> answers_;
};

} // namespace kelvane::testing
