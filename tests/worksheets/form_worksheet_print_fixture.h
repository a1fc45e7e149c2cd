#pragma once

#include "testkit/program_screen.h"
#include "testkit/scripted_report_control.h"
#include "ui/list_rows.h"
#include "worksheets/form_worksheet_print.h"

#include <QLineEdit>
#include <QMdiArea>
#include <QScopeGuard>
#include <QTest>

namespace kelvane::testing {

inline const QString checking = QStringLiteral("Check A Standard");
inline const QString standardPrompt = QStringLiteral("Enter a standard to check:");
inline const QStringList commands{QStringLiteral("CommandAdd"), QStringLiteral("CommandRemove"),
                                  QStringLiteral("CommandChkStandard"), QStringLiteral("CommandPrint")};

/// The screen over a database that knows the instruments. The report is a window that stands
/// until a test closes it.
class FormWorksheetPrintTest : public ProgramScreen {
  protected:
    FormWorksheetPrintTest() : ProgramScreen(QStringLiteral("FormWorksheetPrint")) {
        for (const auto& asset : {QStringLiteral("A-1"), QStringLiteral("A-2"), QStringLiteral("A-3")}) {
            const auto ofAsset = QStringLiteral("MT.inventory where i4201 = '") + asset + u'\'';
            script.answers.insert(QStringLiteral("select i4201 from ") + ofAsset, {Row{asset}});
            script.answers.insert(
                QStringLiteral("select mtag from mt.hvm_kv_tag_config where mtag = (select mtag from ") +
                    ofAsset + u')',
                {Row{QStringLiteral("17")}});
        }
        preview.setWindowTitle(QStringLiteral("Calibration Worksheet"));
        reports.onRun = [this] { preview.show(); };
    }
    void open() {
        if (!session.SessionConnected)
            startLoggedIn(4);
        auto made = std::make_unique<FormWorksheetPrint>(session, reports);
        made->showIn(program.window.area());
        made.release();
        script.statements.clear();
    }
    void openWithRows() {
        open();
        for (const auto& asset : {QStringLiteral("A-1"), QStringLiteral("A-2")})
            add(asset);
        script.statements.clear();
    }
    /// Opens the report of the list; `meanwhile` runs while it stands.
    void print(const std::function<void()>& meanwhile) {
        whileOpen(meanwhile);
        press(QStringLiteral("CommandPrint"));
        EXPECT_FALSE(preview.isVisible());
    }
    void whileOpen(const std::function<void()>& meanwhile) {
        reports.onRun = [this, meanwhile] {
            preview.show();
            QMetaObject::invokeMethod(
                &preview,
                [this, meanwhile] {
                    const auto closing = qScopeGuard([this] { preview.close(); });
                    meanwhile();
                },
                Qt::QueuedConnection);
        };
    }
    QLineEdit& entry() { return controlNamed<QLineEdit>(QStringLiteral("TextAdd")); }
    QListWidget& list() { return controlNamed<QListWidget>(QStringLiteral("ListCal")); }
    QStringList rows() { return rowsOf(list()); }
    void add(const QString& asset) {
        entry().setFocus();
        QTest::keyClicks(&entry(), asset);
        QTest::keyClick(&entry(), Qt::Key_Return);
    }
    QStringList removals() const { return script.statements.filter(QStringLiteral("delete from")); }

    ScriptedReportControl reports;
    QWidget preview;
};

} // namespace kelvane::testing
