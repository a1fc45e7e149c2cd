#include "records/form_instruments.h"

#include "records/column_menu.h"
#include "records/growing_columns.h"
#include "records/instrument_choice.h"
#include "records/instrument_list.h"
#include "records/keys.h"
#include "records/reading_table.h"
#include "records/selected_rows.h"
#include "records/table_copy.h"
#include "resources/text_id.h"
#include "ui/controls.h"
#include "ui/guarded.h"
#include "ui/panels.h"
#include "ui/wrapping_row.h"

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTableView>
#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

const auto tableName = u"Instruments"_s;
/// After the last key, in milliseconds: fast typing asks the database once.
constexpr int typingPause = 150;
/// Of a column that has not been made wider by hand, in characters.
constexpr int widestColumn = 32;
constexpr qsizetype mostMeasured = 100;

QList<SavedColumn> savedColumns() {
    QList<SavedColumn> saved;
    for (const auto& column : shownInstrumentColumns())
        saved << SavedColumn{column.name.toString(), column.isShownAtFirst};
    return saved;
}

bool hasOrder(int column) {
    return shownInstrumentColumns()[static_cast<std::size_t>(column)].order.has_value();
}

} // namespace

FormInstruments::FormInstruments(Session& session, QWidget* parent)
    : RecordsPage(session.ui, parent),
      session_(session),
      model_(new InstrumentModel(session, this)),
      TextFilter(
          nameControl(new QLineEdit, u"TextFilter"_s, text(TextId::recordsFilter), TextId::recordsFilterTip)),
      choice_(new InstrumentChoice(session)),
      TableInstruments(
          nameControl(new QTableView, u"TableInstruments"_s, text(TextId::recordsInstrumentsTip))),
      LabelShown(changingNote(u"LabelShown"_s, TextId::recordsInstruments)),
      LabelOutcome(changingNote(u"LabelOutcome"_s, TextId::recordsSave)),
      CommandHistory(button(u"CommandHistory"_s, TextId::recordsHistory, TextId::recordsHistoryTip)),
      CommandCopy(button(u"CommandCopy"_s, TextId::aboutCopy, TextId::recordsCopyTip)),
      CommandSave(button(u"CommandSave"_s, TextId::recordsSave, TextId::recordsSaveTip)),
      CommandPackage(button(u"CommandPackage"_s, TextId::packageMake, TextId::packageMakeTip)),
      CommandCertificates(
          button(u"CommandCertificates"_s, TextId::certificatesMake, TextId::certificatesMakeTip)),
      CommandColumns(button(u"CommandColumns"_s, TextId::recordsColumns, TextId::recordsColumnsTip)),
      CommandReadAgain(button(u"CommandReadAgain"_s, TextId::recordsReadAgain, TextId::recordsReadAgainTip)) {
    setObjectName(u"FormInstruments"_s);
    typing_.setSingleShot(true);
    typing_.setInterval(typingPause);
    setUpTable();
    layOut();
    connectControls();
    connectHeader();
    showState();
}

void FormInstruments::setUpTable() {
    TableInstruments->setModel(model_);
    setUpForReading(*TableInstruments);
    columns_ = new GrowingColumns(*TableInstruments, widestColumn);
    TableInstruments->installEventFilter(this);
    auto* header = TableInstruments->horizontalHeader();
    header->setSectionsMovable(true);
    header->setSectionsClickable(true);
    header->setContextMenuPolicy(Qt::CustomContextMenu);
    header->setSortIndicatorShown(true);
    // Their widths are those of what is in sight; more would be read only for that.
    header->setResizeContentsPrecision(0);
    header->setSortIndicator(0, Qt::AscendingOrder);
    runGuarded(session_.ui, [&] {
        if (restoreColumns(session_, tableName, savedColumns(), *header))
            columns_->keep();
    });
}

void FormInstruments::layOut() {
    auto* choice = new QHBoxLayout;
    choice->addWidget(labelFor(TextFilter, u"Label1"_s, TextId::recordsFilter));
    choice->addWidget(TextFilter, 2);
    choice->addWidget(choice_, 1);
    auto* commands = new WrappingRow;
    for (auto* command : {CommandHistory, CommandCopy, CommandSave, CommandPackage, CommandCertificates,
                          CommandColumns, CommandReadAgain})
        commands->addWidget(command);
    auto* column = new QVBoxLayout(this);
    column->addLayout(choice);
    column->addWidget(TableInstruments, 1);
    column->addWidget(LabelShown);
    column->addWidget(LabelOutcome);
    column->addLayout(commands);
    TextFilter->setClearButtonEnabled(true);
    LabelOutcome->hide();
    kelvane::setTabOrder({TextFilter, choice_->kinds(), choice_->values(), TableInstruments, CommandHistory,
                          CommandCopy, CommandSave, CommandPackage, CommandCertificates, CommandColumns,
                          CommandReadAgain});
}

void FormInstruments::connectControls() {
    auto& ui = session_.ui;
    connectGuarded(TextFilter, &QLineEdit::textChanged, this, ui, [this] { typing_.start(); });
    connectGuarded(TextFilter, &QLineEdit::returnPressed, this, ui, [this] { ask(); });
    connectGuarded(&typing_, &QTimer::timeout, this, ui, [this] { ask(); });
    connectGuarded(choice_, &InstrumentChoice::chosen, this, ui, [this] { ask(); });
    connectGuarded(model_, &InstrumentModel::read, this, ui, [this] { showState(); });
    connectGuarded(TableInstruments, &QTableView::doubleClicked, this, ui, [this] { openHistory(); });
    connectGuarded(CommandHistory, &QPushButton::clicked, this, ui, [this] { openHistory(); });
    connectGuarded(CommandCopy, &QPushButton::clicked, this, ui, [this] { copy(); });
    connectGuarded(CommandSave, &QPushButton::clicked, this, ui, [this] { save(); });
    connectGuarded(CommandPackage, &QPushButton::clicked, this, ui, [this] { askPackage(); });
    connectGuarded(CommandCertificates, &QPushButton::clicked, this, ui, [this] { askCertificates(); });
    connectGuarded(CommandReadAgain, &QPushButton::clicked, this, ui, [this] { readAgain(); });
    connectGuarded(TableInstruments->selectionModel(), &QItemSelectionModel::selectionChanged, this, ui,
                   [this] { showState(); });
    connectKeys(*TableInstruments, QKeySequence::Copy, ui, [this] { copy(); });
    connectPageKeys(*this, QKeySequence::Find, ui, [this] { focusFilter(); });
}

void FormInstruments::connectHeader() {
    auto* header = TableInstruments->horizontalHeader();
    auto* menu = new ColumnMenu(*header,
                                {hasOrder,
                                 [this](int column, bool isDescending) {
                                     runGuarded(session_.ui, [&] { sort(column, isDescending); });
                                 }},
                                this);
    CommandColumns->setMenu(menu);
    QObject::connect(header, &QWidget::customContextMenuRequested, menu,
                     [menu, header](const QPoint& place) { menu->popup(header->mapToGlobal(place)); });
    QObject::connect(header, &QHeaderView::sectionClicked, this,
                     [this](int column) { runGuarded(session_.ui, [&] { clickHeader(column); }); });
}

void FormInstruments::focusTable() {
    TableInstruments->setFocus();
}

void FormInstruments::focusFilter() {
    TextFilter->setFocus(Qt::ShortcutFocusReason);
    TextFilter->selectAll();
}

/// Return opens the history, which the table itself would take for editing.
bool FormInstruments::eventFilter(QObject* watched, QEvent* event) {
    if (watched == TableInstruments && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            runGuarded(session_.ui, [this] { openHistory(); });
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void FormInstruments::ask() {
    typing_.stop();
    // What was read stays, and the next login reads what is chosen then.
    if (!session_.SessionConnected) {
        showState();
        return;
    }
    isAsked_ = true;
    query_.filter = {};
    query_.filter.text = TextFilter->text();
    if (choice_->setIn(query_.filter))
        model_->ask(query_);
    else
        model_->clear();
    if (model_->rowCount() > 0)
        growColumns();
}

/// Asset numbers that begin alike can be told apart only by their ends: that column is as wide as any of them
/// needs, in sight or not.
void FormInstruments::growColumns() {
    columns_->grow();
    QStringList longest;
    for (int row = 0; row < model_->rowCount(); ++row) {
        const auto asset = model_->asset(row);
        if (!longest.isEmpty() && asset.size() > longest.constFirst().size())
            longest.clear();
        // Of equally long ones a few tell enough.
        if (longest.isEmpty() ||
            (asset.size() == longest.constFirst().size() && longest.size() < mostMeasured))
            longest << asset;
    }
    for (const auto& asset : std::as_const(longest))
        columns_->growFor(0, asset);
}

void FormInstruments::readAgain() {
    if (!std::exchange(isRestored_, true))
        choice_->restore();
    keepPlace();
    ask();
    returnToPlace();
}

/// A list that could not be read has no place to keep: the one before stays for the next reading.
void FormInstruments::keepPlace() {
    if (model_->rowCount() == 0)
        return;
    selected_ = selectedAssets();
    const auto current = TableInstruments->currentIndex();
    current_ = current.isValid() ? model_->asset(current.row()) : QString();
}

/// What is not listed any more is left out.
void FormInstruments::returnToPlace() {
    const QSet<QString> wanted(selected_.cbegin(), selected_.cend());
    QList<int> rows;
    int current = -1;
    for (int row = 0; row < model_->rowCount(); ++row) {
        const auto asset = model_->asset(row);
        if (wanted.contains(asset))
            rows << row;
        if (asset == current_)
            current = row;
    }
    selectRows(*TableInstruments, rows);
    if (current >= 0)
        TableInstruments->selectionModel()->setCurrentIndex(model_->index(current, 0),
                                                            QItemSelectionModel::NoUpdate);
}

void FormInstruments::tell(const QString& outcome) {
    LabelOutcome->setText(outcome);
    LabelOutcome->show();
}

void FormInstruments::forget() {
    typing_.stop();
    const QSignalBlocker quiet(TextFilter);
    TextFilter->clear();
    choice_->forget();
    isAsked_ = false;
    selected_.clear();
    current_.clear();
    LabelOutcome->hide();
    model_->clear();
}

void FormInstruments::storeLayout() {
    storeColumns(session_, tableName, savedColumns(), *TableInstruments->horizontalHeader(),
                 columns_->areKept());
}

QString FormInstruments::state() const {
    if (!isAsked_)
        return text(TextId::recordsNotLoggedIn);
    // An error may be on the screen.
    if (model_->isAsking())
        return {};
    QStringList faults;
    if (!session_.SessionConnected)
        faults << text(TextId::connectionLost);
    if (model_->hasFailed())
        faults << text(TextId::recordsIncomplete);
    if (!faults.isEmpty())
        return faults.join(u' ');
    const int rows = model_->rowCount();
    return rows == 0 ? text(TextId::recordsNone) : text(TextId::recordsShown).arg(rows);
}

void FormInstruments::showState() {
    kelvane::tell(*LabelShown, state(), isAsked_ && (model_->hasFailed() || !session_.SessionConnected));
    const auto selected = selectedRows(*TableInstruments);
    CommandHistory->setEnabled(selected.size() == 1);
    CommandCopy->setEnabled(!selected.isEmpty());
    CommandPackage->setEnabled(!selected.isEmpty());
    CommandCertificates->setEnabled(!selected.isEmpty());
}

void FormInstruments::clickHeader(int column) {
    if (hasOrder(column) && session_.SessionConnected)
        sort(column, column == sortColumn_ && !query_.isDescending);
    else
        // The header has set its mark there already.
        showOrder();
    showState();
}

void FormInstruments::sort(int column, bool isDescending) {
    if (!session_.SessionConnected) {
        showState();
        return;
    }
    sortColumn_ = column;
    query_.order = *shownInstrumentColumns()[static_cast<std::size_t>(column)].order;
    query_.isDescending = isDescending;
    showOrder();
    ask();
}

void FormInstruments::showOrder() {
    TableInstruments->horizontalHeader()->setSortIndicator(
        sortColumn_, query_.isDescending ? Qt::DescendingOrder : Qt::AscendingOrder);
}

void FormInstruments::openHistory() {
    if (const auto row = rowToOpen(*TableInstruments))
        Q_EMIT historyWanted(model_->instrument(*row));
}

void FormInstruments::copy() {
    const auto rows = selectedRows(*TableInstruments);
    if (rows.isEmpty())
        return;
    // Rows out of sight are read for it.
    const auto copied = copiedRows(
        *model_, rows, shownColumns(*TableInstruments->horizontalHeader()),
        [this](int row, int column) { return InstrumentModel::shownText(model_->instrument(row), column); });
    // Rows that were not read would pass for instruments without particulars.
    if (model_->hasFailed())
        tell(text(TextId::recordsIncomplete));
    else
        QApplication::clipboard()->setText(copied);
}

void FormInstruments::save() {
    if (!session_.SessionConnected) {
        tell(text(TextId::connectionLost));
        return;
    }
    const auto file = askListFile(session_, this, text(TextId::recordsInstruments));
    if (!file)
        return;
    const BusyPointer busy(session_.ui);
    tell(saveInstruments(session_, model_->query(), shownColumns(*TableInstruments->horizontalHeader()),
                         *file));
}

QStringList FormInstruments::selectedAssets() const {
    QStringList assets;
    for (const int row : selectedRows(*TableInstruments))
        assets << model_->asset(row);
    return assets;
}

void FormInstruments::askPackage() {
    if (const auto assets = selectedAssets(); !assets.isEmpty())
        Q_EMIT packageWanted(assets);
}

void FormInstruments::askCertificates() {
    if (const auto assets = selectedAssets(); !assets.isEmpty())
        Q_EMIT certificatesWanted(assets);
}

} // namespace kelvane
