#pragma once

#include "demo/demo_workstation.h"
#include "testkit/field_runs.h"

#include <QDate>

namespace kelvane::demo {

/// Work with one of the Flukes on a day, from the list to the records. Each step throws `Difference` on the
/// first deviation.
class FlukeDay {
  public:
    /// `calibrator` is its name in the lists, `memory` the file of what it holds, `day` that of the work in
    /// the plant.
    FlukeDay(DemoWorkstation& station, QString calibrator, const CalibratorRuns& runs, QString memory,
             const QDate& day)
        : station_(station),
          calibrator_(std::move(calibrator)),
          runs_(runs),
          memory_(std::move(memory)),
          day_(day) {}

    void openDownloadList() { station_.openDownloadList(calibrator_); }
    /// The operator adds the instrument of a run. Where the run names a standard, a box says that the
    /// calibrator can't read the output, and he is asked for standards; `overdue` is one that he names first
    /// and that is refused.
    void list(const FieldRun& run, const QString& overdue = {});
    /// A new list of all that the calibrator measures by itself; what it can't take is refused.
    void listMeasured();

    /// Downloads the list, carries the runs out and uploads them; `description` is that of the upload. The
    /// operator sees where the calibrator has judged otherwise.
    void calibrate(const QString& description, const QList<FieldRun>& runs);
    /// Uploads the same runs once more: their records are there already.
    void uploadAgain(const QList<FieldRun>& runs);

  private:
    void expectStandards(const FieldRun& run, const QString& overdue);
    void check(const QList<FieldRun>& runs);

    DemoWorkstation& station_;
    QString calibrator_;
    const CalibratorRuns& runs_;
    QString memory_;
    QDate day_;
    /// Before the download of now.
    QList<FieldRun> earlier_;
};

} // namespace kelvane::demo
