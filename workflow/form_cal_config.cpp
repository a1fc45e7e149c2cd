#include "workflow/form_cal_config.h"

#include "drivers/calibrator_names.h"
#include "platform/error_report.h"
#include "ui/controls.h"
#include "ui/guarded.h"
#include "workflow/driver.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// What the settings hold for a row: its word of the program where it has one, its text otherwise.
QString storedWord(const QComboBox& list, int row) {
    const auto word = list.itemData(row);
    return word.isValid() ? word.toString() : list.itemText(row);
}

/// Selects the row of a stored word; one that has no row leaves the selection as it is.
void select(QComboBox& list, const QString& word) {
    for (int row = 0; row < list.count(); ++row) {
        if (storedWord(list, row) == word) {
            list.setCurrentIndex(row);
            return;
        }
    }
}

} // namespace

FormCalConfig::FormCalConfig(Session& session, const QString& calibrator)
    : ChildWindow(session, ChildForm::FormCalConfig, u"FormCalConfig"_s, {.width = 6000, .height = 3600}),
      ComboCalibrator(dropDown(u"ComboCalibrator"_s, text(370), 430)),
      ComboPort(dropDown(u"ComboPort"_s, text(373), 431, {u"COM1"_s, u"COM2"_s, u"COM3"_s, u"COM4"_s})),
      ComboBaudRate(dropDown(u"ComboBaudRate"_s, text(318), 432,
                             {u"300"_s, u"600"_s, u"1200"_s, u"2400"_s, u"4800"_s, u"9600"_s, u"19200"_s})),
      ComboParity(dropDown(u"ComboParity"_s, text(326), 433)),
      ComboDataBits(dropDown(u"ComboDataBits"_s, text(336), 434, {u"8"_s, u"7"_s})),
      ComboStopBits(dropDown(u"ComboStopBits"_s, text(319), 435, {u"1"_s, u"2"_s})) {
    setWindowTitle(text(109));
    layOut();
    setFirstFocus(ComboCalibrator);

    ComboBaudRate->setCurrentText(u"9600"_s);
    for (const auto& name : {calibratorName::fluke74x, calibratorName::fluke702, calibratorName::torqueStar})
        ComboCalibrator->addItem(calibratorCaption(name), name);
    ComboParity->addItem(text(327), parityWord::even);
    ComboParity->addItem(text(328), parityWord::odd);
    ComboParity->addItem(text(329), parityWord::none);
    select(*ComboParity, parityWord::none);
    select(*ComboCalibrator, calibrator);
    showStored();

    // What the program itself selects is no change of the user's and stores nothing.
    onSignal(ComboCalibrator, &QComboBox::activated, this, session_.ui, [this] { showStored(); });
    for (const auto& setting : settings())
        onSignal(setting.list, &QComboBox::activated, this, session_.ui, [this] { save(); });
}

std::array<FormCalConfig::Setting, 5> FormCalConfig::settings() const {
    return {{{u"BaudRate", ComboBaudRate},
             {u"Parity", ComboParity},
             {u"StopBits", ComboStopBits},
             {u"DataBits", ComboDataBits},
             {u"Port", ComboPort}}};
}

void FormCalConfig::layOut() {
    auto* communication = named(new QGroupBox, u"Frame1"_s, text(372));
    communication->setTitle(text(372));
    auto* line = new QHBoxLayout(communication);
    line->addWidget(labelFor(ComboPort, u"Label6"_s, 373));
    line->addWidget(ComboPort, 1);

    auto* configuration = named(new QGroupBox, u"Frame2"_s, text(371));
    configuration->setTitle(text(371));
    auto* grid = new QGridLayout(configuration);
    struct {
        QComboBox* list;
        QString name;
        int caption;
    } const cells[] = {{ComboBaudRate, u"Label2"_s, 318},
                       {ComboParity, u"Label5"_s, 326},
                       {ComboDataBits, u"Label3"_s, 336},
                       {ComboStopBits, u"Label4"_s, 319}};
    int cell = 0;
    for (const auto& one : cells) {
        grid->addWidget(labelFor(one.list, one.name, one.caption), cell / 2, cell % 2 * 2);
        grid->addWidget(one.list, cell / 2, cell % 2 * 2 + 1);
        ++cell;
    }
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 1);

    auto* body = new QWidget;
    auto* column = new QVBoxLayout(body);
    column->addWidget(labelFor(ComboCalibrator, u"Label1"_s, 370));
    column->addWidget(ComboCalibrator);
    column->addWidget(communication);
    column->addWidget(configuration);
    column->addStretch();
    setBody(body);
    kelvane::setTabOrder(
        {ComboCalibrator, ComboPort, ComboBaudRate, ComboParity, ComboDataBits, ComboStopBits});
}

void FormCalConfig::showStored() {
    const auto calibrator = storedWord(*ComboCalibrator, ComboCalibrator->currentIndex());
    const bool wholeLine = calibrator == calibratorName::torqueStar;
    for (auto* list : {ComboParity, ComboStopBits, ComboDataBits})
        list->setEnabled(wholeLine);
    for (const auto& setting : settings()) {
        select(*setting.list, ModuleGlobals::GetRegSetting(session_, calibrator, setting.key.toString()));
    }
}

void FormCalConfig::save() {
    const auto calibrator = storedWord(*ComboCalibrator, ComboCalibrator->currentIndex());
    for (const auto& setting : settings())
        ModuleGlobals::SaveRegSetting(session_, calibrator, setting.key.toString(),
                                      storedWord(*setting.list, setting.list->currentIndex()));
}

} // namespace kelvane
