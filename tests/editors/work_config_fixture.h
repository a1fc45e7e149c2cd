#pragma once

#include "testkit/fixtures.h"
#include "tests/editors/work_config_screen.h"
#include "ui/list_rows.h"

namespace kelvane::testing {

/// The screen over a recording connection with two fields requested, two available, and overdue standards
/// allowed.
class WorkConfigTest : public RecordedSession {
  protected:
    WorkConfigTest() {
        script.answers = {{countFields, {Row{QStringLiteral("2")}}},
                          {selectAvailable,
                           {Row{QStringLiteral("2309"), QStringLiteral("Procedure")},
                            Row{QStringLiteral("2316"), QStringLiteral("Work Order")}}},
                          {selectRequested,
                           {Row{QStringLiteral("2333"), QStringLiteral("Time")},
                            Row{QStringLiteral("2301"), QStringLiteral("Date")}}},
                          {selectStandards, {Row{QStringLiteral("Y"), QStringLiteral("N")}}},
                          {selectRow, {Row{QStringLiteral("Y")}}}};
    }
    void open() {
        screen.open(session);
        script.statements.clear();
    }
    QStringList statements() { return std::exchange(script.statements, {}); }
    QStringList available() { return rowsOf(screen.available()); }
    QStringList requested() { return rowsOf(screen.requested()); }

    static QStringList allow(const QString& overdue, const QString& poorTrace) {
        return {QStringLiteral("update mt.hvm_kv_sysconfig set allow_ooc_stds = '") + overdue +
                    QStringLiteral("';commit"),
                QStringLiteral("update mt.hvm_kv_sysconfig set allow_poor_trace_stds = '") + poorTrace +
                    QStringLiteral("';commit")};
    }

    static inline const QString countFields =
        QStringLiteral("select count(fldnum) from mt.hvm_kv_worksheetfields");
    static inline const QString dictionary = QStringLiteral(
        "select fldnum,title from mt.customiz where fldnum not like '%90' and fldnum not like '%91' and "
        "fldnum not like '%92' and fldnum not like '%93' and fldnum <> '2340' and fldnum not like '%94' and "
        "fldnum not like '%95' and fldnum like '23%' and suppressed <> 'Y'");
    static inline const QString selectAvailable =
        dictionary +
        QStringLiteral(
            " and fldnum not in (select fldnum from mt.hvm_kv_worksheetfields) order by fldnum asc");
    static inline const QString selectRequested = QStringLiteral(
        "select fldnum,(select title from mt.customiz where mt.customiz.fldnum = "
        "mt.hvm_kv_worksheetfields.fldnum) from mt.hvm_kv_worksheetfields order by sequence asc");
    static inline const QString selectRequired =
        dictionary + QStringLiteral(" and (ireq <> 'N' or sreq <> 'N') order by fldnum asc");
    static inline const QString selectOptional =
        dictionary + QStringLiteral(" and (ireq = 'N' and sreq = 'N') order by fldnum asc");
    static inline const QString selectStandards =
        QStringLiteral("select allow_ooc_stds,allow_poor_trace_stds from mt.hvm_kv_sysconfig");
    static inline const QString selectRow = QStringLiteral("select allow_ooc_stds from mt.hvm_kv_sysconfig");

    const QString discardToClose =
        QStringLiteral("Are you sure you want to discard any changes made since last save?");
    const Error refused{547, QStringLiteral("The statement is refused.")};
    const QString procedure = QStringLiteral("C2309 : Procedure");
    const QString workOrder = QStringLiteral("C2316 : Work Order");
    const QString time = QStringLiteral("C2333 : Time");
    const QString date = QStringLiteral("C2301 : Date");
    WorkConfigScreen screen;
};

} // namespace kelvane::testing
