#include "editors/form_work_config.h"

#include "editors/refusal.h"
#include "procedures/record_config.h"
#include "resources/text_id.h"
#include "ui/arrow_button.h"
#include "ui/controls.h"
#include "ui/list_rows.h"
#include "ui/panels.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QListWidget>
#include <QScrollBar>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

// What a list shows at least.
constexpr int shownLetters = 25;
constexpr int shownRows = 8;
// Beyond this width a list scrolls: both fit into the main window as it opens.
constexpr int maxListWidth = 300;

QCheckBox* checkBox(const QString& name, TextId caption, TextId toolTip) {
    auto* made = nameControl(new QCheckBox, name, text(caption), toolTip);
    made->setText(text(caption));
    return made;
}

/// A list that fills the frame around it.
QListWidget* fieldList(const QString& name, TextId caption, TextId toolTip) {
    auto* made = nameControl(new QListWidget, name, text(caption), toolTip);
    made->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    return made;
}

/// A text whose lines are as long as the place that it gets.
QLabel* wrapLabel(QLabel* label) {
    label->setWordWrap(true);
    auto policy = label->sizePolicy();
    policy.setHorizontalPolicy(QSizePolicy::Ignored);
    label->setSizePolicy(policy);
    return label;
}

} // namespace

FormWorkConfig::FormWorkConfig(Session& session)
    : EditorWindow(session, u"FormWorkConfig"_s, {.width = 5745, .height = 6735}),
      ListAvail(fieldList(u"ListAvail"_s, TextId::fieldsNotRequested, TextId::fieldsNotRequestedTip)),
      ListRequest(fieldList(u"ListRequest"_s, TextId::fieldsRequested, TextId::fieldsRequestedTip)),
      CommandMoveUp(arrowButton(u"CommandMoveUp"_s, ArrowButton::Way::up, TextId::moveFieldUpTip)),
      CommandMoveDown(arrowButton(u"CommandMoveDown"_s, ArrowButton::Way::down, TextId::moveFieldDownTip)),
      CheckOOC(checkBox(u"CheckOOC"_s, TextId::allowOverdueStandards, TextId::allowOverdueStandardsTip)),
      CheckTrace(checkBox(u"CheckTrace"_s, TextId::allowLowTraceLevel, TextId::allowLowTraceLevelTip)),
      CommandSave(button(u"CommandSave"_s, TextId::saveCommand, TextId::saveTip)),
      CommandCancel(button(u"CommandCancel"_s, TextId::cancel, TextId::cancelChangesTip)) {
    setWindowTitle(text(TextId::recordConfiguration));
    layOut();
    connectCommands();
    setDefaultButton(CommandSave);
    setCancelButton(CommandCancel);
    setFirstFocus(ListAvail);
    // Lists that were never filled would be stored as "no field at all".
    CommandSave->setEnabled(false);
    LoadLists();
}

void FormWorkConfig::layOut() {
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(CommandSave);
    buttons->addWidget(CommandCancel);

    auto* body = new QWidget;
    auto* column = new QVBoxLayout(body);
    column->setContentsMargins(8, 6, 8, 8);
    column->addWidget(fieldsFrame(), 1);
    column->addWidget(standardsFrame());
    column->addLayout(buttons);
    setBody(body);
    kelvane::setTabOrder({ListAvail, ListRequest, CommandMoveUp, CommandMoveDown, CheckOOC, CheckTrace,
                          CommandSave, CommandCancel});
}

QWidget* FormWorkConfig::fieldsFrame() {
    auto* frame = panel(u"Frame1"_s, TextId::requestedFieldsPanel);
    auto* moving = new QHBoxLayout;
    moving->setSpacing(4);
    moving->addStretch();
    moving->addWidget(CommandMoveUp);
    moving->addWidget(CommandMoveDown);
    auto* grid = new QGridLayout(frame);
    grid->setContentsMargins(8, 6, 8, 6);
    grid->setVerticalSpacing(3);
    grid->addWidget(wrapLabel(labelFor(ListAvail, u"Label1"_s, TextId::fieldsNotRequested)), 0, 0);
    grid->addWidget(ListAvail, 1, 0, 2, 1);
    grid->addWidget(wrapLabel(note(u"Label2"_s, TextId::addFieldNote)), 3, 0);
    grid->addWidget(wrapLabel(labelFor(ListRequest, u"Label3"_s, TextId::fieldsRequested)), 0, 1);
    grid->addWidget(ListRequest, 1, 1);
    grid->addLayout(moving, 2, 1);
    grid->addWidget(wrapLabel(note(u"Label4"_s, TextId::removeFieldNote)), 3, 1);
    grid->setRowMinimumHeight(4, 4);
    grid->addWidget(wrapLabel(note(u"Label5"_s, TextId::requestedFieldsNote)), 5, 0, 1, 2);
    const auto letters = frame->fontMetrics();
    for (int side = 0; side < 2; ++side) {
        grid->setColumnMinimumWidth(side, shownLetters * letters.averageCharWidth());
        grid->setColumnStretch(side, 1);
    }
    grid->setRowMinimumHeight(1, shownRows * letters.lineSpacing());
    grid->setRowStretch(1, 1);
    return frame;
}

QWidget* FormWorkConfig::standardsFrame() {
    auto* frame = panel(u"Frame2"_s, TextId::standardsConfiguration);
    auto* column = new QVBoxLayout(frame);
    column->setContentsMargins(8, 4, 8, 4);
    column->setSpacing(2);
    column->addWidget(CheckOOC);
    column->addWidget(CheckTrace);
    return frame;
}

void FormWorkConfig::connectCommands() {
    onClick(CommandMoveUp, [this] { moveSelectedRow(*ListRequest, -1); });
    onClick(CommandMoveDown, [this] { moveSelectedRow(*ListRequest, 1); });
    onClick(CommandSave, [this] { CommandSave_Click(); });
    onClick(CommandCancel, [this] { CommandCancel_Click(); });
    onRowChosen(ListAvail, session_.ui, [this](int row) { moveRow(*ListAvail, row, *ListRequest); });
    onRowChosen(ListRequest, session_.ui, [this](int row) { moveRow(*ListRequest, row, *ListAvail); });
}

void FormWorkConfig::LoadLists() {
    const BusyPointer busy(session_.ui);
    const auto config = loadRecordConfig(session_);
    if (!config)
        return;
    refill(*ListAvail, config->available);
    refill(*ListRequest, config->requested);
    widenLists();
    CheckOOC->setChecked(config->allowsOverdueStandards);
    CheckTrace->setChecked(config->allowsPoorTrace);
    saveCheckSum();
    CommandSave->setEnabled(true);
}

void FormWorkConfig::widenLists() {
    int widest = 0;
    for (const auto* list : {ListAvail, ListRequest})
        widest = qMax(widest, list->sizeHintForColumn(0) + 2 * list->frameWidth() +
                                  list->verticalScrollBar()->sizeHint().width());
    for (auto* list : {ListAvail, ListRequest})
        list->setMinimumWidth(qMin(widest, maxListWidth));
}

void FormWorkConfig::CommandSave_Click() {
    markUnsaved();
    const BusyPointer busy(session_.ui);
    const auto failure = saveRecordConfig(session_, {.requested = rowsOf(*ListRequest),
                                                     .allowsOverdueStandards = CheckOOC->isChecked(),
                                                     .allowsPoorTrace = CheckTrace->isChecked()});
    if (failure)
        refuse(*failure);
    else
        saveCheckSum();
}

void FormWorkConfig::refuse(const SaveFailure& failure) {
    const auto* field = ListRequest->item(failure.row);
    const bool isField =
        field && (namesColumn(failure.error, "fldnum"_L1) || !isConfined(fieldNumber(field->text())));
    if (isField) {
        ListRequest->setCurrentRow(failure.row);
        ListRequest->setFocus();
        return;
    }
    if (auto* box = refusedField(failure.error,
                                 {{"allow_ooc_stds"_L1, CheckOOC}, {"allow_poor_trace_stds"_L1, CheckTrace}}))
        box->setFocus();
}

void FormWorkConfig::CommandCancel_Click() {
    if (isChanged() && confirms({TextId::confirmDiscardChanges, box::question, TextId::recordConfiguration}))
        LoadLists();
}

double FormWorkConfig::Form_CheckSum() {
    auto shown = rowsOf(*ListRequest).join(QString());
    for (const auto* allowed : {CheckOOC, CheckTrace})
        shown += allowed->isChecked() ? u"Y"_s : QString();
    // The report of this sum carries the name of the other editor's.
    return checkSum(u"FormStrategies,Form_CheckSum"_s, shown);
}

} // namespace kelvane
