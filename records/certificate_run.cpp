#include "records/certificate_run.h"

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

    /// False when the run can't go on.
    bool write(const InstrumentSummary& instrument) {
        const auto records = calibrationsOf(session_, instrument.asset);
        if (!records) {
            fail(instrument, text(TextId::historyNotRead));
            return false;
        }
        if (records->isEmpty()) {
            outcome.failures << text(TextId::certificateNoRecord).arg(instrument.asset);
            return true;
        }
        const auto calibration = certifiedCalibration(instrument, *records, 0);
        const auto name = names_.next(certificateNaming(session_, calibration));
        try {
            writeCertificate(session_, calibration, form_, folder_.filePath(name));
            ++outcome.written;
        } catch (const ReportError& error) {
            fail(instrument, error.text());
        }
        return true;
    }

    CertificateRun outcome;

  private:
    void fail(const InstrumentSummary& instrument, const QString& reason) {
        outcome.failures << u"%1: %2"_s.arg(instrument.asset, reason);
    }

    Session& session_;
    const CertificateForm& form_;
    QDir folder_;
    CertificateNames names_;
};

} // namespace

CertificateRun writeCertificates(Session& session, const QList<InstrumentSummary>& instruments,
                                 const CertificateForm& form, const QString& folder,
                                 const CertificateProgress& onNext) {
    Run run(session, form, folder);
    run.outcome.wanted = instruments.size();
    qsizetype number = 0;
    for (const auto& instrument : instruments) {
        if (!onNext(number++, instrument.asset) || !run.write(instrument)) {
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
