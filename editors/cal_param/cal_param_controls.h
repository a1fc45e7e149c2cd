#pragma once

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;
class QTabWidget;

namespace kelvane {

/// The controls of the calibration parameter editor, by their names. They belong to the window.
struct CalParamControls {
    // The four pages, and the buttons below them.
    QTabWidget* SSTab1 = nullptr;
    QPushButton* CommandSave = nullptr;
    QPushButton* CommandSelect = nullptr;
    QPushButton* CommandClone = nullptr;

    // Page 0: strategy and test messages.
    QComboBox* ComboTSName = nullptr;
    QListWidget* ListPreDisplay = nullptr;
    QListWidget* ListPreAvail = nullptr;
    QPushButton* CommandPreUp = nullptr;
    QPushButton* CommandPreDown = nullptr;
    QListWidget* ListPostDisplay = nullptr;
    QListWidget* ListPostAvail = nullptr;
    QPushButton* CommandPostUp = nullptr;
    QPushButton* CommandPostDown = nullptr;

    // Page 1: input.
    QLineEdit* TextInputLow = nullptr;
    QLineEdit* TextInputHigh = nullptr;
    QComboBox* ComboInputUnits = nullptr;
    QComboBox* ComboMeasRes = nullptr;
    QLineEdit* TextRepetitions = nullptr;
    QCheckBox* CheckIndicatedInput = nullptr;
    QTabWidget* SSTabInTemp = nullptr;
    QComboBox* ComboTempScaleIn = nullptr;
    QRadioButton* OptionCJRefIntIn = nullptr;
    QRadioButton* OptionCJRefExtIn = nullptr;
    QLineEdit* TextCJRefTempIn = nullptr;
    QComboBox* ComboSensTypeIn = nullptr;
    QRadioButton* OptionSensWires2In = nullptr;
    QRadioButton* OptionSensWires3In = nullptr;
    QRadioButton* OptionSensWires4In = nullptr;
    QTabWidget* SSTabInAmplitude = nullptr;
    QLineEdit* TextPTPAmplitudeIn = nullptr;

    // Page 2: output.
    QLineEdit* TextOutputLow = nullptr;
    QLineEdit* TextOutputHigh = nullptr;
    QComboBox* ComboOutputUnits = nullptr;
    QCheckBox* CheckIndicatedOutput = nullptr;
    QTabWidget* SSTabOutTemp = nullptr;
    QComboBox* ComboTempScaleOut = nullptr;
    QRadioButton* OptionCJRefIntOut = nullptr;
    QRadioButton* OptionCJRefExtOut = nullptr;
    QLineEdit* TextCJRefTempOut = nullptr;
    QComboBox* ComboSensTypeOut = nullptr;
    QRadioButton* OptionSensWires2Out = nullptr;
    QRadioButton* OptionSensWires3Out = nullptr;
    QRadioButton* OptionSensWires4Out = nullptr;
    QTabWidget* SSTabTorqueOut = nullptr;
    QComboBox* ComboTransTypeOut = nullptr;
    QComboBox* ComboMeasurementModeOut = nullptr;
    QLineEdit* TextThresholdOut = nullptr;
    QLabel* LabelDipOut = nullptr;
    QLineEdit* TextDipOut = nullptr;
    QComboBox* ComboCycleEndTimeOut = nullptr;
    QComboBox* ComboFreqRespOut = nullptr;
    QComboBox* ComboMeasDirOut = nullptr;
    QComboBox* ComboBaudRateOut = nullptr;
    QComboBox* ComboDataBitsOut = nullptr;
    QComboBox* ComboStopBitsOut = nullptr;
    QComboBox* ComboParityOut = nullptr;
    QTabWidget* SSTabCurrentOut = nullptr;
    QRadioButton* OptionCalLoopPWROutOff = nullptr;
    QRadioButton* OptionCalLoopPWROut24VDC = nullptr;
    QRadioButton* OptionCalLoopPWROut28VDC = nullptr;
    QTabWidget* SSTabOutAmplitude = nullptr;
    QLineEdit* TextPTPAmplitudeOut = nullptr;

    // Page 3: tolerances.
    QLineEdit* TextFSPos = nullptr;
    QLineEdit* TextFSNeg = nullptr;
    QLineEdit* TextSpanPos = nullptr;
    QLineEdit* TextSpanNeg = nullptr;
    QLineEdit* TextReadPos = nullptr;
    QLineEdit* TextReadNeg = nullptr;
    QLineEdit* TextLSDPos = nullptr;
    QLineEdit* TextLSDNeg = nullptr;
    QLineEdit* TextUnitsPos = nullptr;
    QLineEdit* TextUnitsNeg = nullptr;
};

} // namespace kelvane
