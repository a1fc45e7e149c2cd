#pragma once

#include "data/assets/in_use.h"
#include "drivers/fluke702/driver.h"
#include "testkit/database_session.h"
#include "testkit/forwarding_connection.h"
#include "testkit/recorded_link.h"

#include <QRegularExpression>

namespace kelvane::testing {

/// A connection that reports each statement before it passes it on.
class OverheardConnection final : public ForwardingConnection {
  public:
    OverheardConnection(std::unique_ptr<Connection> real, std::function<void(const QString&)> report)
        : ForwardingConnection(std::move(real)), report_(std::move(report)) {}
    qint64 execute(const QString& statement) override {
        report_(statement);
        return ForwardingConnection::execute(statement);
    }
    std::unique_ptr<RecordSet> select(const QString& statement, Rows rows) override {
        report_(statement);
        return ForwardingConnection::select(statement, rows);
    }

  private:
    std::function<void(const QString&)> report_;
};

/// The demonstration laboratory with its Fluke 702 (F702-01, serial number 6841207) on the recorded link. Its
/// site asks for no fields that the operator fills in.
///
/// PT-101 (key 1401) is made an instrument of round numbers: 0 to 100 V in, 0 to 100 V out, 3.125 V to either
/// side, which is 3.125 % of span, and its strategy "ROUND" has the points 0, 50 and 100 %. PT-102 (1402) is
/// the same.
class FlukeUpload : public DatabaseSession {
  protected:
    FlukeUpload() {
        session.BCalP = true;
        session.ResultTemplateLine = QStringLiteral("TN$ FVA$           FRE$           TR$   CO$");
        execute(QStringLiteral("delete from mt.hvm_kv_worksheetfields"));
        addStrategy(QStringLiteral("ROUND"), {0, 50, 100});
        configure(QStringLiteral("1401"));
        configure(QStringLiteral("1402"));
        firstRecord = column(QStringLiteral("select max(ctag) from mt.calibration")).value(0).toInt() + 1;
    }

    QString upload() {
        const auto result = Module702Interface::Fluke702_upload(driver);
        EXPECT_TRUE(ui.hasMetAll());
        EXPECT_FALSE(ui.busy);
        return result;
    }

    void addStrategy(const QString& name, const QList<double>& points) {
        for (qsizetype i = 0; i < points.size(); ++i)
            execute(QStringLiteral("insert into mt.hvm_kv_proc_points (tp_name, test_point_seq, "
                                   "test_point_pct) values ('%1', %2, %3)")
                        .arg(name)
                        .arg(i)
                        .arg(points[i]));
    }
    /// Makes an instrument the round one, but for `changes`, such as "repetitions = 3".
    void configure(const QString& mtag, const QString& changes = {}) {
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

    /// A run of an instrument, stored a minute after the one before.
    StoredRun& store(const QString& tag, const QList<ResultEntry>& entries, qint16 kind = 1) {
        StoredRun run;
        run.kind = kind;
        run.minute = static_cast<qint16>(link.runs.size() % 60);
        run.tag = tag;
        run.serial = QStringLiteral("V88101");
        run.technician = QStringLiteral("Joe Doe");
        run.entries = entries;
        link.runs << run;
        return link.runs.last();
    }
    /// A run of the round instrument that passes, or fails at its last point.
    StoredRun& addGoodRun(const QString& tag = QStringLiteral("PT-101"), qint16 kind = 1) {
        return store(tag, {at(0, 0), at(50, 50), at(100, 100)}, kind);
    }
    StoredRun& addBadRun(const QString& tag = QStringLiteral("PT-101"), qint16 kind = 1) {
        return store(tag, {at(0, 0), at(50, 50), at(100, 90, -0.1F)}, kind);
    }
    static ResultEntry at(float applied, float reading, float error = 0) { return {reading, applied, error}; }

    /// The first column of a query, in its order; "(null)" for a null.
    QStringList column(const QString& query) {
        QStringList found;
        for (const auto rows = sharedConnection(session).select(query); rows->next();)
            found << rows->value(0).value_or(QStringLiteral("(null)"));
        return found;
    }
    /// An expression over the records that were made, in their order.
    QStringList records(const QString& expression) {
        return column(QStringLiteral("select %1 from mt.calibration where ctag >= %2 order by ctag")
                          .arg(expression)
                          .arg(firstRecord));
    }
    /// The round, the pass mark, failures and marginals of each record.
    QStringList verdicts() {
        return records(QStringLiteral("c2308 || ' ' || c2323 || ' ' || c2352 || ' ' || c2350"));
    }
    /// The lines of all records that were made, blanks drawn together.
    QStringList lines() {
        QStringList found;
        for (const auto& line :
             column(QStringLiteral("select c2501 from mt.calresults where ctag >= %1 order by ctag, c2502")
                        .arg(firstRecord)))
            found << line.simplified();
        return found;
    }
    /// The keys of the standards of all records that were made.
    QStringList standards() {
        return column(QStringLiteral("select c2430 from mt.standards where ctag >= %1 order by rowid")
                          .arg(firstRecord));
    }
    /// The box of a call that failed: the words for a count, not for the status.
    void expectFailureBox(const QString& words, const QString& name) {
        ui.expectBox(name + QStringLiteral(": ") + words, QStringLiteral("Download Procedures To Calibrator"),
                     box::information);
    }
    void expectDisagreement(bool instrumentPassed, const QString& asset = QStringLiteral("PT-101")) {
        const auto cause = QStringLiteral(" This condition is caused by the inability of the calibrator to "
                                          "handle complex error calculations.");
        const auto words =
            instrumentPassed ? QStringLiteral("the above listed instrument passed calibration, but the "
                                              "calibrator reported that the instrument was out of tolerance.")
                             : QStringLiteral("The above listed instrument failed calibration, but the "
                                              "calibrator reported that the instrument was not out of "
                                              "tolerance.");
        ui.expectBox(QStringLiteral("Instrument: ") + asset + QStringLiteral("\r\n\r\n") + words + cause,
                     instrumentPassed ? QStringLiteral("Instrument Passed Calibration!")
                                      : QStringLiteral("Instrument Failed Calibration!"),
                     box::warning);
    }
    void expectRefusal() {
        ui.expectBox(QStringLiteral("A calibration record for this UUT with the same calibration date and "
                                    "time already exists! Aborting calibration record creation for this "
                                    "UUT."),
                     QStringLiteral("Calibration Record Creation"), box::stop);
    }

    RecordedLink link;
    Fluke702 driver{session, link};
    int firstRecord = 0;

    static inline const QString routine = QStringLiteral("Module702Interface,Fluke702_upload");
};

} // namespace kelvane::testing
