#pragma once

#include "platform/communication_log.h"

#include <QElapsedTimer>
#include <QStringList>

#include <type_traits>
#include <utility>

namespace kelvane {

/// Values of a call as a log shows them: texts in quotes, as they reach the library.
QString loggedText(const QString& text);
QString loggedText(float number);
QString loggedText(qint32 number);
QString loggedText(const float* points, qint16 count);
/// Several numbers that belong together, such as "{1, 2, 3}".
QString loggedNumbers(const QList<qint32>& numbers);

/// The operations of a link library `Link`, each logged as a line such as
///
///     DPCdnlStep(5→4) = 0 DPCERR_NONE, 12 ms
///
/// with its arguments, its status with the name of it, and its duration. An argument that the operation may
/// write stands as what went in, an arrow, and what came out; of a text it is the room for it that goes in.
/// With the log off an operation is called and nothing else.
template <class Link>
class LoggedCalls {
  public:
    /// The name of a status; empty when it has none.
    using StatusName = QString (*)(qint16 status);

    LoggedCalls(Link& library, CommunicationLog& log, StatusName statusName)
        : link_(library), log_(log), statusName_(statusName) {}

    template <class... Parameters, class... Arguments>
    qint16 operator()(const char* name, qint16 (Link::*operation)(Parameters...), Arguments&... arguments) {
        if (!log_.isOn())
            return (link_.*operation)(arguments...);
        const QStringList before{textBefore<Parameters>(arguments)...};
        QElapsedTimer duration;
        duration.start();
        const auto status = (link_.*operation)(arguments...);
        const auto passed = duration.elapsed();
        [[maybe_unused]] const auto count = pointCount(arguments...);
        const QStringList after{textAfter<Parameters>(arguments, count)...};
        write(name, before, after, status, passed);
        return status;
    }

    Link& link() const { return link_; }

  private:
    template <class Parameter>
    static constexpr bool isWritten =
        std::is_lvalue_reference_v<Parameter> && !std::is_const_v<std::remove_reference_t<Parameter>>;

    /// What went into an argument that may be written; nothing for others, which stay what they are.
    template <class Parameter, class Argument>
    static QString textBefore(const Argument& argument) {
        if constexpr (!isWritten<Parameter>)
            return {};
        else if constexpr (std::is_same_v<Argument, QString>)
            return QString::number(argument.size()) + arrow();
        else
            return loggedText(argument) + arrow();
    }

    template <class Parameter, class Argument>
    static QString textAfter(const Argument& argument, [[maybe_unused]] qint16 count) {
        if constexpr (std::is_pointer_v<Argument>)
            return loggedText(argument, count);
        else
            return loggedText(argument);
    }

    /// How many points there are, for the operations that take some: it is their only short number.
    template <class... Arguments>
    static qint16 pointCount(const Arguments&... arguments) {
        qint16 count = 0;
        [[maybe_unused]] const auto take = [&count](const auto& argument) {
            if constexpr (std::is_same_v<std::decay_t<decltype(argument)>, qint16>)
                count = argument;
        };
        (take(arguments), ...);
        return count;
    }

    static QString arrow() { return QString(QChar(0x2192)); }

    void write(const char* name, const QStringList& before, const QStringList& after, qint16 status,
               qint64 milliseconds) {
        QStringList arguments;
        for (qsizetype i = 0; i < after.size(); ++i)
            arguments << before[i] + after[i];
        const auto meaning = statusName_(status);
        log_.write(QStringLiteral("%1(%2) = %3%4, %5 ms")
                       .arg(QString::fromLatin1(name), arguments.join(QStringLiteral(", ")),
                            QString::number(status), meaning.isEmpty() ? meaning : QLatin1Char(' ') + meaning,
                            QString::number(milliseconds)));
    }

    Link& link_;
    CommunicationLog& log_;
    StatusName statusName_;
};

} // namespace kelvane
