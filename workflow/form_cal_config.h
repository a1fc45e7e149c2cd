#pragma once

#include "ui/child_window.h"

#include <array>

class QCheckBox;
class QComboBox;
class QPushButton;

namespace kelvane {

struct Calibrators;

/// The line settings of each calibrator on this workstation, and whether its communication is logged. A
/// change is stored at once. The rows of the ports have their devices as tool-tips.
class FormCalConfig final : public ChildWindow {
    Q_OBJECT
  public:
    /// `calibrator` is shown first, if it is one of the list.
    FormCalConfig(Session& session, Calibrators& calibrators, const QString& calibrator);

  protected:
    /// The devices are looked for again when the ports drop down.
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    /// A list and the key of the settings store that it shows.
    struct Setting {
        QStringView key;
        QComboBox* list;
    };

    std::array<Setting, 5> settings() const;
    void layOut();
    void showStored();
    void save();
    QString calibrator() const;
    void showDevices();
    void switchLog();

    Calibrators& calibrators_;
    QComboBox* ComboCalibrator;
    QComboBox* ComboPort;
    QComboBox* ComboBaudRate;
    QComboBox* ComboParity;
    QComboBox* ComboDataBits;
    QComboBox* ComboStopBits;
    QCheckBox* CheckLog;
    QPushButton* ButtonCommunicationLog;
};

} // namespace kelvane
