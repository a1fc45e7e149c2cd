#include "records/instrument_model.h"

#include "records/colors.h"
#include "resources/text_id.h"
#include "ui/guarded.h"
#include "ui/whole_text.h"

#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// More rows than a large screen shows.
constexpr qsizetype blockSize = 200;
/// From here on a due date is near.
constexpr qint64 nearDays = 30;

using enum InstrumentOrder;
constexpr auto left = Qt::AlignLeft;
constexpr auto right = Qt::AlignRight;

constexpr InstrumentColumn columns[] = {
    {u"Asset", TextId::listAsset, asset, left, true},
    {u"Description", TextId::packageDescription, description, left, true},
    {u"Manufacturer", TextId::listManufacturer, manufacturer, left, false},
    {u"Model", TextId::packageModel, model, left, true},
    {u"Serial", TextId::listSerialNumber, serial, left, false},
    {u"Group", TextId::listGroup, group, left, false},
    {u"Location", TextId::listLocation, location, left, true},
    {u"LastCalibration", TextId::listLastCalibration, lastCalibration, left, true},
    {u"State", TextId::listState, {}, left, false},
    {u"Result", TextId::listResult, passed, left, true},
    {u"Due", TextId::listDue, due, left, true},
    {u"DaysLeft", TextId::listDaysLeft, due, right, true},
    {u"OutWith", TextId::listOutWith, {}, left, true},
    {u"Technician", TextId::listTechnician, {}, left, true},
    {u"OutSince", TextId::listOutSince, {}, left, true},
};

QVariant colorOf(const InstrumentSummary& instrument, TextId title) {
    if (title == TextId::listResult && instrument.passed == u"N")
        return alarmColor();
    if ((title != TextId::listDue && title != TextId::listDaysLeft) || !instrument.daysLeft)
        return {};
    if (*instrument.daysLeft < 0)
        return alarmColor();
    return *instrument.daysLeft <= nearDays ? QVariant(nearColor()) : QVariant();
}

} // namespace

std::span<const InstrumentColumn> shownInstrumentColumns() {
    return columns;
}

QString daysLeftText(qint64 days) {
    if (days == 0)
        return text(TextId::daysDueToday);
    if (days == 1 || days == -1)
        return text(days > 0 ? TextId::daysToDueOne : TextId::daysOverdueOne);
    return text(days > 0 ? TextId::daysToDue : TextId::daysOverdue).arg(qAbs(days));
}

InstrumentModel::InstrumentModel(Session& session, QObject* parent)
    : QAbstractTableModel(parent), session_(session) {}

InstrumentModel::~InstrumentModel() = default;

void InstrumentModel::ask(const InstrumentQuery& query) {
    query_ = query;
    isAskedAgain_ = isReading_;
    if (isReading_)
        return;
    do {
        isAskedAgain_ = false;
        begin();
    } while (isAskedAgain_);
}

void InstrumentModel::clear() {
    beginResetModel();
    reader_.reset();
    instruments_.clear();
    hasFailed_ = false;
    endResetModel();
    Q_EMIT read();
}

void InstrumentModel::begin() {
    clear();
    {
        const QScopedValueRollback reading(isReading_, true);
        runGuarded(session_.ui, [this] { reader_ = std::make_unique<InstrumentReader>(session_, query_); });
        // Without a reader not even the report of the error could be written.
        hasFailed_ = !reader_ || reader_->hasFailed();
    }
    readBlock();
}

void InstrumentModel::readBlock() {
    QList<InstrumentSummary> block;
    if (reader_) {
        const QScopedValueRollback reading(isReading_, true);
        bool isRead = false;
        runGuarded(session_.ui, [&] {
            block = reader_->next(blockSize);
            isRead = true;
        });
        hasFailed_ = !isRead || reader_->hasFailed();
        if (hasFailed_ || reader_->isAtEnd())
            reader_.reset();
    }
    if (!block.isEmpty()) {
        const auto first = static_cast<int>(instruments_.size());
        beginInsertRows({}, first, first + static_cast<int>(block.size()) - 1);
        instruments_ << block;
        endInsertRows();
    }
    Q_EMIT read();
}

QString InstrumentModel::shownText(int row, int column) const {
    const auto at = static_cast<std::size_t>(column);
    const auto& instrument = instruments_.at(row);
    if (columns[at].title == TextId::listDaysLeft)
        return instrument.daysLeft ? daysLeftText(*instrument.daysLeft) : QString();
    return instrumentColumns()[at].value(instrument);
}

int InstrumentModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(instruments_.size());
}

int InstrumentModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(std::size(columns));
}

QVariant InstrumentModel::data(const QModelIndex& index, int role) const {
    const auto& column = columns[static_cast<std::size_t>(index.column())];
    switch (role) {
    case Qt::DisplayRole:
        return shownText(index.row(), index.column());
    case Qt::ToolTipRole:
        return wholeTextTip(shownText(index.row(), index.column()));
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(Qt::Alignment(column.alignment | Qt::AlignVCenter));
    case Qt::ForegroundRole:
        return colorOf(instruments_.at(index.row()), column.title);
    default:
        return {};
    }
}

QVariant InstrumentModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
        return {};
    const auto& column = columns[static_cast<std::size_t>(section)];
    if (role == Qt::DisplayRole)
        return text(column.title);
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(Qt::Alignment(column.alignment | Qt::AlignVCenter));
    return {};
}

bool InstrumentModel::canFetchMore(const QModelIndex& parent) const {
    return !parent.isValid() && reader_ && !isReading_;
}

void InstrumentModel::fetchMore(const QModelIndex& parent) {
    if (!canFetchMore(parent))
        return;
    readBlock();
    // Its error was on the screen meanwhile.
    if (isAskedAgain_)
        ask(InstrumentQuery(query_));
}

} // namespace kelvane
