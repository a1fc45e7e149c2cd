#pragma once

class QListWidget;
class QPushButton;
class QTabWidget;

namespace kelvane {

/// The controls of the calibration parameter editor that are no fields, by their names. They belong to the
/// window.
struct CalParamControls {
    // The four pages, and the buttons below them.
    QTabWidget* SSTab1 = nullptr;
    QPushButton* CommandSave = nullptr;
    QPushButton* CommandSelect = nullptr;
    QPushButton* CommandClone = nullptr;

    // Page 0: test messages.
    QListWidget* ListPreDisplay = nullptr;
    QListWidget* ListPreAvail = nullptr;
    QPushButton* CommandPreUp = nullptr;
    QPushButton* CommandPreDown = nullptr;
    QListWidget* ListPostDisplay = nullptr;
    QListWidget* ListPostAvail = nullptr;
    QPushButton* CommandPostUp = nullptr;
    QPushButton* CommandPostDown = nullptr;

    // Page 1: input.
    QTabWidget* SSTabInTemp = nullptr;
    QTabWidget* SSTabInAmplitude = nullptr;

    // Page 2: output.
    QTabWidget* SSTabOutTemp = nullptr;
    QTabWidget* SSTabTorqueOut = nullptr;
    QTabWidget* SSTabCurrentOut = nullptr;
    QTabWidget* SSTabOutAmplitude = nullptr;
};

} // namespace kelvane
