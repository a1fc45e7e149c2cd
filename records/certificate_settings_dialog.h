#pragma once

#include "records/certificate_settings.h"

#include <QDialog>

class QComboBox;
class QDoubleSpinBox;
class QLineEdit;
class QPushButton;

namespace kelvane {

class TextBox;

/// Shows what the database does not know of a certificate, and stores it when it is accepted. It deletes
/// itself when it closes.
class CertificateSettingsDialog final : public QDialog {
    Q_OBJECT
  public:
    /// The workstation has to outlive it.
    CertificateSettingsDialog(const Workstation& workstation, QWidget* parent);

  private:
    void layOut();
    void show(const CertificateSettings& settings);
    CertificateSettings entered() const;
    void store();

    const Workstation& workstation_;
    QLineEdit* TextLaboratory;
    TextBox* TextAddress;
    QLineEdit* TextAccreditation;
    TextBox* TextCustomer;
    QLineEdit* TextMethod;
    TextBox* TextTraceability;
    TextBox* TextUncertainty;
    QLineEdit* TextAuthorized;
    QComboBox* ComboRule;
    QDoubleSpinBox* SpinGuardBand;
    QComboBox* ComboPaper;
    QLineEdit* TextFileName;
    QPushButton* CommandOk;
    QPushButton* CommandCancel;
};

} // namespace kelvane
