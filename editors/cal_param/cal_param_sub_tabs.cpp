#include "editors/cal_param/cal_param_sub_tabs.h"

#include "editors/cal_param/cal_param_fields.h"
#include "resources/text_id.h"
#include "ui/controls.h"
#include "ui/panels.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QTabWidget>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

using C = CalParamControls;

/// The temperature settings of one side.
struct Temperature {
    QTabWidget* C::*subTabs;
    QStringView name;
    /// "In" or "Out", as names end.
    QStringView side;
    TextId panel;
    QComboBox* C::*scale;
    QRadioButton* C::*internal;
    QRadioButton* C::*external;
    QLineEdit* C::*reference;
    QComboBox* C::*sensor;
    std::array<QRadioButton * C::*, 3> wires;
};

constexpr Temperature temperatureIn{&C::SSTabInTemp,
                                    u"SSTabInTemp",
                                    u"In",
                                    TextId::inputConfiguration,
                                    &C::ComboTempScaleIn,
                                    &C::OptionCJRefIntIn,
                                    &C::OptionCJRefExtIn,
                                    &C::TextCJRefTempIn,
                                    &C::ComboSensTypeIn,
                                    {&C::OptionSensWires2In, &C::OptionSensWires3In, &C::OptionSensWires4In}};
constexpr Temperature temperatureOut{
    &C::SSTabOutTemp,
    u"SSTabOutTemp",
    u"Out",
    TextId::outputConfiguration,
    &C::ComboTempScaleOut,
    &C::OptionCJRefIntOut,
    &C::OptionCJRefExtOut,
    &C::TextCJRefTempOut,
    &C::ComboSensTypeOut,
    {&C::OptionSensWires2Out, &C::OptionSensWires3Out, &C::OptionSensWires4Out}};

/// The peak-to-peak amplitude of one side.
struct Amplitude {
    QTabWidget* C::*subTabs;
    QStringView name;
    QStringView side;
    TextId panel;
    QLineEdit* C::*amplitude;
};

constexpr Amplitude amplitudeIn{&C::SSTabInAmplitude, u"SSTabInAmplitude", u"In", TextId::inputConfiguration,
                                &C::TextPTPAmplitudeIn};
constexpr Amplitude amplitudeOut{&C::SSTabOutAmplitude, u"SSTabOutAmplitude", u"Out",
                                 TextId::outputConfiguration, &C::TextPTPAmplitudeOut};

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
void addNote(QGridLayout& page, int row, const QString& name, TextId text) {
    page.setRowMinimumHeight(row, 2);
    page.addWidget(note(name, text), row + 1, 0, 1, CalParamFields::columns + 1);
}

QTabWidget* makeTemperature(C& c, const CalParamFields& fields, const Temperature& side) {
    auto* subTabs = tabControl(side.name.toString(), side.panel);
    auto* scale = addPage(*subTabs, TextId::temperatureScale);
    scale->addWidget(c.*side.scale, 0, 0);

    auto* reference = addPage(*subTabs, TextId::coldJunctionReference);
    reference->addWidget(c.*side.internal, 0, 0, 1, 2);
    reference->addWidget(c.*side.external, 1, 0, 1, 2);
    fields.put(*reference, 2, 0, c.*side.reference);

    auto* sensor = addPage(*subTabs, TextId::sensorTypePage);
    fields.put(*sensor, 0, 0, c.*side.sensor);
    sensor->addWidget(label(u"LabelSensWires"_s + side.side.toString(), TextId::rtdWires), 1, 0);
    auto* wires = new QHBoxLayout;
    for (const auto option : side.wires)
        wires->addWidget(c.*option);
    wires->addStretch();
    sensor->addLayout(wires, 1, 1);
    c.*side.subTabs = subTabs;
    return subTabs;
}

QTabWidget* makeAmplitude(C& c, const CalParamFields& fields, const Amplitude& side) {
    auto* subTabs = tabControl(side.name.toString(), side.panel);
    auto* grid = addPage(*subTabs, TextId::waveformPage);
    auto* amplitude = panel(u"PanelPTPAmplitude"_s + side.side.toString(), TextId::peakToPeakAmplitude);
    fields.put(*new QGridLayout(amplitude), 0, 0, c.*side.amplitude, TextId::unitMillivolts);
    grid->addWidget(amplitude, 0, 0);
    c.*side.subTabs = subTabs;
    return subTabs;
}

QTabWidget* makeTorque(C& c, const CalParamFields& fields) {
    auto* subTabs = tabControl(u"SSTabTorqueOut"_s, TextId::outputConfiguration);
    auto* general = addPage(*subTabs, TextId::torqueGeneralPage);
    fields.put(*general, 0, 0, c.ComboTransTypeOut);
    fields.put(*general, 1, 0, c.ComboMeasurementModeOut);
    fields.put(*general, 0, 1, c.TextThresholdOut);
    fields.put(*general, 1, 1, c.TextDipOut);
    addNote(*general, 2, u"NoteTorqueUnits"_s, TextId::torqueUnitsNote);

    auto* analog = addPage(*subTabs, TextId::analogTransducerPage);
    fields.put(*analog, 0, 0, c.ComboCycleEndTimeOut, TextId::unitSeconds);
    fields.put(*analog, 1, 0, c.ComboFreqRespOut, TextId::unitHertz);
    fields.put(*analog, 0, 1, c.ComboMeasDirOut);
    addNote(*analog, 2, u"NoteAnalog"_s, TextId::analogTransducerNote);

    auto* digital = addPage(*subTabs, TextId::digitalTransducerPage);
    fields.put(*digital, 0, 0, c.ComboBaudRateOut);
    fields.put(*digital, 1, 0, c.ComboDataBitsOut);
    fields.put(*digital, 0, 1, c.ComboStopBitsOut);
    fields.put(*digital, 1, 1, c.ComboParityOut);
    addNote(*digital, 2, u"NoteDigital"_s, TextId::digitalTransducerNote);
    return c.SSTabTorqueOut = subTabs;
}

QTabWidget* makeCurrent(C& c) {
    auto* subTabs = tabControl(u"SSTabCurrentOut"_s, TextId::outputConfiguration);
    auto* grid = addPage(*subTabs, TextId::loopPowerPage);
    auto* source = panel(u"PanelLoopPower"_s, TextId::loopPowerPanel);
    auto* line = new QHBoxLayout(source);
    line->addWidget(label(u"LabelCalLoopPWROut"_s, TextId::loopPower));
    for (auto* option : {c.OptionCalLoopPWROutOff, c.OptionCalLoopPWROut24VDC, c.OptionCalLoopPWROut28VDC})
        line->addWidget(option);
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
    return stack(
        u"SSPanel10"_s, TextId::inputConfiguration,
        {makeTemperature(controls, fields, temperatureIn), makeAmplitude(controls, fields, amplitudeIn)});
}

QGroupBox* makeOutputConfiguration(CalParamControls& controls, const CalParamFields& fields) {
    return stack(u"SSPanel11"_s, TextId::outputConfiguration,
                 {makeTemperature(controls, fields, temperatureOut), makeTorque(controls, fields),
                  makeCurrent(controls), makeAmplitude(controls, fields, amplitudeOut)});
}

} // namespace kelvane
