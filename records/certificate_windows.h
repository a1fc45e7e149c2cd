#pragma once

#include "records/certificate_report.h"
#include "reports/open_previews.h"

class QWidget;

namespace kelvane {

/// What the window of the records does with certificates.
class CertificateWindows {
  public:
    /// The layout is looked for in the folders first. Session and window have to outlive it.
    CertificateWindows(Session& session, QStringList folders, QWidget* window);

    /// Opens the certificate of a calibration in a preview, from which it is printed or saved; a box says why
    /// it can't.
    void show(CertifiedCalibration calibration);
    /// Asks for a folder and writes the certificates of these instruments, with a window that shows how far
    /// it is and ends it. Gives what has become of it; empty when no folder was chosen. Failures stand in a
    /// box, too.
    QString write(const QStringList& assets);
    void editSettings();
    /// Takes the previews that are open away: they show what belongs to a login.
    void closePreviews() { previews_.close(); }

  private:
    std::optional<CertificateForm> readForm();
    QString writeInto(const QString& folder, const QStringList& assets);
    void showFailure(const QString& failure);

    Session& session_;
    QStringList folders_;
    QWidget* window_;
    OpenPreviews previews_;
};

} // namespace kelvane
