#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace kelvane {

/// Keys and asset numbers of instruments in an order, packed: those of a large site take some megabytes less
/// than texts of their own.
class InstrumentKeys {
  public:
    void append(const QString& mtag, const QString& asset);
    qsizetype size() const { return ends_.size() / 2; }
    /// The key at a place from 0 on, as the database has it.
    QString mtag(qsizetype place) const { return entry(2 * place); }
    QString asset(qsizetype place) const { return entry(2 * place + 1); }

  private:
    void appendEntry(const QString& entry);
    QString entry(qsizetype at) const;

    /// In UTF-8, without anything between them.
    QByteArray texts_;
    /// Where each entry ends.
    QList<quint32> ends_;
};

} // namespace kelvane
