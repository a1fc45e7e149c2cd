#pragma once

#include "testkit/program_screen.h"
#include "testkit/scripted_params.h"
#include "tests/editors/cal_param/cal_param_entry.h"
#include "ui/open_windows.h"

namespace kelvane::testing {

inline const QString calParamTitle = QStringLiteral("Calibration Parameters");
inline const QString enterInstrument = QStringLiteral("Enter instrument number:");
inline const QString noInstrument = QStringLiteral("Must enter a valid instrument number!");

QString countPoints();
QString selectStrategies();
QString findAsset(const QString& asset);
/// The messages of one kind ("PRE" or "PST") that an instrument displays, and those that are left.
QString selectDisplayed(const QString& type, const QString& asset);
QString selectAvailable(const QString& type, const QString& asset);
/// The statements that load an instrument, in their order.
QStringList loading(const QString& asset);
/// A stored row with these columns, by their place, changed.
Row storedRow(std::initializer_list<std::pair<int, std::optional<QString>>> changes = {});

/// The parameter editor in the workstation, over a database that knows the strategies FIVE and THREE and
/// three instruments: PT-1 has parameters and messages, PT-2 and PT-3 have none.
class FormCalParamTest : public ProgramScreen {
  protected:
    FormCalParamTest();
    /// What the database holds of PT-1.
    void store(const Row& row);

    void open(const QString& asset);
    void expectCancel();
    bool flag() { return isWindowOpen(session, u"FormCalParam"); }
    QString displayText(const QString& name) { return shownBy(form(), name); }
    void type(const QString& name, const QString& value);
    /// Chooses another instrument through its button; `then` expects what comes behind the question.
    void select(const QString& asset, const std::function<void()>& then = {});
    QStringList shownSubTabs();
};

} // namespace kelvane::testing
