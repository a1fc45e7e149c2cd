#include "worksheets/form_work_entry.h"

#include "resources/text_id.h"
#include "ui/controls.h"
#include "ui/guarded.h"
#include "ui/list_rows.h"
#include "ui/open_windows.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// A list of titles and values.
QTreeWidget* listOfValues(const QString& name, TextId accessibleName, TextId toolTip) {
    auto* list = nameControl(new QTreeWidget, name, text(accessibleName), toolTip);
    list->setHeaderLabels({text(TextId::columnField), text(TextId::columnValue)});
    list->setRootIsDecorated(false);
    list->setUniformRowHeights(true);
    list->setAllColumnsShowFocus(true);
    return list;
}

void setCell(QTreeWidgetItem& row, int column, const QString& shown) {
    row.setText(column, shown);
    // It may be longer than its column, and is no markup.
    row.setToolTip(column, Qt::convertFromPlainText(shown));
}

/// A list of at least so many lines, between its label and its note.
void addList(QVBoxLayout& column, int number, QWidget* list, int minLines, TextId caption, TextId note) {
    list->setMinimumHeight(minLines * list->fontMetrics().lineSpacing());
    column.addSpacing(4);
    column.addWidget(labelFor(list, u"Label%1"_s.arg(number), caption));
    column.addWidget(list, 1);
    column.addWidget(label(u"LabelNote%1"_s.arg(number), note));
}

} // namespace

FormWorkEntry::FormWorkEntry(Session& session)
    : ChildWindow(session, u"FormWorkEntry"_s, {.width = 6975, .height = 7845, .isLarge = true}),
      entry_(session, *this),
      TextCalAsset(nameControl(new QLineEdit, u"TextCalAsset"_s, text(TextId::assetCalibrated),
                               TextId::assetCalibratedTip)),
      ListViewData(listOfValues(u"ListViewData"_s, TextId::calibrationRecordData, TextId::recordDataTip)),
      ListStandards(nameControl(new QListWidget, u"ListStandards"_s, text(TextId::standardsUsed),
                                TextId::standardsUsedTip)),
      ListViewResults(
          listOfValues(u"ListViewResults"_s, TextId::calibrationResults, TextId::calibrationResultsTip)),
      CommandAddSTD(button(u"CommandAddSTD"_s, TextId::addStandards, TextId::addStandardsTip)),
      CommandSave(button(u"CommandSave"_s, TextId::createRecord, TextId::createRecordTip)),
      CommandNewAsset(
          button(u"CommandNewAsset"_s, TextId::createAnotherRecord, TextId::createAnotherRecordTip)) {
    setWindowTitle(text(TextId::enterWorksheetResults));
    TextCalAsset->setReadOnly(true);
    layOut();
    connectCommands();
    showButtons();
    setFirstFocus(TextCalAsset);
}

void FormWorkEntry::layOut() {
    auto* assetRow = new QHBoxLayout;
    assetRow->addWidget(labelFor(TextCalAsset, u"Label1"_s, TextId::assetCalibrated));
    assetRow->addWidget(TextCalAsset, 1);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(CommandAddSTD);
    buttons->addStretch(1);
    buttons->addWidget(CommandSave);
    buttons->addWidget(CommandNewAsset);

    auto* body = new QWidget;
    auto* column = new QVBoxLayout(body);
    column->setContentsMargins(8, 6, 8, 6);
    column->setSpacing(4);
    column->addLayout(assetRow);
    addList(*column, 2, ListViewData, 7, TextId::calibrationRecordData, TextId::recordDataNote);
    addList(*column, 3, ListStandards, 4, TextId::standardsUsed, TextId::standardsUsedNote);
    addList(*column, 4, ListViewResults, 3, TextId::calibrationResults, TextId::calibrationResultsNote);
    column->addLayout(buttons);
    column->setStretchFactor(ListViewData, 2);
    setBody(body);
    kelvane::setTabOrder({TextCalAsset, ListViewData, ListStandards, ListViewResults, CommandAddSTD,
                          CommandSave, CommandNewAsset});
}

void FormWorkEntry::connectCommands() {
    connectGuarded(CommandAddSTD, &QPushButton::clicked, this, session_.ui,
                   [this] { run([this] { entry_.addStandards(); }); });
    connectGuarded(CommandSave, &QPushButton::clicked, this, session_.ui,
                   [this] { run([this] { entry_.save(); }); });
    connectGuarded(CommandNewAsset, &QPushButton::clicked, this, session_.ui, [this] {
        run([this] {
            recordOpen_ = true;
            entry_.startDataEntry();
        });
    });
    onRowChosen(ListViewData, session_.ui, [this](int row) { run([&] { entry_.changeField(row); }); });
    onRowChosen(ListStandards, session_.ui, [this](int row) { removeStandard(row); });
    onDelete(ListStandards, session_.ui, [this] { removeStandard(ListStandards->currentRow()); });
}

void FormWorkEntry::begin() {
    run([this] { entry_.startDataEntry(); });
}

void FormWorkEntry::run(const std::function<void()>& command) {
    if (running_ || session_.ui.bringQuestionForward())
        return;
    auto* const focused = focusWidget();
    running_ = true;
    showButtons();
    runGuarded(session_.ui, command);
    running_ = false;
    showButtons();
    if (focused && focused->isEnabled() && !TextCalAsset->hasFocus())
        focused->setFocus();
    if (std::exchange(resultsLeft_, false))
        Q_EMIT resultsLeft();
}

void FormWorkEntry::showButtons() {
    CommandSave->setEnabled(recordOpen_ && !running_);
    CommandAddSTD->setEnabled(recordOpen_ && !running_);
    CommandNewAsset->setEnabled(mayBeginAnother_ && !running_);
}

void FormWorkEntry::removeStandard(int row) {
    if (!running_)
        takeRow(*ListStandards, row);
}

bool FormWorkEntry::mayClose() {
    return !running_ && !isWindowOpen(session_, u"FormCustomDialog");
}

QString FormWorkEntry::asset() const {
    return TextCalAsset->text();
}

void FormWorkEntry::showAsset(const QString& asset) {
    TextCalAsset->setText(asset);
}

void FormWorkEntry::clearFields() {
    ListViewData->clear();
}

void FormWorkEntry::addField(const QString& title, const QString& value) {
    auto* row = new QTreeWidgetItem(ListViewData);
    setCell(*row, 0, title);
    setCell(*row, 1, value);
    ListViewData->resizeColumnToContents(0);
}

QString FormWorkEntry::fieldTitle(int row) const {
    const auto* item = ListViewData->topLevelItem(row);
    return item ? item->text(0) : QString();
}

void FormWorkEntry::showValue(int row, const QString& value) {
    if (auto* item = ListViewData->topLevelItem(row))
        setCell(*item, 1, value);
}

QStringList FormWorkEntry::standards() const {
    return rowsOf(*ListStandards);
}

void FormWorkEntry::addStandard(const QString& asset) {
    ListStandards->addItem(asset);
}

void FormWorkEntry::endRecord() {
    TextCalAsset->clear();
    recordOpen_ = false;
    mayBeginAnother_ = true;
    TextCalAsset->setFocus();
}

} // namespace kelvane
