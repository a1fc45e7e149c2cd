#include "records/certificate_run.h"

#include "platform/values/texts.h"
#include "records/certificate_names.h"
#include "reports/report_error.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

class Run {
  public:
    Run(Session& session, const CertificateForm& form, const QString& folder)
        : session_(session), form_(form), folder_(folder), names_(form.settings.fileName) {}

    /// False when the run can't go on. The instrument is read anew: a list may have been read long ago.
    bool write(const QString& asset) {
        const auto instrument = instrumentNamed(session_, asset);
        const auto records = instrument.hasFailed ? std::nullopt : calibrationsOf(session_, asset);
        if (!records)
            return failToRead(asset);
        if (!instrument.found) {
            fail(asset, text(TextId::historyGone));
            return true;
        }
        auto calibration = lastCalibration(session_, *instrument.found, *records);
        if (!calibration) {
            outcome.failures << text(TextId::certificateNoRecord).arg(withoutBlanksAtEnd(asset));
            return true;
        }
        if (!readCustomer(session_, *calibration))
            return failToRead(asset);
        write(asset, *calibration);
        return true;
    }

    CertificateRun outcome;

  private:
    void write(const QString& asset, const CertifiedCalibration& calibration) {
        const auto name = names_.next(certificateNaming(session_, calibration));
        try {
            writeCertificate(session_, calibration, form_, folder_.filePath(name));
            ++outcome.written;
        } catch (const ReportError& error) {
            fail(asset, error.text());
        }
    }
    /// Gives that the run can't go on.
    bool failToRead(const QString& asset) {
        fail(asset, text(TextId::historyNotRead));
        return false;
    }
    void fail(const QString& asset, const QString& reason) {
        outcome.failures << u"%1: %2"_s.arg(withoutBlanksAtEnd(asset), reason);
    }

    Session& session_;
    const CertificateForm& form_;
    QDir folder_;
    CertificateNames names_;
};

} // namespace

CertificateRun writeCertificates(Session& session, const QStringList& assets, const CertificateForm& form,
                                 const QString& folder, const CertificateProgress& onNext) {
    Run run(session, form, folder);
    run.outcome.wanted = assets.size();
    qsizetype number = 0;
    for (const auto& asset : assets) {
        if (!onNext(number++, asset) || !run.write(asset)) {
            run.outcome.isEnded = true;
            break;
        }
    }
    return run.outcome;
}

QString runText(const CertificateRun& run) {
    auto words = run.isEnded ? text(TextId::certificatesCancelled).arg(run.written).arg(run.wanted)
                             : text(TextId::certificatesWritten).arg(run.written);
    if (!run.failures.isEmpty())
        words +=
            u"\r\n\r\n"_s + text(TextId::certificatesNotWritten) + u"\r\n"_s + run.failures.join(u"\r\n"_s);
    return words;
}

} // namespace kelvane
