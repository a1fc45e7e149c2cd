#pragma once

#include "data/history/instruments.h"
#include "records/lists.h"

#include <QAbstractTableModel>

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

/// The instruments that a query finds, read in blocks as they come into sight. A failure leaves the rows that
/// were read, and `hasFailed` tells that they are not all.
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
    /// Forgets all rows, and the query's cursor with them.
    void clear();

    const InstrumentSummary& instrument(int row) const { return instruments_.at(row); }
    /// What the list shows of a row: the text that is saved, but for days in words.
    QString shownText(int row, int column) const;
    /// An error has ended the reading.
    bool hasFailed() const { return hasFailed_; }
    /// All instruments of the query are there.
    bool isComplete() const { return !reader_ && !hasFailed_; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    bool canFetchMore(const QModelIndex& parent) const override;
    void fetchMore(const QModelIndex& parent) override;

  Q_SIGNALS:
    /// Rows have come, or the reading has ended.
    void read();

  private:
    void begin();
    void readBlock();

    Session& session_;
    InstrumentQuery query_;
    std::unique_ptr<InstrumentReader> reader_;
    QList<InstrumentSummary> instruments_;
    bool hasFailed_ = false;
    bool isReading_ = false;
    bool isAskedAgain_ = false;
};

} // namespace kelvane
