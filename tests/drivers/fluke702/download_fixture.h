#pragma once

#include "testkit/download_fixture.h"
#include "testkit/fluke_fixture.h"

namespace kelvane::testing {

inline const QString downloadTitle = QStringLiteral("Download Procedures To Calibrator");

class FlukeDownload : public DownloadOf<FlukeFixture> {};

/// What the transfer of an image calls that needs no steps.
inline const QStringList transfer{
    QStringLiteral("DPCclose()"), QStringLiteral("DPCopen(9600, \"COM1\", 1000, 5)"),
    QStringLiteral("DPCget70x()"), QStringLiteral("DPCdnlStart()"), QStringLiteral("DPCclose()")};

} // namespace kelvane::testing
