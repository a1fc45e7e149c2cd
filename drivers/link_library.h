#pragma once

#include "platform/installed_files.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QtGlobal>

class QLibrary;

namespace kelvane {

/// A calibrator's link library, found by its name when it is needed: first in `folder`, then where the
/// system looks for libraries, and last in `simulators` (empty when no simulated ones are installed). The
/// first one that is there counts: one that can't be loaded is reported, and no other takes its place. The
/// library stays loaded until the program ends.
class LinkLibrary {
  public:
    LinkLibrary(QString name, QString folder, QString simulators = InstalledFiles().simulatorLibraries());

    /// Registers an operation that the library must have; returns its number.
    qsizetype need(const char* operation);

    /// Empty when the library is loaded with all its operations, otherwise what is missing, for the operator.
    /// Each call tries again until it is there.
    QString missing();

    /// The file of the library that is loaded, without a folder when the system has found it; empty while
    /// none is.
    const QString& file() const { return file_; }

    /// The operation of that number. Error 53 when the library is not loaded.
    QFunctionPointer operation(qsizetype number) const;

  private:
    /// The result of loading; `library` is then the one that counts.
    bool load(QLibrary& library) const;

    struct Operation {
        const char* name;
        QFunctionPointer function = nullptr;
    };

    QString name_;
    QString folder_;
    QString simulators_;
    QList<Operation> operations_;
    QString file_;
};

/// One operation of a link library, a plain C function with these arguments that gives a status.
template <class... Arguments>
class LinkOperation {
  public:
    LinkOperation(LinkLibrary& library, const char* name) : library_(library), number_(library.need(name)) {}

    qint16 operator()(Arguments... arguments) const {
        return reinterpret_cast<qint16 (*)(Arguments...)>(library_.operation(number_))(arguments...);
    }

  private:
    const LinkLibrary& library_;
    qsizetype number_;
};

/// A text argument of a library's operation, in the calibrator's alphabet; it lives for the call.
class TextIn {
  public:
    explicit TextIn(const QString& text);
    operator const char*() const { return bytes_.constData(); }

  private:
    QByteArray bytes_;
};

/// The buffer for a text that a library writes. It is as long as `text`, which takes the buffer's content
/// when the call is over; what a library writes behind that length does no harm and is dropped.
class TextOut {
  public:
    explicit TextOut(QString& text);
    ~TextOut();
    TextOut(const TextOut&) = delete;
    TextOut& operator=(const TextOut&) = delete;
    operator char*() { return bytes_.data(); }

  private:
    QString& text_;
    QByteArray bytes_;
    qsizetype length_;
};

} // namespace kelvane
