#include "records/certificate_windows.h"

#include "platform/values/texts.h"
#include "records/certificate_run.h"
#include "records/certificate_settings_dialog.h"
#include "reports/report_error.h"
#include "reports/report_preview.h"
#include "reports/work_window.h"
#include "resources/captions.h"
#include "resources/text_id.h"
#include "ui/controls.h"

#include <QDir>
#include <QFileDialog>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// So much of an asset number is shown.
constexpr qsizetype longestAsset = 40;

/// Shows how far a run is, and asks to be told when the user ends it.
class RunWindow {
  public:
    RunWindow(qsizetype count, QWidget* parent)
        : dialog_(titleOf(TextId::certificatesMake), count, true, parent) {
        dialog_.setMinimumDuration(0);
        dialog_.setLabel(label(u"LabelProgress"_s, TextId::certificatesProgress));
    }

    /// False when the user has ended it.
    bool reach(qsizetype number, const QString& asset) {
        dialog_.setLabelText(text(TextId::certificatesProgress)
                                 .arg(number + 1)
                                 .arg(dialog_.maximum())
                                 .arg(withoutBlanksAtEnd(asset).left(longestAsset)));
        dialog_.setValue(static_cast<int>(number));
        return !dialog_.wasCanceled();
    }

  private:
    WorkWindow dialog_;
};

} // namespace

CertificateWindows::CertificateWindows(Session& session, QStringList folders, QWidget* window)
    : session_(session), folders_(std::move(folders)), window_(window) {}

void CertificateWindows::show(CertifiedCalibration calibration) {
    const auto form = readForm();
    if (!form)
        return;
    // What the history knows of the instrument may have been read long ago.
    const auto asset = calibration.instrument.asset;
    const auto instrument = instrumentNamed(session_, asset);
    if (instrument.isAbsent())
        showFailure(u"%1: %2"_s.arg(withoutBlanksAtEnd(asset), text(TextId::historyGone)));
    if (!instrument.found)
        return;
    calibration.instrument = *instrument.found;
    if (!readCustomer(session_, calibration))
        return;
    try {
        const BusyPointer busy(session_.ui);
        auto preview =
            std::make_unique<ReportPreview>(session_.ui, certificateReport(session_, calibration, *form),
                                            certificateTitle(session_, calibration));
        preview->open();
        previews_.add(std::move(preview));
    } catch (const ReportError& error) {
        showFailure(error.text());
    }
}

QString CertificateWindows::write(const QStringList& assets) {
    QFileDialog dialog(window_, text(TextId::certificatesFolder));
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    dialog.setDirectory(QDir::homePath());
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    return writeInto(dialog.selectedFiles().constFirst(), assets);
}

QString CertificateWindows::writeInto(const QString& folder, const QStringList& assets) {
    const auto form = readForm();
    if (!form)
        return {};
    const auto run = [&] {
        RunWindow progress(assets.size(), window_);
        return writeCertificates(
            session_, assets, *form, folder,
            [&](qsizetype number, const QString& asset) { return progress.reach(number, asset); });
    }();
    if (!run.failures.isEmpty())
        showFailure(runText(run));
    return runText(run).section(u"\r\n"_s, 0, 0);
}

void CertificateWindows::editSettings() {
    (new CertificateSettingsDialog(session_, window_))->open();
}

std::optional<CertificateForm> CertificateWindows::readForm() {
    try {
        return readCertificateForm(session_, folders_);
    } catch (const ReportError& error) {
        showFailure(error.text());
        return {};
    }
}

void CertificateWindows::showFailure(const QString& failure) {
    session_.ui.messageBox(failure, titleOf(TextId::certificatesMake), box::warning);
}

} // namespace kelvane
