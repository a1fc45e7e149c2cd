#pragma once

#include <QDateTime>
#include <QFile>
#include <QList>
#include <QString>

namespace kelvane::endure {

/// A line of a station's log.
struct ActLine {
    qint64 moment = 0; ///< milliseconds since the epoch
    QString kind;
    QString text;
};

/// What a station did, a line for each step, written before the step goes on: it survives the end of its
/// process, in whatever way that ends.
class ActLog {
  public:
    explicit ActLog(const QString& folder);

    void write(const QString& kind, const QString& text = {});

    static QString path(const QString& folder);
    static QList<ActLine> read(const QString& folder);

  private:
    QFile file_;
};

} // namespace kelvane::endure
