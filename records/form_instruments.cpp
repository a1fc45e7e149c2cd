#include "records/form_instruments.h"

#include "platform/error_report.h"
#include "records/column_menu.h"
#include "records/instrument_list.h"
#include "records/selected_rows.h"
#include "resources/text_id.h"
#include "ui/controls.h"
#include "ui/guarded.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QShortcut>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

const auto tableName = u"Instruments"_s;
const auto settingsSection = u"Records"_s;
const auto csvSetting = u"CsvForm"_s;
/// After the last key, in milliseconds: fast typing asks the database once.
constexpr int typingPause = 150;
/// Of a column that has not been made wider by hand, in characters.
constexpr int widestColumn = 32;

/// A row of the filters to choose from.
struct Choice {
    TextId caption;
    int days = 0;
    bool isOverdue = false;
    std::optional<InstrumentOrder> values = {};
    QString InstrumentFilter::*value = nullptr;
};

const QList<Choice>& choices() {
    using Filter = InstrumentFilter;
    static const QList<Choice> rows{
        {TextId::recordsAll},
        {TextId::recordsOverdue, 0, true},
        {TextId::recordsDueWithin, 30},
        {TextId::recordsDueWithin, 60},
        {TextId::recordsDueWithin, 90},
        {TextId::recordsOfGroup, 0, false, InstrumentOrder::group, &Filter::group},
        {TextId::recordsOfModel, 0, false, InstrumentOrder::model, &Filter::model},
        {TextId::recordsOfDescription, 0, false, InstrumentOrder::description, &Filter::description},
    };
    return rows;
}

QStringList choiceCaptions() {
    QStringList captions;
    for (const auto& choice : choices())
        captions << (choice.days > 0 ? text(choice.caption).arg(choice.days) : text(choice.caption));
    return captions;
}

QList<SavedColumn> savedColumns() {
    QList<SavedColumn> saved;
    for (const auto& column : shownInstrumentColumns())
        saved << SavedColumn{column.name.toString(), column.isShownAtFirst};
    return saved;
}

struct CsvKind {
    TextId caption;
    QString name;
    CsvForm form;
};

const QList<CsvKind>& csvKinds() {
    static const QList<CsvKind> kinds{{TextId::recordsCsvPoints, u"Points"_s, {u',', u'.'}},
                                      {TextId::recordsCsvCommas, u"Commas"_s, {u';', u','}}};
    return kinds;
}

bool hasOrder(int column) {
    return shownInstrumentColumns()[static_cast<std::size_t>(column)].order.has_value();
}

QLabel* changingLabel(const QString& name, TextId accessibleName) {
    auto* made = label(name, accessibleName);
    made->clear();
    made->setWordWrap(true);
    made->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return made;
}

} // namespace

FormInstruments::FormInstruments(Session& session, QWidget* parent)
    : QWidget(parent),
      session_(session),
      model_(new InstrumentModel(session, this)),
      TextFilter(
          nameControl(new QLineEdit, u"TextFilter"_s, text(TextId::recordsFilter), TextId::recordsFilterTip)),
      ComboShow(
          dropDown(u"ComboShow"_s, text(TextId::recordsSaved), TextId::recordsSavedTip, choiceCaptions())),
      ComboValue(dropDown(u"ComboValue"_s, text(TextId::recordsValueTip), TextId::recordsValueTip)),
      TableInstruments(
          nameControl(new QTableView, u"TableInstruments"_s, text(TextId::recordsInstrumentsTip))),
      LabelShown(changingLabel(u"LabelShown"_s, TextId::recordsInstruments)),
      LabelOutcome(changingLabel(u"LabelOutcome"_s, TextId::recordsSave)),
      CommandHistory(button(u"CommandHistory"_s, TextId::recordsHistory, TextId::recordsHistoryTip)),
      CommandCopy(button(u"CommandCopy"_s, TextId::aboutCopy, TextId::recordsCopyTip)),
      CommandSave(button(u"CommandSave"_s, TextId::recordsSave, TextId::recordsSaveTip)),
      CommandColumns(button(u"CommandColumns"_s, TextId::recordsColumns, TextId::recordsColumnsTip)),
      CommandReadAgain(button(u"CommandReadAgain"_s, TextId::recordsReadAgain, TextId::recordsReadAgainTip)) {
    setObjectName(u"FormInstruments"_s);
    typing_.setSingleShot(true);
    typing_.setInterval(typingPause);
    setUpTable();
    layOut();
    connectControls();
    connectHeader();
    bindKeys();
    showState();
}

void FormInstruments::setUpTable() {
    TableInstruments->setModel(model_);
    TableInstruments->setSelectionBehavior(QAbstractItemView::SelectRows);
    TableInstruments->setTabKeyNavigation(false);
    TableInstruments->setAlternatingRowColors(true);
    TableInstruments->setWordWrap(false);
    TableInstruments->verticalHeader()->hide();
    TableInstruments->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    TableInstruments->verticalHeader()->setDefaultSectionSize(TableInstruments->fontMetrics().height() + 6);
    TableInstruments->installEventFilter(this);
    auto* header = TableInstruments->horizontalHeader();
    header->setSectionsMovable(true);
    header->setSectionsClickable(true);
    header->setHighlightSections(false);
    header->setContextMenuPolicy(Qt::CustomContextMenu);
    header->setSortIndicatorShown(true);
    // Their widths are those of what is in sight; more would be read only for that.
    header->setResizeContentsPrecision(0);
    header->setSortIndicator(0, Qt::AscendingOrder);
    runGuarded(session_.ui,
               [&] { hasWidths_ = restoreColumns(session_, tableName, savedColumns(), *header); });
}

void FormInstruments::layOut() {
    keepWidth(ComboValue);
    auto* choice = new QHBoxLayout;
    choice->addWidget(labelFor(TextFilter, u"Label1"_s, TextId::recordsFilter));
    choice->addWidget(TextFilter, 2);
    choice->addWidget(labelFor(ComboShow, u"Label2"_s, TextId::recordsSaved));
    choice->addWidget(ComboShow);
    choice->addWidget(ComboValue, 1);
    auto* commands = new QHBoxLayout;
    for (auto* command : {CommandHistory, CommandCopy, CommandSave, CommandColumns, CommandReadAgain})
        commands->addWidget(command);
    commands->addStretch(1);
    auto* column = new QVBoxLayout(this);
    column->addLayout(choice);
    column->addWidget(TableInstruments, 1);
    column->addWidget(LabelShown);
    column->addWidget(LabelOutcome);
    column->addLayout(commands);
    TextFilter->setClearButtonEnabled(true);
    ComboValue->hide();
    LabelOutcome->hide();
    kelvane::setTabOrder({TextFilter, ComboShow, ComboValue, TableInstruments, CommandHistory, CommandCopy,
                          CommandSave, CommandColumns, CommandReadAgain});
}

void FormInstruments::connectControls() {
    auto& ui = session_.ui;
    connectGuarded(TextFilter, &QLineEdit::textChanged, this, ui, [this] { typing_.start(); });
    connectGuarded(TextFilter, &QLineEdit::returnPressed, this, ui, [this] { ask(); });
    connectGuarded(&typing_, &QTimer::timeout, this, ui, [this] { ask(); });
    connectGuarded(ComboShow, &QComboBox::currentIndexChanged, this, ui, [this] { chooseKind(); });
    connectGuarded(ComboValue, &QComboBox::activated, this, ui, [this] { ask(); });
    connectGuarded(model_, &InstrumentModel::read, this, ui, [this] { showState(); });
    connectGuarded(TableInstruments, &QTableView::doubleClicked, this, ui, [this] { openHistory(); });
    connectGuarded(CommandHistory, &QPushButton::clicked, this, ui, [this] { openHistory(); });
    connectGuarded(CommandCopy, &QPushButton::clicked, this, ui, [this] { copy(); });
    connectGuarded(CommandSave, &QPushButton::clicked, this, ui, [this] { save(); });
    connectGuarded(CommandReadAgain, &QPushButton::clicked, this, ui, [this] { readAgain(); });
    connectGuarded(TableInstruments->selectionModel(), &QItemSelectionModel::selectionChanged, this, ui,
                   [this] { showState(); });
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

void FormInstruments::bindKeys() {
    const auto bind = [this](QWidget* where, const QKeySequence& keys, void (FormInstruments::*command)()) {
        auto* shortcut = new QShortcut(keys, where);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        connectGuarded(shortcut, &QShortcut::activated, this, session_.ui,
                       [this, command] { (this->*command)(); });
    };
    bind(TableInstruments, QKeySequence::Copy, &FormInstruments::copy);
    bind(this, QKeySequence::Refresh, &FormInstruments::readAgain);
    auto* find = new QShortcut(QKeySequence::Find, this);
    find->setContext(Qt::WidgetWithChildrenShortcut);
    QObject::connect(find, &QShortcut::activated, this, [this] {
        TextFilter->setFocus(Qt::ShortcutFocusReason);
        TextFilter->selectAll();
    });
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
    isAsked_ = true;
    const auto& choice = choices().at(ComboShow->currentIndex());
    query_.filter = {};
    query_.filter.text = TextFilter->text();
    query_.filter.isOverdue = choice.isOverdue;
    if (choice.days > 0)
        query_.filter.dueWithinDays = choice.days;
    if (choice.value != nullptr)
        query_.filter.*choice.value = ComboValue->currentText();
    // Without a value the choice has no instruments, and an empty one would be no filter.
    if (choice.value != nullptr && ComboValue->currentText().isEmpty())
        model_->clear();
    else
        model_->ask(query_);
    if (hasWidths_ || model_->rowCount() == 0)
        return;
    TableInstruments->resizeColumnsToContents();
    auto* header = TableInstruments->horizontalHeader();
    const int widest = widestColumn * TableInstruments->fontMetrics().averageCharWidth();
    for (int column = 0; column < header->count(); ++column)
        header->resizeSection(column, std::min(header->sectionSize(column), widest));
    hasWidths_ = true;
}

void FormInstruments::readAgain() {
    ask();
}

void FormInstruments::forget() {
    typing_.stop();
    const QSignalBlocker quiet(ComboShow);
    const QSignalBlocker silent(TextFilter);
    TextFilter->clear();
    ComboShow->setCurrentIndex(0);
    choice_ = 0;
    isAsked_ = false;
    ComboValue->clear();
    ComboValue->hide();
    LabelOutcome->hide();
    model_->clear();
}

void FormInstruments::storeLayout() {
    if (hasWidths_)
        storeColumns(session_, tableName, savedColumns(), *TableInstruments->horizontalHeader());
}

void FormInstruments::showState() {
    const int rows = model_->rowCount();
    const auto state = [&] {
        if (!isAsked_)
            return TextId::recordsNotLoggedIn;
        if (model_->hasFailed())
            return TextId::recordsIncomplete;
        if (rows == 0)
            return TextId::recordsNone;
        return TextId::recordsShown;
    }();
    LabelShown->setText(state == TextId::recordsShown ? text(state).arg(rows) : text(state));
    LabelShown->setAccessibleName(LabelShown->text());
    auto font = LabelShown->font();
    font.setBold(model_->hasFailed());
    LabelShown->setFont(font);
    const auto selected = selectedRows(*TableInstruments);
    CommandHistory->setEnabled(selected.size() == 1);
    CommandCopy->setEnabled(!selected.isEmpty());
}

void FormInstruments::chooseKind() {
    const auto& choice = choices().at(ComboShow->currentIndex());
    QStringList values;
    if (choice.values) {
        const auto read = instrumentValues(session_, *choice.values);
        if (!read) {
            // What is shown stays that of the choice before.
            const QSignalBlocker quiet(ComboShow);
            ComboShow->setCurrentIndex(choice_);
            return;
        }
        values = *read;
        std::ranges::sort(values);
    }
    choice_ = ComboShow->currentIndex();
    ComboValue->clear();
    ComboValue->addItems(values);
    ComboValue->setVisible(choice.values.has_value());
    ask();
}

void FormInstruments::clickHeader(int column) {
    if (hasOrder(column))
        sort(column, column == sortColumn_ && !query_.isDescending);
    else
        // The header has set its mark there already.
        showOrder();
}

void FormInstruments::sort(int column, bool isDescending) {
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
    const auto selected = selectedRows(*TableInstruments);
    if (selected.size() == 1)
        Q_EMIT historyWanted(model_->instrument(selected.constFirst()));
}

void FormInstruments::copy() {
    const auto rows = selectedRows(*TableInstruments);
    if (rows.isEmpty())
        return;
    QApplication::clipboard()->setText(
        copiedInstruments(*model_, rows, shownColumns(*TableInstruments->horizontalHeader())));
}

void FormInstruments::save() {
    QStringList filters;
    for (const auto& kind : csvKinds())
        filters << text(kind.caption);
    const auto stored = ModuleGlobals::GetRegSetting(session_, settingsSection, csvSetting);
    const auto usual = std::ranges::find(csvKinds(), stored, &CsvKind::name);
    QFileDialog dialog(this, text(TextId::recordsSave).remove(u"..."_s).trimmed());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilters(filters);
    dialog.selectNameFilter(usual == csvKinds().cend() ? filters.constFirst() : text(usual->caption));
    dialog.setDefaultSuffix(u"csv"_s);
    dialog.setDirectory(QDir::homePath());
    dialog.selectFile(text(TextId::recordsInstruments) + u".csv"_s);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return;
    const auto& kind = csvKinds().at(std::max(qsizetype(0), filters.indexOf(dialog.selectedNameFilter())));
    ModuleGlobals::SaveRegSetting(session_, settingsSection, csvSetting, kind.name);
    const BusyPointer busy(session_.ui);
    LabelOutcome->setText(saveInstruments(session_, model_->query(),
                                          shownColumns(*TableInstruments->horizontalHeader()),
                                          dialog.selectedFiles().constFirst(), kind.form));
    LabelOutcome->show();
}

} // namespace kelvane
