#pragma once

#include "resources/strings.h"
#include "testkit/recorded_link.h"
#include "testkit/recorded_link3.h"
#include "testkit/torque_fixture.h"
#include "tests/workflow/scripted_screen.h"

namespace kelvane::testing {

inline const QStringList ended{QStringLiteral("empty"), QStringLiteral("focus")};
inline const QString title = QStringLiteral("Download Procedures To Calibrator");
inline const QString incomplete = QStringLiteral(
    "This instrument does not have complete configuration data! Either the calibration parameters for this "
    "instrument have not yet been set, or the test strategy has not been set or has been removed.");
inline const QString standardRequired = QStringLiteral("External Standard Required");

class DownloadList : public TorqueFixture {
  protected:
    DownloadList() {
        addWrenches(QStringLiteral("unused"), 3);
        addStandard(QStringLiteral("X-1"));
        addStandard(QStringLiteral("X-2"));
    }

    void add(const QString& entry) {
        script.statements.clear();
        screen.events.clear();
        addToDownloadList(calibrators, screen, entry);
    }

    /// A transducer that may be used for all wrenches.
    void addStandard(const QString& standard) {
        addInstrument(standard, u'K' + standard, transducer());
        for (const auto& asset : {QStringLiteral("W-1"), QStringLiteral("W-2"), QStringLiteral("W-3")})
            qualify(standard, asset);
    }

    void qualify(const QString& standard, const QString& asset, const QString& dueDate = {},
                 const QString& distance = QStringLiteral("1")) {
        script.answers.insert(selectQualification(standard, asset),
                              {{QStringLiteral("A"),
                                dueDate.isEmpty() ? std::optional<QString>() : dueDate,
                                {},
                                QStringLiteral("B"),
                                QStringLiteral("N"),
                                QStringLiteral("N")}});
        script.answers.insert(
            QStringLiteral("select sum(locate(tracecodes,(select i4209 from MT.inventory where i4201 = '") +
                asset +
                QStringLiteral("')) - locate(tracecodes,(select i4209 from MT.inventory where i4201 = '") +
                standard + QStringLiteral("')) - trace_delta) from mt.dbconfig"),
            {{distance}});
    }

    static QString selectQualification(const QString& standard, const QString& asset) {
        return QStringLiteral("select i4209,(select c2303 from MT.calibration where c2339 = 1 and "
                              "MT.calibration.mtag = MT.inventory.mtag),(select c2334 from MT.calibration "
                              "where c2339 = 1 and MT.calibration.mtag = MT.inventory.mtag),(select i4209 "
                              "trace from MT.inventory where i4201 = '") +
               asset +
               QStringLiteral(
                   "'),(select allow_ooc_stds from mt.hvm_kv_sysconfig),(select allow_poor_trace_stds from "
                   "mt.hvm_kv_sysconfig) from MT.inventory where i4201 = '") +
               standard + u'\'';
    }

    static QString selectLast(const QString& asset) {
        return QStringLiteral("select i4201 from MT.inventory where mtag = (select standard_mtag from "
                              "mt.hvm_kv_last_standards_used where mtag = ") +
               mtagOf(asset) + u')';
    }
    static QString freeStandards(const QString& asset) {
        return QStringLiteral("delete from mt.hvm_kv_task_standards_inuse where mtag = ") + mtagOf(asset) +
               QStringLiteral(";commit");
    }
    static QString forgetLast(const QString& asset) {
        return QStringLiteral("delete from mt.hvm_kv_last_standards_used where mtag = ") + mtagOf(asset) +
               QStringLiteral(";commit");
    }
    static QString useStandard(const QString& standard, const QString& asset) {
        return QStringLiteral(
                   "insert into mt.hvm_kv_task_standards_inuse (standard_mtag,entered_date,mtag) values (") +
               mtagOf(standard) + QStringLiteral(",now(*),") + mtagOf(asset) + QStringLiteral(");commit");
    }
    static QString rememberLast(const QString& standard, const QString& asset) {
        return QStringLiteral(
                   "insert into mt.hvm_kv_last_standards_used (standard_mtag,entered_date,mtag) values (") +
               mtagOf(standard) + QStringLiteral(",now(*),") + mtagOf(asset) + QStringLiteral(");commit");
    }

    /// 0 to 10 V in and out: a Fluke 702 does both.
    static CalParamRecord isolator() {
        auto record = wrench();
        record.input_type = record.output_type = QStringLiteral("V");
        record.input_low = record.output_low = 0;
        record.input_high = record.output_high = 10;
        record.output_indicated = false;
        return record;
    }
    /// Its output is none that a Fluke 702 measures: a standard has to.
    static CalParamRecord lamp() {
        auto record = isolator();
        record.output_type = QStringLiteral("lumen");
        return record;
    }

    void expectQuestion(const QString& asset, const QString& answer, bool required = true,
                        const QString& proposal = QString()) {
        ui.expectDialog(asset + QStringLiteral(": External Standard Required"),
                        QStringLiteral("Standard to be used for this calibration:"), answer,
                        [=](const DialogQuestion& q) {
                            EXPECT_EQ(q.required, required) << asset.toStdString();
                            EXPECT_EQ(q.defaultText, proposal) << asset.toStdString();
                            EXPECT_FALSE(q.fromList);
                            EXPECT_EQ(q.maxLength, 60);
                            EXPECT_EQ(q.fieldType, 0);
                        });
    }
    void expectWarning(const QString& message, const QString& heading = title) {
        ui.expectBox(message, heading, box::warning);
    }

    ScriptedScreen screen;
    RecordedLink link;
    RecordedLink3 link3;
    Calibrators calibrators{session, {port, link, link3}};
};

} // namespace kelvane::testing
