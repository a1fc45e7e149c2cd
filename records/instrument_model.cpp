#include "records/instrument_model.h"

#include "records/colors.h"
#include "resources/text_id.h"
#include "ui/guarded.h"
#include "ui/whole_text.h"

#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// More rows than a large screen shows: what is in sight stands in two blocks at the most.
constexpr int blockSize = 200;
constexpr int blocksInSight = 2;
/// What a user goes back and forth in.
constexpr int keptBlocks = 20;
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
    : QAbstractTableModel(parent), session_(session), blocks_(keptBlocks) {
    wanting_.setSingleShot(true);
    QObject::connect(&wanting_, &QTimer::timeout, this, [this] { readWanted(); });
}

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
    blocks_.clear();
    wanted_.clear();
    hasFailed_ = false;
    endResetModel();
    Q_EMIT read();
}

void InstrumentModel::begin() {
    std::shared_ptr<InstrumentReader> reader;
    bool isRead = false;
    {
        const QScopedValueRollback asking(isAsking_, true);
        const QScopedValueRollback reading(isReading_, true);
        clear();
        runGuarded(session_.ui, [&] { reader = std::make_shared<InstrumentReader>(session_, query_); });
        // Without a reader not even the report of the error could be written.
        isRead = reader && !reader->hasFailed() && takeBlock(*reader, 0);
    }
    beginResetModel();
    reader_ = std::move(reader);
    hasFailed_ = !isRead;
    endResetModel();
    Q_EMIT read();
}

bool InstrumentModel::takeBlock(InstrumentReader& reader, int block) {
    const QScopedValueRollback reading(isReading_, true);
    bool isRead = false;
    runGuarded(session_.ui, [&] {
        auto instruments = std::make_unique<Block>(reader.read(qsizetype(block) * blockSize, blockSize));
        isRead = !reader.hasFailed();
        if (isRead)
            blocks_.insert(block, instruments.release());
    });
    return isRead;
}

void InstrumentModel::readBlock(int block) {
    const auto reader = reader_;
    if (!reader || hasFailed_ || isReading_ || blocks_.contains(block))
        return;
    const bool isRead = session_.SessionConnected && takeBlock(*reader, block);
    // The rows may have been forgotten while its error was on the screen.
    if (reader == reader_) {
        hasFailed_ = !isRead;
        const int first = block * blockSize;
        const int last = std::min(first + blockSize, rowCount()) - 1;
        Q_EMIT dataChanged(index(first, 0), index(last, columnCount() - 1));
        if (hasFailed_)
            Q_EMIT read();
    }
    if (isAskedAgain_)
        ask(InstrumentQuery(query_));
}

void InstrumentModel::readWanted() {
    const auto wanted = std::exchange(wanted_, {});
    for (const int block : wanted)
        readBlock(block);
}

const InstrumentSummary* InstrumentModel::inSight(int row) const {
    const int block = row / blockSize;
    if (const auto* instruments = blocks_.object(block))
        return &instruments->at(row % blockSize);
    if (hasFailed_)
        return nullptr;
    // What a quick hand has scrolled past is no longer wanted.
    wanted_.removeAll(block);
    wanted_ << block;
    if (wanted_.size() > blocksInSight)
        wanted_.removeFirst();
    wanting_.start(0);
    return nullptr;
}

InstrumentSummary InstrumentModel::instrument(int row) {
    readBlock(row / blockSize);
    if (const auto* found = inSight(row))
        return *found;
    return reader_ ? reader_->keyAt(row) : InstrumentSummary();
}

QString InstrumentModel::shownText(const InstrumentSummary& instrument, int column) {
    const auto at = static_cast<std::size_t>(column);
    if (columns[at].title == TextId::listDaysLeft)
        return instrument.daysLeft ? daysLeftText(*instrument.daysLeft) : QString();
    return instrumentColumns()[at].value(instrument);
}

int InstrumentModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() || !reader_ ? 0 : static_cast<int>(reader_->size());
}

int InstrumentModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(std::size(columns));
}

QVariant InstrumentModel::data(const QModelIndex& index, int role) const {
    const auto& column = columns[static_cast<std::size_t>(index.column())];
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(Qt::Alignment(column.alignment | Qt::AlignVCenter));
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole && role != Qt::ForegroundRole)
        return {};
    std::optional<InstrumentSummary> key;
    const auto* instrument = inSight(index.row());
    if (instrument == nullptr)
        instrument = &key.emplace(reader_->keyAt(index.row()));
    if (role == Qt::ForegroundRole)
        return colorOf(*instrument, column.title);
    const auto text = shownText(*instrument, index.column());
    return role == Qt::ToolTipRole ? wholeTextTip(text) : text;
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

} // namespace kelvane
