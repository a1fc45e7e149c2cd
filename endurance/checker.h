#pragma once

#include "endurance/edits.h"
#include "endurance/marks.h"
#include "endurance/site_rows.h"
#include "platform/database/connection.h"

#include <QHash>
#include <QMultiHash>

namespace kelvane::endure {

/// What was found in the database and the stations' folders when all stations have finished.
struct Findings {
    QStringList faults;
    /// How many records stations have made of uploads, and of worksheets.
    int records = 0;
    int worksheets = 0;
};

/// Compares what the database holds with what the stations have noted.
class Checker {
  public:
    /// `connection` is open, `folders` are those of the stations, by their numbers; `before` was read before
    /// they started.
    Checker(Connection& connection, QStringList folders, const QString& resultTemplate, SiteRows before);

    Findings check();

  private:
    struct Record {
        QString asset;
        QString mark; ///< of a worksheet
        std::optional<Round> round;
        QHash<int, QStringList> lines;
        QStringList standards;
    };

    using Row = QStringList;
    QList<Row> rows(const QString& query, int columns);
    void expect(bool holds, const QString& fault);

    void readInventory();
    void readRecords();
    void checkCurrentMarks();
    void checkSiteRows();
    void checkUploads(int station);
    void checkUpload(const Record& record, const QString& name, int lines);
    void checkJournal(int station);
    void checkWorksheets();
    void checkRegistry(int station);
    void checkStrategies();
    void checkMessages();
    void checkPackages();
    void checkParameters();
    /// `stored` is the number of the edit that the database shows; none when nothing stands there.
    void checkLastEdit(const QString& subject, std::optional<int> stored);
    void expectNoneLost(const QString& subject, std::optional<int> lost);

    Connection& connection_;
    QStringList folders_;
    Edits edits_;
    SiteRows before_;
    qsizetype readingColumn_ = 0;
    qsizetype readingWidth_ = 0;
    Findings findings_;
    QHash<QString, QString> assets_; ///< by their keys
    struct Scale {
        double low = 0;
        double high = 0;
        double resolution = 0;
    };
    QHash<QString, Scale> scales_;
    QHash<QString, Record> records_;          ///< by their keys
    QMultiHash<QString, QString> byRound_;    ///< keys by "asset station number"
    QMultiHash<QString, QString> worksheets_; ///< keys by their marks
};

} // namespace kelvane::endure
