#include "editors/cal_param/cal_param_sub_tabs.h"

#include "editors/cal_param/cal_param_fields.h"
#include "resources/text_id.h"
#include "ui/controls.h"
#include "ui/panels.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QTabWidget>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

using C = CalParamControls;
using Panel = CalParamPanel;

/// The sub-tabs of one side for a temperature and for a frequency.
struct Side {
    /// "In" or "Out", as names end.
    QStringView name;
    TextId panel;
    QTabWidget* C::*temperature;
    QStringView temperatureName;
    Panel scale;
    Panel reference;
    Panel sensor;
    QTabWidget* C::*frequency;
    QStringView frequencyName;
    Panel amplitude;
};

constexpr Side input{u"In",
                     TextId::inputConfiguration,
                     &C::SSTabInTemp,
                     u"SSTabInTemp",
                     Panel::temperatureScaleIn,
                     Panel::coldJunctionIn,
                     Panel::sensorIn,
                     &C::SSTabInAmplitude,
                     u"SSTabInAmplitude",
                     Panel::amplitudeIn};
constexpr Side output{u"Out",
                      TextId::outputConfiguration,
                      &C::SSTabOutTemp,
                      u"SSTabOutTemp",
                      Panel::temperatureScaleOut,
                      Panel::coldJunctionOut,
                      Panel::sensorOut,
                      &C::SSTabOutAmplitude,
                      u"SSTabOutAmplitude",
                      Panel::amplitudeOut};

/// A page of sub-tabs, whose grid stands at its top; the last column takes the width that is left.
QGridLayout* addPage(QTabWidget& subTabs, TextId caption) {
    auto* page = new QWidget;
    auto* rest = new QVBoxLayout(page);
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(4);
    grid->setColumnStretch(CalParamFields::columns, 1);
    rest->addLayout(grid);
    rest->addStretch();
    subTabs.addTab(page, text(caption));
    return grid;
}

/// A note below the fields of a page, over its whole width.
void addNote(QGridLayout& page, const QString& name, TextId text) {
    const int row = page.rowCount();
    page.setRowMinimumHeight(row, 2);
    page.addWidget(note(name, text), row + 1, 0, 1, CalParamFields::columns + 1);
}

QTabWidget* makeTemperature(C& c, const CalParamFields& fields, const Side& side) {
    auto* subTabs = tabControl(side.temperatureName.toString(), side.panel);
    fields.fill(*addPage(*subTabs, TextId::temperatureScale), side.scale);
    fields.fill(*addPage(*subTabs, TextId::coldJunctionReference), side.reference);
    fields.fill(*addPage(*subTabs, TextId::sensorTypePage), side.sensor);
    return c.*side.temperature = subTabs;
}

QTabWidget* makeAmplitude(C& c, const CalParamFields& fields, const Side& side) {
    auto* subTabs = tabControl(side.frequencyName.toString(), side.panel);
    auto* grid = addPage(*subTabs, TextId::waveformPage);
    auto* amplitude = panel(u"PanelPTPAmplitude"_s + side.name.toString(), TextId::peakToPeakAmplitude);
    fields.fill(*new QGridLayout(amplitude), side.amplitude);
    grid->addWidget(amplitude, 0, 0);
    return c.*side.frequency = subTabs;
}

QTabWidget* makeTorque(C& c, const CalParamFields& fields) {
    auto* subTabs = tabControl(u"SSTabTorqueOut"_s, TextId::outputConfiguration);
    auto* general = addPage(*subTabs, TextId::torqueGeneralPage);
    fields.fill(*general, Panel::torqueGeneral);
    addNote(*general, u"NoteTorqueUnits"_s, TextId::torqueUnitsNote);

    auto* analog = addPage(*subTabs, TextId::analogTransducerPage);
    fields.fill(*analog, Panel::torqueAnalog);
    addNote(*analog, u"NoteAnalog"_s, TextId::analogTransducerNote);

    auto* digital = addPage(*subTabs, TextId::digitalTransducerPage);
    fields.fill(*digital, Panel::torqueDigital);
    addNote(*digital, u"NoteDigital"_s, TextId::digitalTransducerNote);
    return c.SSTabTorqueOut = subTabs;
}

QTabWidget* makeCurrent(C& c, const CalParamFields& fields) {
    auto* subTabs = tabControl(u"SSTabCurrentOut"_s, TextId::outputConfiguration);
    auto* grid = addPage(*subTabs, TextId::loopPowerPage);
    auto* source = panel(u"PanelLoopPower"_s, TextId::loopPowerPanel);
    fields.fill(*new QGridLayout(source), Panel::loopPower);
    grid->addWidget(source, 0, 0);
    return c.SSTabCurrentOut = subTabs;
}

QGroupBox* stack(const QString& name, TextId caption, std::initializer_list<QTabWidget*> all) {
    auto* made = panel(name, caption);
    auto* grid = new QGridLayout(made);
    grid->setContentsMargins(6, 4, 6, 6);
    for (auto* subTabs : all) {
        auto policy = subTabs->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        subTabs->setSizePolicy(policy);
        subTabs->hide();
        grid->addWidget(subTabs, 0, 0);
    }
    return made;
}

} // namespace

QGroupBox* makeInputConfiguration(CalParamControls& controls, const CalParamFields& fields) {
    return stack(u"SSPanel10"_s, TextId::inputConfiguration,
                 {makeTemperature(controls, fields, input), makeAmplitude(controls, fields, input)});
}

QGroupBox* makeOutputConfiguration(CalParamControls& controls, const CalParamFields& fields) {
    return stack(u"SSPanel11"_s, TextId::outputConfiguration,
                 {makeTemperature(controls, fields, output), makeTorque(controls, fields),
                  makeCurrent(controls, fields), makeAmplitude(controls, fields, output)});
}

} // namespace kelvane
