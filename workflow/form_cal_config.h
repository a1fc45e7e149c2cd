#pragma once

#include "ui/child_window.h"

#include <array>

class QComboBox;

namespace kelvane {

/// The line settings of each calibrator on this workstation. A change is stored at once.
class FormCalConfig final : public ChildWindow {
    Q_OBJECT
  public:
    /// `calibrator` is shown first, if it is one of the list.
    FormCalConfig(Session& session, const QString& calibrator);

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

    QComboBox* ComboCalibrator;
    QComboBox* ComboPort;
    QComboBox* ComboBaudRate;
    QComboBox* ComboParity;
    QComboBox* ComboDataBits;
    QComboBox* ComboStopBits;
};

} // namespace kelvane
