#include "editors/cal_param_fields.h"

#include "editors/entry_box.h"
#include "ui/controls.h"
#include "ui/indicators.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QListWidget>
#include <QRadioButton>

#include <span>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

using C = CalParamControls;
using Rows = std::span<const QStringView>;

/// Whether the caption stands beside the field; without, a screen reader says it all the same.
enum class Label { yes, no };

struct TextBox {
    QLineEdit* C::*control;
    QStringView name;
    int caption;
    QStringView starts;
    int toolTip;
    /// The panel that the caption needs to be understood, by id.
    int panel = 0;
    Label label = Label::yes;
};

constexpr TextBox textBoxes[] = {
    {&C::TextInputLow, u"TextInputLow", 1223, u"0.0", 1224},
    {&C::TextInputHigh, u"TextInputHigh", 1225, u"100.0", 1226},
    {&C::TextRepetitions, u"TextRepetitions", 1231, u"1", 1232},
    {&C::TextOutputLow, u"TextOutputLow", 1236, u"0.0", 1237},
    {&C::TextOutputHigh, u"TextOutputHigh", 1238, u"100.0", 1239},
    {&C::TextFSPos, u"TextFSPos", 1244, u"0.0", 1247, 1246},
    {&C::TextFSNeg, u"TextFSNeg", 1245, u"0.0", 1247, 1246},
    {&C::TextSpanPos, u"TextSpanPos", 1244, u"0.0", 1249, 1248},
    {&C::TextSpanNeg, u"TextSpanNeg", 1245, u"0.0", 1249, 1248},
    {&C::TextReadPos, u"TextReadPos", 1244, u"0.0", 1251, 1250},
    {&C::TextReadNeg, u"TextReadNeg", 1245, u"0.0", 1251, 1250},
    {&C::TextLSDPos, u"TextLSDPos", 1244, u"0.0", 1253, 1252},
    {&C::TextLSDNeg, u"TextLSDNeg", 1245, u"0.0", 1253, 1252},
    {&C::TextUnitsPos, u"TextUnitsPos", 1244, u"0.0", 1255, 1254},
    {&C::TextUnitsNeg, u"TextUnitsNeg", 1245, u"0.0", 1255, 1254},
    {&C::TextCJRefTempIn, u"TextCJRefTempIn", 1265, u"0.0", 1266},
    {&C::TextCJRefTempOut, u"TextCJRefTempOut", 1265, u"0.0", 1266},
    {&C::TextThresholdOut, u"TextThresholdOut", 1280, u"0.0", 1281},
    {&C::TextDipOut, u"TextDipOut", 1282, u"0.0", 1283},
    {&C::TextPTPAmplitudeIn, u"TextPTPAmplitudeIn", 1307, u"100.0", 1309, 0, Label::no},
    {&C::TextPTPAmplitudeOut, u"TextPTPAmplitudeOut", 1307, u"100.0", 1309, 0, Label::no},
};

// The rows are what the database holds and the drivers compare, so they are the same in every language.
constexpr QStringView resolutions[] = {u"100000",  u"10000",    u"1000",      u"100",        u"10",
                                       u"1",       u"0.1",      u"0.01",      u"0.001",      u"0.0001",
                                       u"0.00001", u"0.000001", u"0.0000001", u"0.00000001", u"0.000000001"};
constexpr QStringView units[] = {u"C",     u"F",      u"V",     u"mV",    u"mA",   u"Hz",   u"KHz",
                                 u"MHz",   u"Ohms",   u"KOhms", u"psi",   u"psig", u"inHg", u"inH2O",
                                 u"mmHg",  u"kPa",    u"bar",   u"mbar",  u"uV",   u"uA",   u"A",
                                 u"Mohms", u"in/oz",  u"in/lb", u"ft/lb", u"N/cm", u"N/m",  u"Kg/cm",
                                 u"Kg/m",  u"Klb/ft", u"KN/m",  u"VAC",   u"mVAC", u"%"};
constexpr QStringView temperatureScales[] = {u"ITS-90", u"IPTS-68"};
constexpr QStringView sensorTypes[] = {
    u"RTD PT100 385",  u"RTD PT200 385",  u"RTD PT500 385", u"RTD PT1000 385",
    u"RTD PT100 3916", u"RTD PT100 3926", u"RTD NI120 672", u"RTD CU10 427",
    u"TC E",           u"TC N",           u"TC J",          u"TC K",
    u"TC T",           u"TC B",           u"TC R",          u"TC S",
    u"TC C",           u"TC L",           u"TC U"};
constexpr QStringView transducerTypes[] = {u"High Output", u"Industry Standard", u"Serial", u"UTA"};
constexpr QStringView measurementModes[] = {u"Click Dip", u"Peak", u"Impulse"};
constexpr QStringView cycleEndTimes[] = {u"0.1", u"0.2", u"0.5", u"1.0", u"2.0", u"5.0", u"10.0"};
constexpr QStringView frequencyResponses[] = {u"6144", u"3686", u"2304", u"1676", u"1317", u"1024",
                                              u"996",  u"737",  u"527",  u"376",  u"302",  u"252",
                                              u"200",  u"150",  u"100",  u"75",   u"72"};
constexpr QStringView directions[] = {u"Right", u"Left"};
constexpr QStringView baudRates[] = {u"300", u"600", u"1200", u"2400", u"4800", u"9600", u"19200"};
constexpr QStringView dataBits[] = {u"8", u"7"};
constexpr QStringView stopBits[] = {u"1", u"2"};
constexpr QStringView parities[] = {u"Even", u"Odd", u"None"};

struct List {
    QComboBox* C::*control;
    QStringView name;
    int caption;
    int toolTip;
    Rows rows;
    /// The row that is selected at first; empty for none.
    QStringView starts;
    Label label = Label::yes;
};

constexpr List lists[] = {
    {&C::ComboTSName, u"ComboTSName", 1094, 1214, {}, {}},
    {&C::ComboInputUnits, u"ComboInputUnits", 1227, 1228, units, {}},
    {&C::ComboMeasRes, u"ComboMeasRes", 1229, 1230, resolutions, u"0.1"},
    {&C::ComboOutputUnits, u"ComboOutputUnits", 1240, 1241, units, {}},
    {&C::ComboTempScaleIn, u"ComboTempScaleIn", 1258, 1259, temperatureScales, u"ITS-90", Label::no},
    {&C::ComboTempScaleOut, u"ComboTempScaleOut", 1258, 1259, temperatureScales, u"ITS-90", Label::no},
    {&C::ComboSensTypeIn, u"ComboSensTypeIn", 1268, 1269, sensorTypes, u"RTD PT100 3926"},
    {&C::ComboSensTypeOut, u"ComboSensTypeOut", 1268, 1269, sensorTypes, u"RTD PT100 3926"},
    {&C::ComboTransTypeOut, u"ComboTransTypeOut", 1276, 1277, transducerTypes, u"UTA"},
    {&C::ComboMeasurementModeOut, u"ComboMeasurementModeOut", 1278, 1279, measurementModes, u"Peak"},
    {&C::ComboCycleEndTimeOut, u"ComboCycleEndTimeOut", 1286, 1288, cycleEndTimes, u"1.0"},
    {&C::ComboFreqRespOut, u"ComboFreqRespOut", 1289, 1291, frequencyResponses, u"1676"},
    {&C::ComboMeasDirOut, u"ComboMeasDirOut", 1292, 1293, directions, u"Right"},
    {&C::ComboBaudRateOut, u"ComboBaudRateOut", 318, 432, baudRates, u"9600"},
    {&C::ComboDataBitsOut, u"ComboDataBitsOut", 336, 434, dataBits, u"8"},
    {&C::ComboStopBitsOut, u"ComboStopBitsOut", 319, 435, stopBits, u"1"},
    {&C::ComboParityOut, u"ComboParityOut", 326, 433, parities, u"None"},
};

struct Option {
    QRadioButton* C::*control;
    QStringView name;
    int caption;
    int toolTip;
    /// What is chosen, by id.
    int subject;
    bool starts = false;
};

constexpr Option options[] = {
    {&C::OptionCJRefIntIn, u"OptionCJRefIntIn", 1261, 1262, 1260, true},
    {&C::OptionCJRefExtIn, u"OptionCJRefExtIn", 1263, 1264, 1260},
    {&C::OptionCJRefIntOut, u"OptionCJRefIntOut", 1261, 1262, 1260, true},
    {&C::OptionCJRefExtOut, u"OptionCJRefExtOut", 1263, 1264, 1260},
    {&C::OptionSensWires2In, u"OptionSensWires2In", 1272, 1271, 1270},
    {&C::OptionSensWires3In, u"OptionSensWires3In", 1273, 1271, 1270},
    {&C::OptionSensWires4In, u"OptionSensWires4In", 1274, 1271, 1270, true},
    {&C::OptionSensWires2Out, u"OptionSensWires2Out", 1272, 1271, 1270},
    {&C::OptionSensWires3Out, u"OptionSensWires3Out", 1273, 1271, 1270},
    {&C::OptionSensWires4Out, u"OptionSensWires4Out", 1274, 1271, 1270, true},
    {&C::OptionCalLoopPWROutOff, u"OptionCalLoopPWROutOff", 1300, 1301, 1299, true},
    {&C::OptionCalLoopPWROut24VDC, u"OptionCalLoopPWROut24VDC", 1302, 1303, 1299},
    {&C::OptionCalLoopPWROut28VDC, u"OptionCalLoopPWROut28VDC", 1304, 1305, 1299},
};

struct TickBox {
    QCheckBox* C::*control;
    QStringView name;
    int caption;
    int toolTip;
};

constexpr TickBox tickBoxes[] = {
    {&C::CheckIndicatedInput, u"CheckIndicatedInput", 1233, 1234},
    {&C::CheckIndicatedOutput, u"CheckIndicatedOutput", 1242, 1243},
};

/// The caption of a field with the subject that it belongs to.
QString spoken(int subject, int caption) {
    return subject == 0 ? text(caption) : text(subject) + u' ' + text(caption);
}

/// The name of what stands beside a field: that of the field without its kind.
QString besideName(const QWidget* field, QStringView kind) {
    return kind.toString() + field->objectName().mid(qobject_cast<const QComboBox*>(field) ? 5 : 4);
}

} // namespace

CalParamFields::CalParamFields(CalParamControls& controls) {
    makeTextBoxes(controls);
    makeLists(controls);
    makeOptions(controls);
    controls.LabelDipOut = labels_.value(controls.TextDipOut);
}

void CalParamFields::makeTextBoxes(CalParamControls& controls) {
    for (const auto& one : textBoxes) {
        auto* box = named(new EntryBox, one.name.toString(), spoken(one.panel, one.caption), one.toolTip);
        box->setText(one.starts.toString());
        controls.*one.control = box;
        if (one.label == Label::yes)
            addLabel(box, one.caption);
    }
}

void CalParamFields::makeLists(CalParamControls& controls) {
    for (const auto& one : lists) {
        auto* list = dropDown(one.name.toString(), text(one.caption), one.toolTip);
        for (const auto row : one.rows)
            list->addItem(row.toString());
        list->setCurrentIndex(one.starts.isEmpty() ? -1 : list->findText(one.starts.toString()));
        controls.*one.control = list;
        if (one.label == Label::yes)
            addLabel(list, one.caption);
    }
    // However long the names of the strategies are, the screen keeps its width.
    keepWidth(controls.ComboTSName);
}

void CalParamFields::makeOptions(CalParamControls& controls) {
    for (const auto& one : options) {
        auto* option =
            named(new RadioButton, one.name.toString(), spoken(one.subject, one.caption), one.toolTip);
        option->setText(text(one.caption));
        option->setChecked(one.starts);
        controls.*one.control = option;
    }
    for (const auto& one : tickBoxes) {
        auto* box = named(new CheckBox, one.name.toString(), text(one.caption), one.toolTip);
        box->setText(text(one.caption));
        controls.*one.control = box;
    }
}

void CalParamFields::addLabel(QWidget* field, int caption) {
    labels_.insert(field, labelFor(field, besideName(field, u"Label"), caption));
}

void CalParamFields::put(QGridLayout& grid, int row, int side, QWidget* field, int unit) const {
    constexpr int betweenSides = 3;
    const int column = side * (betweenSides + 1);
    if (auto* caption = labels_.value(field))
        grid.addWidget(caption, row, column);
    grid.addWidget(field, row, column + 1);
    if (unit != 0)
        grid.addWidget(label(besideName(field, u"Unit"), unit), row, column + 2);
    if (side == 1)
        grid.setColumnMinimumWidth(betweenSides, 12);
}

} // namespace kelvane
