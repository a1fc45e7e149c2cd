#include "editors/cal_param/cal_param_pages.h"

#include "editors/cal_param/cal_param_fields.h"
#include "editors/cal_param/cal_param_sub_tabs.h"
#include "resources/text_id.h"
#include "ui/arrow_button.h"
#include "ui/controls.h"
#include "ui/list_rows.h"
#include "ui/panels.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QListWidget>
#include <QTabWidget>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

using C = CalParamControls;
using Panel = CalParamPanel;

constexpr int margin = 6;
constexpr int spacing = 4;

template <class Layout>
Layout* compact(Layout* layout) {
    layout->setContentsMargins(margin, spacing, margin, margin);
    layout->setSpacing(spacing);
    return layout;
}

/// The lists of one kind of test messages: what is displayed, and what else there is.
struct PromptPanel {
    QStringView name;
    TextId caption;
    QListWidget* C::*displayed;
    QStringView displayedName;
    QListWidget* C::*available;
    QStringView availableName;
    QPushButton* C::*up;
    QStringView upName;
    QPushButton* C::*down;
    QStringView downName;
};

constexpr PromptPanel prePanel{
    u"SSPanel12",    TextId::preTestPrompts, &C::ListPreDisplay, u"ListPreDisplay",  &C::ListPreAvail,
    u"ListPreAvail", &C::CommandPreUp,       u"CommandPreUp",    &C::CommandPreDown, u"CommandPreDown"};
constexpr PromptPanel postPanel{
    u"SSPanel13",     TextId::postTestPrompts, &C::ListPostDisplay, u"ListPostDisplay",  &C::ListPostAvail,
    u"ListPostAvail", &C::CommandPostUp,       u"CommandPostUp",    &C::CommandPostDown, u"CommandPostDown"};

/// The tolerances of one kind.
struct TolerancePanel {
    QStringView name;
    TextId caption;
    Panel fields;
};

constexpr TolerancePanel tolerancePanels[] = {
    {u"SSPanel5", TextId::fullScaleTolerance, Panel::fullScaleTolerance},
    {u"SSPanel8", TextId::spanTolerance, Panel::spanTolerance},
    {u"SSPanel6", TextId::readingTolerance, Panel::readingTolerance},
    {u"SSPanel7", TextId::lsdTolerance, Panel::lsdTolerance},
    {u"SSPanel9", TextId::unitsTolerance, Panel::unitsTolerance},
};

QListWidget* promptList(QStringView name, TextId panel, TextId caption, TextId toolTip) {
    auto* list = nameControl(new QListWidget, name.toString(), text(panel) + u' ' + text(caption), toolTip);
    list->setUniformItemSizes(true);
    // It takes the space that the page leaves free.
    list->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    list->setMinimumHeight(4 * list->fontMetrics().lineSpacing());
    return list;
}

QGroupBox* makePrompts(C& c, const PromptPanel& kind) {
    auto* displayed =
        promptList(kind.displayedName, kind.caption, TextId::displayedPrompts, TextId::displayedPromptsTip);
    auto* available =
        promptList(kind.availableName, kind.caption, TextId::availablePrompts, TextId::availablePromptsTip);
    auto* up = arrowButton(kind.upName.toString(), ArrowButton::Way::up, TextId::movePromptUpTip);
    auto* down = arrowButton(kind.downName.toString(), ArrowButton::Way::down, TextId::movePromptDownTip);
    const auto nameOf = [](QStringView beside, QStringView list) {
        return beside.toString() + list.mid(4).toString();
    };

    auto* made = panel(kind.name.toString(), kind.caption);
    auto* column = compact(new QVBoxLayout(made));
    column->addWidget(labelFor(displayed, nameOf(u"Label", kind.displayedName), TextId::displayedPrompts));
    auto* moving = new QVBoxLayout;
    auto* line = new QHBoxLayout;
    line->addWidget(displayed, 1);
    line->addLayout(moving);
    moving->addStretch();
    moving->addWidget(up);
    moving->addWidget(down);
    moving->addStretch();
    column->addLayout(line, 1);
    column->addWidget(note(nameOf(u"Note", kind.displayedName), TextId::removePromptNote));
    column->addSpacing(spacing);
    column->addWidget(labelFor(available, nameOf(u"Label", kind.availableName), TextId::availablePrompts));
    column->addWidget(available, 1);
    column->addWidget(note(nameOf(u"Note", kind.availableName), TextId::addPromptNote));
    c.*kind.displayed = displayed;
    c.*kind.available = available;
    c.*kind.up = up;
    c.*kind.down = down;
    return made;
}

QWidget* makeGeneralPage(C& c, const CalParamFields& fields) {
    auto* parameters = panel(u"SSPanel1"_s, TextId::testParametersPanel);
    auto* strategy = compact(new QGridLayout(parameters));
    strategy->setHorizontalSpacing(8);
    fields.fill(*strategy, Panel::strategy);
    // However long the names of the strategies are, the screen keeps its width.
    keepWidth(fields.list(&CalParamRecord::tp_name));
    strategy->setColumnStretch(1, 1);

    auto* prompts = new QHBoxLayout;
    prompts->addWidget(makePrompts(c, prePanel));
    prompts->addWidget(makePrompts(c, postPanel));
    auto* page = new QWidget;
    auto* column = compact(new QVBoxLayout(page));
    column->addWidget(parameters);
    column->addLayout(prompts, 1);
    return page;
}

/// The panel of a side's scale: two columns of labelled fields.
struct ScalePanel {
    QGroupBox* frame;
    QGridLayout* left;
    QGridLayout* right;
};

ScalePanel makeScalePanel(const QString& name, TextId caption) {
    auto* frame = panel(name, caption);
    auto* columns = compact(new QHBoxLayout(frame));
    columns->setSpacing(20);
    ScalePanel made{frame, new QGridLayout, new QGridLayout};
    for (auto* grid : {made.left, made.right}) {
        grid->setHorizontalSpacing(8);
        grid->setVerticalSpacing(spacing);
        grid->setColumnStretch(1, 1);
        columns->addLayout(grid, 1);
    }
    return made;
}

QWidget* sidePage(QGroupBox* scale, QGroupBox* configuration) {
    auto* page = new QWidget;
    auto* column = compact(new QVBoxLayout(page));
    column->addWidget(scale);
    column->addWidget(configuration, 1);
    return page;
}

QWidget* makeInputPage(C& c, const CalParamFields& fields) {
    const auto scale = makeScalePanel(u"SSPanel2"_s, TextId::inputScalePanel);
    fields.fill(*scale.left, Panel::inputLimits);
    scale.left->setRowStretch(scale.left->rowCount(), 1);
    fields.fill(*scale.right, Panel::inputMeasurement);
    scale.right->addWidget(note(u"NoteMeasRes"_s, TextId::measurementResolutionNote), 1, 0, 1, 2);
    scale.right->setRowStretch(scale.right->rowCount(), 1);
    return sidePage(scale.frame, makeInputConfiguration(c, fields));
}

QWidget* makeOutputPage(C& c, const CalParamFields& fields) {
    const auto scale = makeScalePanel(u"SSPanel3"_s, TextId::outputScalePanel);
    fields.fill(*scale.left, Panel::outputLimits);
    fields.fill(*scale.right, Panel::outputUnits);
    return sidePage(scale.frame, makeOutputConfiguration(c, fields));
}

QWidget* makeTolerancePage(const CalParamFields& fields) {
    constexpr int perRow = 3;
    auto* tolerances = panel(u"SSPanel4"_s, TextId::tolerancesPanel);
    auto* column = compact(new QVBoxLayout(tolerances));
    auto* panels = new QGridLayout;
    int place = 0;
    for (const auto& kind : tolerancePanels) {
        auto* frame = panel(kind.name.toString(), kind.caption);
        auto* grid = compact(new QGridLayout(frame));
        grid->setHorizontalSpacing(8);
        grid->setColumnStretch(1, 1);
        fields.fill(*grid, kind.fields);
        panels->addWidget(frame, place / perRow, place % perRow);
        panels->setColumnStretch(place % perRow, 1);
        ++place;
    }
    column->addLayout(panels);
    column->addWidget(note(u"NoteBestFit"_s, TextId::toleranceBestFitNote));
    column->addWidget(note(u"NoteReading"_s, TextId::readingToleranceNote));
    column->addStretch();

    auto* page = new QWidget;
    compact(new QVBoxLayout(page))->addWidget(tolerances);
    return page;
}

} // namespace

QWidget* makeCalParamPages(CalParamControls& c, const CalParamFields& fields) {
    auto* body = new QWidget;
    auto* column = new QVBoxLayout(body);
    column->setContentsMargins(8, 8, 8, 8);
    c.SSTab1 = tabControl(u"SSTab1"_s, TextId::calibrationParameters);
    column->addWidget(c.SSTab1, 1);
    c.SSTab1->addTab(makeGeneralPage(c, fields), text(TextId::generalParametersPage));
    c.SSTab1->addTab(makeInputPage(c, fields), text(TextId::inputConfiguration));
    c.SSTab1->addTab(makeOutputPage(c, fields), text(TextId::outputConfiguration));
    c.SSTab1->addTab(makeTolerancePage(fields), text(TextId::tolerancesPage));

    c.CommandSave = button(u"CommandSave"_s, TextId::saveCommand, TextId::saveTip);
    c.CommandSelect = button(u"CommandSelect"_s, TextId::selectInstrument, TextId::selectInstrumentTip);
    c.CommandClone = button(u"CommandClone"_s, TextId::cloneConfiguration, TextId::cloneConfigurationTip);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    for (auto* button : {c.CommandSave, c.CommandSelect, c.CommandClone})
        buttons->addWidget(button);
    column->addLayout(buttons);
    return body;
}

QString checkSumText(const CalParamFields& fields, const CalParamControls& controls) {
    return fields.checkSumText() + rowsOf(*controls.ListPostDisplay).join(QString()) +
           rowsOf(*controls.ListPreDisplay).join(QString());
}

} // namespace kelvane
