#pragma once

#include <QByteArray>
#include <QFile>
#include <QStringList>

#include <vector>

namespace kelvane::simulators {

/// The calls that the library received, as lines of text: `DPCopen(9600, "COM1", 1000, 5) = 0`, each with
/// what went in and its status. Without a path it keeps nothing.
class CallRecord {
  public:
    /// Throws `Failure` when the file can't be appended to.
    void open(const QString& path);

    template <class... Values>
    void add(const char* operation, qint16 status, const Values&... values) {
        if (file_.isOpen())
            write(operation, QStringList{displayText(values)...}, status);
    }

  private:
    static QString displayText(const char* text);
    static QString displayText(float number);
    static QString displayText(qint32 number) { return QString::number(number); }
    static QString displayText(const std::vector<float>& numbers);

    void write(const char* operation, const QStringList& values, qint16 status);

    QFile file_;
};

} // namespace kelvane::simulators
