#include "testkit/upload_lab.h"

namespace kelvane::testing {

UploadLab::UploadLab() {
    session.BCalP = true;
    session.ResultTemplateLine = QStringLiteral("TN$ FVA$           FRE$           TR$   CO$");
    execute(QStringLiteral("delete from mt.hvm_kv_worksheetfields"));
    addStrategy(QStringLiteral("ROUND"), {0, 50, 100});
    configure(QStringLiteral("1401"));
    configure(QStringLiteral("1402"));
    firstRecord = column(QStringLiteral("select max(ctag) from mt.calibration")).value(0).toInt() + 1;
}

void UploadLab::addStrategy(const QString& name, const QList<double>& points) {
    for (qsizetype i = 0; i < points.size(); ++i)
        execute(QStringLiteral("insert into mt.hvm_kv_proc_points (tp_name, test_point_seq, "
                               "test_point_pct) values ('%1', %2, %3)")
                    .arg(name)
                    .arg(i)
                    .arg(points[i]));
}

void UploadLab::configure(const QString& mtag, const QString& changes) {
    const auto round = QStringLiteral(
        "input_type = 'V', output_type = 'V', input_low = 0, input_high = 100, output_low = 0, "
        "output_high = 100, resolution = 0.001, neg_units = 3.125, pos_units = 3.125, neg_span_pct = 0, "
        "pos_span_pct = 0, repetitions = 1, tp_name = 'ROUND'");
    for (const auto& assignments : {round, changes}) {
        if (!assignments.isEmpty())
            execute(QStringLiteral("update mt.hvm_kv_tag_config set %1 where mtag = '%2'")
                        .arg(assignments, mtag));
    }
}

QStringList UploadLab::column(const QString& query) {
    return rows(query);
}

QStringList UploadLab::records(const QString& expression) {
    return column(QStringLiteral("select %1 from mt.calibration where ctag >= %2 order by ctag")
                      .arg(expression)
                      .arg(firstRecord));
}

QStringList UploadLab::verdicts() {
    return records(QStringLiteral("c2308 || ' ' || c2323 || ' ' || c2352 || ' ' || c2350"));
}

QStringList UploadLab::lines() {
    QStringList found;
    for (const auto& line :
         column(QStringLiteral("select c2501 from mt.calresults where ctag >= %1 order by ctag, c2502")
                    .arg(firstRecord)))
        found << line.simplified();
    return found;
}

QStringList UploadLab::standards() {
    return column(QStringLiteral("select c2430 from mt.standards where ctag >= %1 order by %2")
                      .arg(firstRecord)
                      .arg(database.rowOrder()));
}

void UploadLab::expectFailureBox(const QString& words, const QString& name) {
    ui.expectBox(name + QStringLiteral(": ") + words, QStringLiteral("Download Procedures To Calibrator"),
                 box::information);
}

void UploadLab::expectDisagreement(bool instrumentPassed, const QString& asset) {
    const auto cause = QStringLiteral(" This condition is caused by the inability of the calibrator to "
                                      "handle complex error calculations.");
    const auto words = instrumentPassed
                           ? QStringLiteral("the above listed instrument passed calibration, but the "
                                            "calibrator reported that the instrument was out of tolerance.")
                           : QStringLiteral("The above listed instrument failed calibration, but the "
                                            "calibrator reported that the instrument was not out of "
                                            "tolerance.");
    ui.expectBox(QStringLiteral("Instrument: ") + asset + QStringLiteral("\r\n\r\n") + words + cause,
                 instrumentPassed ? QStringLiteral("Instrument Passed Calibration!")
                                  : QStringLiteral("Instrument Failed Calibration!"),
                 box::warning);
}

void UploadLab::expectRefusal() {
    ui.expectBox(QStringLiteral("A calibration record for this UUT with the same calibration date and "
                                "time already exists! Aborting calibration record creation for this "
                                "UUT."),
                 QStringLiteral("Calibration Record Creation"), box::stop);
}

} // namespace kelvane::testing
