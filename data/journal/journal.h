#pragma once

#include "data/journal/journal_file.h"
#include "data/session.h"

#include <QJsonObject>

namespace kelvane {

/// What has been gathered for the calibration record of one instrument.
struct JournalEntry {
    /// Its name in the journal; empty until it is added.
    QString id = {};
    /// When it was added, as "YYYY-MM-DD HH:NN:SS", and by whom.
    QString moment = {};
    QString user = {};
    QString owner = {};
    /// The driver that can judge it again, by its own identifier, never by a text for the user.
    QString driver = {};
    /// The calibrator's name, for the user, and its serial number.
    QString calibrator = {};
    QString serial = {};
    QString asset = {};
    /// The instrument's key; empty when it had not been read.
    QString mtag = {};
    /// Date ("YYYY-MM-DD") and time ("HH:NN:SS") of the calibration; as received where it is none.
    QString date = {};
    QString time = {};
    /// The calibrator's replies, in the driver's own form.
    QJsonObject raw = {};
    /// The same for the user, a line for each point.
    QStringList readings = {};
    /// True when the preparation of the record had no error: lines and fields are complete.
    bool prepared = false;
    QStringList lines = {};
    /// Columns and values of the record's fields, in their order.
    QList<std::pair<QString, QString>> fields = {};
    QStringList standards = {};
    /// True when the statement that begins the record may have been sent; kept for entries without lines.
    bool begun = false;
    /// The keys of the records that stood at its moment before, where records have no time to tell them
    /// apart.
    QStringList others = {};
    /// Why there is no record yet, for the user.
    QString why = {};
};

/// How an entry ends.
enum class JournalEnd {
    /// The record is whole.
    done,
    /// The operator or a rule of the record refused it.
    refused,
    /// The operator discarded the result.
    discarded,
};

/// The results that have been gathered from calibrators, on the disk before a record is made of them: a file
/// for each data source in the working folder. An entry that has not ended is unfinished: there may be no
/// record of it, or a part of one. Everything that writes throws error 75 when the disk did not store it.
class Journal {
  public:
    /// The journal of the session's data source.
    explicit Journal(const Session& session);

    /// The name of the file of a data source: no two data sources share one.
    static QString fileName(const QString& dataSource);
    const QString& path() const { return file_.path(); }

    /// Adds an entry, with moment, user and owner of the session; gives its id.
    QString add(const JournalEntry& entry);
    /// Replaces an unfinished entry.
    void replace(const JournalEntry& entry);
    /// Notes why an entry is unfinished.
    void explain(const QString& id, const QString& why);
    /// Notes the date and time under which the record is being made.
    void setDate(const QString& id, const QString& date, const QString& time);
    /// The same, and that the record is being begun now, beside others of that moment.
    void setBegun(const QString& id, const QString& date, const QString& time, const QStringList& others);
    void end(const QString& id, JournalEnd end, const QString& why = {});

    /// The unfinished entries, oldest first.
    QList<JournalEntry> unfinished() const;
    /// An unfinished entry.
    std::optional<JournalEntry> find(const QString& id) const;

    /// From this size on, in bytes, old entries that have ended leave the file.
    qint64 rotationSize = 1024 * 1024;

  private:
    void write(const QString& id, QJsonObject content);

    const Session& session_;
    JournalFile file_;
};

} // namespace kelvane
