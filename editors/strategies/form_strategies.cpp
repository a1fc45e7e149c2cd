#include "editors/strategies/form_strategies.h"

#include "procedures/predefined_points.h"
#include "procedures/strategies.h"
#include "resources/text_id.h"
#include "ui/arrow_button.h"
#include "ui/controls.h"
#include "ui/list_rows.h"

#include <QGridLayout>
#include <QListWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kelvane {

FormStrategies::FormStrategies(Session& session, FindCalParam findCalParam)
    : EditorWindow(session, u"FormStrategies"_s, {.width = 4590, .height = 6960}),
      findCalParam_(std::move(findCalParam)),
      ComboTSNames(dropDown(u"ComboTSNames"_s, text(TextId::strategyName), TextId::strategyNameTip)),
      CommandAdd(button(u"CommandAdd"_s, TextId::addStrategy, TextId::addStrategyTip)),
      CommandRename(button(u"CommandRename"_s, TextId::renameStrategy, TextId::renameStrategyTip)),
      CommandDeleteTS(button(u"CommandDeleteTS"_s, TextId::deleteStrategy, TextId::deleteStrategyTip)),
      CommandSave(button(u"CommandSave"_s, TextId::saveStrategy, TextId::saveStrategyTip)),
      ComboPreDef(dropDown(u"ComboPreDef"_s, text(TextId::predefinedStrategies),
                           TextId::predefinedStrategiesTip, predefinedRows())),
      ListPoints(
          nameControl(new QListWidget, u"ListPoints"_s, text(TextId::testPoints), TextId::testPointsTip)),
      CommandAddTP(button(u"CommandAddTP"_s, TextId::addTestPoint, TextId::addTestPointTip)),
      CommandModify(button(u"CommandModify"_s, TextId::modifyTestPoint, TextId::modifyTestPointTip)),
      CommandDeletePoint(
          button(u"CommandDeletePoint"_s, TextId::deleteTestPoint, TextId::deleteTestPointTip)),
      CommandMoveUp(arrowButton(u"CommandMoveUp"_s, ArrowButton::Way::up, TextId::moveTestPointUpTip)),
      CommandMoveDown(
          arrowButton(u"CommandMoveDown"_s, ArrowButton::Way::down, TextId::moveTestPointDownTip)),
      CommandCancel(
          button(u"CommandCancel"_s, TextId::cancelStrategyChanges, TextId::cancelStrategyChangesTip)) {
    setWindowTitle(text(TextId::testStrategies));
    CommandSave->setEnabled(false);
    CommandCancel->setEnabled(false);
    ListPoints->setUniformItemSizes(true);
    layOut();
    connectCommands();
    setDefaultButton(CommandSave);
    setCancelButton(CommandCancel);
    load();
    setFirstFocus(ComboTSNames->count() > 0 ? static_cast<QWidget*>(ComboTSNames) : CommandAdd);
}

void FormStrategies::layOut() {
    // The other list is as wide as its longest row, since its rows are known.
    keepWidth(ComboTSNames);

    auto* strategy = new QGridLayout;
    strategy->setSpacing(4);
    strategy->addWidget(labelFor(ComboTSNames, u"Label1"_s, TextId::strategyName), 0, 0, 1, 2);
    strategy->addWidget(ComboTSNames, 1, 0, 1, 2);
    strategy->addWidget(CommandAdd, 2, 0);
    strategy->addWidget(CommandRename, 2, 1);
    strategy->addWidget(CommandDeleteTS, 3, 0);
    strategy->addWidget(CommandSave, 3, 1);

    auto* moving = new QHBoxLayout;
    moving->addWidget(CommandMoveUp);
    moving->addWidget(CommandMoveDown);
    moving->addStretch();
    auto* buttons = new QVBoxLayout;
    for (auto* button : {CommandAddTP, CommandModify, CommandDeletePoint})
        buttons->addWidget(button);
    buttons->addLayout(moving);
    buttons->addStretch();
    buttons->addWidget(CommandCancel);
    auto* points = new QGridLayout;
    points->setSpacing(4);
    points->addWidget(labelFor(ListPoints, u"Label3"_s, TextId::testPoints), 0, 0, 1, 2);
    points->addWidget(ListPoints, 1, 0);
    points->addLayout(buttons, 1, 1);

    auto* body = new QWidget;
    auto* column = new QVBoxLayout(body);
    column->setContentsMargins(8, 6, 8, 8);
    column->setSpacing(4);
    column->addLayout(strategy);
    column->addSpacing(8);
    column->addWidget(labelFor(ComboPreDef, u"Label2"_s, TextId::predefinedStrategies));
    column->addWidget(ComboPreDef);
    column->addSpacing(8);
    column->addLayout(points, 1);
    setBody(body);
    kelvane::setTabOrder({ComboTSNames, CommandAdd, CommandRename, CommandDeleteTS, CommandSave, ComboPreDef,
                          ListPoints, CommandAddTP, CommandModify, CommandDeletePoint, CommandMoveUp,
                          CommandMoveDown, CommandCancel});
}

void FormStrategies::connectCommands() {
    onClick(CommandAdd, [this] { CommandAdd_Click(); });
    onClick(CommandRename, [this] { CommandRename_Click(); });
    onClick(CommandDeleteTS, [this] { CommandDeleteTS_Click(); });
    onClick(CommandSave, [this] { CommandSave_Click(); });
    onClick(CommandCancel, [this] { CommandCancel_Click(); });
    onClick(CommandAddTP, [this] { CommandAddTP_Click(); });
    onClick(CommandModify, [this] { CommandModify_Click(); });
    onClick(CommandDeletePoint, [this] { CommandDeletePoint_Click(); });
    onClick(CommandMoveUp, [this] { movePoint(-1); });
    onClick(CommandMoveDown, [this] { movePoint(1); });

    // What the program itself selects is no click.
    onCommand(ComboTSNames, &QComboBox::activated, [this] { openStrategy(ComboTSNames->currentText()); });
    onCommand(ComboPreDef, &QComboBox::activated, [this] { LoadPreDefinedPoints(); });

    onRowChosen(ListPoints, session_.ui, [this](int row) {
        ListPoints->setCurrentRow(row);
        CommandModify->click();
    });
    onDelete(ListPoints, session_.ui, [this] { CommandDeletePoint->click(); });
}

void FormStrategies::load() {
    openStrategy({});
    if (const auto* calParam = findCalParam_())
        openStrategy(calParam->strategy());
}

void FormStrategies::openStrategy(const QString& name) {
    LoadStrategyList(name);
    // The last strategy may have gone meanwhile: without a name there is nothing to edit.
    SetButtons(State::idle);
}

bool FormStrategies::LoadStrategyList(const QString& name) {
    const BusyPointer busy(session_.ui);
    const auto list = loadStrategies(session_, name);
    if (!list) {
        ComboTSNames->setCurrentIndex(shownRow_);
        return false;
    }
    ComboTSNames->clear();
    ComboTSNames->addItems(list->names);
    showStrategy(static_cast<int>(list->names.indexOf(list->shown.name)));
    refill(*ListPoints, list->shown.points);
    ComboPreDef->setCurrentIndex(0);
    saveCheckSum();
    return true;
}

void FormStrategies::showStrategy(int row) {
    shownRow_ = row;
    ComboTSNames->setCurrentIndex(row);
}

void FormStrategies::SetButtons(State state) {
    enum Rule { keep, off, on, whenNamed };
    struct {
        QWidget* control;
        Rule idle;
        Rule added;
        Rule busy;
    } const rules[] = {
        {ComboTSNames, on, keep, keep},
        {CommandAdd, on, off, off},
        {CommandDeleteTS, whenNamed, off, off},
        {CommandRename, whenNamed, off, off},
        {CommandSave, keep, on, off},
        {ComboPreDef, whenNamed, on, off},
        {CommandAddTP, whenNamed, on, off},
        {CommandModify, whenNamed, on, off},
        {CommandDeletePoint, whenNamed, on, off},
        {CommandMoveUp, whenNamed, on, off},
        {CommandMoveDown, whenNamed, on, off},
        {CommandCancel, keep, keep, off},
    };
    const bool isNamed = !ComboTSNames->currentText().isEmpty();
    for (const auto& row : rules) {
        const auto rule = state == State::idle ? row.idle : state == State::added ? row.added : row.busy;
        if (rule != keep)
            row.control->setEnabled(rule == on || (rule == whenNamed && isNamed));
    }
}

void FormStrategies::LoadPreDefinedPoints() {
    refill(*ListPoints, predefinedPoints(ComboPreDef->currentIndex()));
    enableSaving();
}

void FormStrategies::enableSaving() {
    CommandSave->setEnabled(true);
    CommandCancel->setEnabled(true);
}

double FormStrategies::Form_CheckSum() {
    const BusyPointer busy(session_.ui);
    return checkSum(u"FormStrategies,Form_CheckSum"_s,
                    rowsOf(*ListPoints).join(QString()) + ComboTSNames->currentText());
}

} // namespace kelvane
