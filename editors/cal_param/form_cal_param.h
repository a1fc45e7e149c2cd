#pragma once

#include "editors/cal_param/cal_param_controls.h"
#include "editors/cal_param/cal_param_fields.h"
#include "editors/open_cal_param.h"
#include "ui/editor_window.h"

#include <optional>

namespace kelvane {

struct CalParamFault;

/// The editor of the calibration parameters of one instrument, the current one. The screen and its loading
/// stand in form_cal_param.cpp, validation and saving in form_cal_param_save.cpp.
class FormCalParam final : public EditorWindow, public OpenCalParam {
    Q_OBJECT
  public:
    explicit FormCalParam(Session& session);

    /// Asks for an instrument and fills the screen, or closes the screen when none is chosen. Called once
    /// the window is shown.
    void chooseFirst();

    QString strategy() const override;
    void addStrategy(const QString& name) override;
    void renameStrategy(const QString& from, const QString& to) override;
    void addMessage(const QString& name) override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    /// Reads an instrument and shows it as the current one. When anything of it can't be read the screen
    /// keeps all that it shows; then the result is false.
    bool LoadControls(const QString& instrument);
    void ShowUnitTabs();
    double Form_CheckSum() override;
    bool isChanged() override;

    /// Connects the commands that save, and the lists of messages.
    void connectSaving();
    /// Checks the screen and stops at the first fault, or replaces what is stored for the current instrument.
    void SaveData();
    /// Stores what stands on the screen; gives the error, nothing when it is stored.
    std::optional<Error> store(const CalParamEntries& entries);
    void showFault(const CalParamFault& fault);
    void CommandSelect();
    void CommandClone();
    /// What follows a save that failed.
    void refuse(const Error& error);
    /// The control whose value kept the parameters from being saved; null when it is unknown.
    CalParamControl* refusedControl(const Error& error) const;
    /// The title with the current instrument.
    void showInstrument();

    CalParamFields fields_;
    CalParamControls controls_;
    /// The current instrument, by its number as it was entered.
    QString instrument_;
};

} // namespace kelvane
