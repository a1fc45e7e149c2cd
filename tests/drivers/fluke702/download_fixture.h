#pragma once

#include "testkit/fluke_fixture.h"

namespace kelvane::testing {

inline const QString downloadTitle = QStringLiteral("Download Procedures To Calibrator");

/// Downloads to a Fluke 702 that the database knows. Instruments are "I-1", "I-2" ..., with three points and
/// no messages unless a test gives them some.
class FlukeDownload : public FlukeFixture {
  protected:
    FlukeDownload() { addCalibrator(); }

    QString download() { return Module702Interface::Fluke702_download(driver, QStringLiteral("TAG")); }
    /// Puts instruments with these parameters into the package.
    QStringList addList(const QList<CalParamRecord>& records);
    /// Downloads them, which has to succeed. From here on `link.calls` are those of this download.
    void load(const QList<CalParamRecord>& records);

    /// All calls, each message's key replaced by "KEY1", "KEY2" ... as they were defined.
    QStringList calls() const;
    /// The arguments of an operation's calls, such as `"psi", 1`.
    QStringList argumentsOf(const QString& operation) const;
    /// The keys of the instruments that were registered with a calibrator.
    QStringList registeredInstruments(const QString& serial) const;
    QStringList registeredInstruments() const { return registeredInstruments(link.serial); }

    static Row message(const QString& name, const QString& text, const QString& type) {
        return {name, text, type};
    }
};

/// What the transfer of an image calls that needs no steps.
inline const QStringList transfer{
    QStringLiteral("DPCclose()"), QStringLiteral("DPCopen(9600, \"COM1\", 1000, 5)"),
    QStringLiteral("DPCget70x()"), QStringLiteral("DPCdnlStart()"), QStringLiteral("DPCclose()")};

} // namespace kelvane::testing
