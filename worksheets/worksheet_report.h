#pragma once

#include "platform/database/connection.h"
#include "platform/workstation.h"
#include "worksheets/report_control.h"

#include <QList>
#include <QPointer>

namespace kelvane {

class ReportPreview;

/// The report engine of the worksheet screen. It logs in over a connection and a session of its own, gathers
/// the instruments of the package that formula 0 names ("task_id='TAG'"), and shows their sheets in a preview
/// window. A password stands in none of its texts.
class WorksheetReport final : public ReportControl {
  public:
    WorksheetReport(const Workstation& workstation, ConnectionFactory connections);
    /// Takes the previews that are still open away with it.
    ~WorksheetReport() override;
    WorksheetReport(const WorksheetReport&) = delete;
    WorksheetReport& operator=(const WorksheetReport&) = delete;

    int run(const ReportRequest& request) override;
    QString lastErrorText() const override { return lastErrorText_; }

  private:
    void show(const ReportRequest& request);

    Workstation workstation_;
    ConnectionFactory connections_;
    QString lastErrorText_;
    QList<QPointer<ReportPreview>> previews_;
};

} // namespace kelvane
