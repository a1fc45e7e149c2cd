#pragma once

#include "platform/database/connection.h"
#include "platform/workstation.h"
#include "reports/open_previews.h"
#include "worksheets/report_control.h"

namespace kelvane {

/// The report engine of the worksheet screen. It logs in over a connection and a session of its own, gathers
/// the instruments of the package that formula 0 names ("task_id='TAG'"), and shows their sheets in a preview
/// window, which closes with it. A password stands in none of its texts.
class WorksheetReport final : public ReportControl {
  public:
    WorksheetReport(const Workstation& workstation, ConnectionFactory connections);

    int run(const ReportRequest& request) override;
    QString lastErrorText() const override { return lastErrorText_; }

  private:
    void show(const ReportRequest& request);

    Workstation workstation_;
    ConnectionFactory connections_;
    QString lastErrorText_;
    OpenPreviews previews_;
};

} // namespace kelvane
