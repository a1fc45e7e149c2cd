#pragma once

#include <QString>
#include <QStringList>

namespace kelvane {

/// What a report is run with.
struct ReportRequest {
    /// "DSN = name;UID = user;PWD = password".
    QString connect;
    QString windowTitle;
    /// Looked up in the working directory when it has no path.
    QString reportFileName;
    /// Formula 0 chooses the rows of the report.
    QStringList formulas;
    /// 0: the report's window stands beside the program's.
    int windowParentHandle = 0;
    /// Of no effect.
    int displaySetting = 0;
};

/// The report engine of the worksheet screen: it opens a connection of its own, and shows the report in a
/// preview window of its own, from which the user prints.
class ReportControl {
  public:
    virtual ~ReportControl() = default;
    /// 0 when the preview has come up, above 0 on failure.
    virtual int run(const ReportRequest& request) = 0;
    /// The engine's own words for the last failure.
    virtual QString lastErrorText() const = 0;
};

} // namespace kelvane
