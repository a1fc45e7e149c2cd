#pragma once

#include "data/history/instruments.h"
#include "records/lists.h"

#include <QAbstractTableModel>
#include <QCache>
#include <QTimer>

#include <span>

namespace kelvane {

/// A column of the list of instruments on the screen.
struct InstrumentColumn {
    /// In the settings.
    QStringView name;
    /// Title and value are those of the list of the same title (`instrumentColumns`).
    TextId title;
    /// What the database orders by; nothing where it can't.
    std::optional<InstrumentOrder> order;
    Qt::AlignmentFlag alignment;
    /// False for one that is shown only when the user wants it.
    bool isShownAtFirst;
};

/// The columns, in the order of `instrumentColumns`.
std::span<const InstrumentColumn> shownInstrumentColumns();

/// The days to a due date in words: "overdue for 3 days", "due today", "12 days".
QString daysLeftText(qint64 days);

/// The instruments that a query finds. All have a row at once, with key and asset number; the rest is read in
/// blocks as they come into sight, and blocks that were out of sight for long are read again. After a failure
/// what was not read stays empty, and `hasFailed` tells it.
class InstrumentModel final : public QAbstractTableModel {
    Q_OBJECT
  public:
    /// The session has to outlive the model.
    explicit InstrumentModel(Session& session, QObject* parent = nullptr);
    ~InstrumentModel() override;

    /// Forgets what was read and runs a query. While another one is being read, because its error is on the
    /// screen, it waits for the end of that.
    void ask(const InstrumentQuery& query);
    /// The query whose instruments are shown.
    const InstrumentQuery& query() const { return query_; }
    /// Forgets all rows.
    void clear();

    /// The instrument of a row, read now if it was out of sight; after a failure key and asset number alone.
    InstrumentSummary instrument(int row);
    /// The asset number of a row, which is there at once.
    QString asset(int row) const { return reader_->keyAt(row).asset; }
    /// What the list shows of an instrument: the text that is saved, but for days in words.
    static QString shownText(const InstrumentSummary& instrument, int column);
    /// A query has been asked that has not answered yet.
    bool isAsking() const { return isAsking_; }
    /// An error has ended the reading.
    bool hasFailed() const { return hasFailed_; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  Q_SIGNALS:
    /// There are other rows, or the reading has ended.
    void read();

  private:
    using Block = QList<InstrumentSummary>;

    void begin();
    /// The instrument of a row that is in memory; null otherwise, and it is read soon.
    const InstrumentSummary* inSight(int row) const;
    void readWanted();
    void readBlock(int block);
    /// Reads what a reader has there. False after an error, which is told.
    bool takeBlock(InstrumentReader& reader, int block);

    Session& session_;
    InstrumentQuery query_;
    /// Shared with the reading that goes on while an error of it is on the screen.
    std::shared_ptr<InstrumentReader> reader_;
    /// Looking at a block keeps it.
    mutable QCache<int, Block> blocks_;
    /// Blocks that somebody has looked for, the latest last.
    mutable QList<int> wanted_;
    mutable QTimer wanting_;
    bool hasFailed_ = false;
    bool isAsking_ = false;
    bool isReading_ = false;
    bool isAskedAgain_ = false;
};

} // namespace kelvane
