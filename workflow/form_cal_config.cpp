#include "workflow/form_cal_config.h"

#include "drivers/line_settings.h"
#include "drivers/port_state.h"
#include "platform/error_report.h"
#include "resources/text_id.h"
#include "ui/controls.h"
#include "ui/guarded.h"
#include "workflow/calibrators.h"
#include "workflow/form_communication_log.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QEvent>
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

FormCalConfig::FormCalConfig(Session& session, Calibrators& calibrators, const QString& calibrator)
    : ChildWindow(session, u"FormCalConfig"_s, {.width = 6000, .height = 3600}),
      calibrators_(calibrators),
      ComboCalibrator(dropDown(u"ComboCalibrator"_s, text(TextId::calibratorToConfigure),
                               TextId::calibratorToConfigureTip)),
      ComboPort(dropDown(u"ComboPort"_s, text(TextId::serialPort), TextId::serialPortTip, portNames())),
      ComboBaudRate(dropDown(u"ComboBaudRate"_s, text(TextId::baudRate), TextId::baudRateTip,
                             {u"300"_s, u"600"_s, u"1200"_s, u"2400"_s, u"4800"_s, u"9600"_s, u"19200"_s})),
      ComboParity(dropDown(u"ComboParity"_s, text(TextId::parity), TextId::parityTip)),
      ComboDataBits(
          dropDown(u"ComboDataBits"_s, text(TextId::dataBits), TextId::dataBitsTip, {u"8"_s, u"7"_s})),
      ComboStopBits(
          dropDown(u"ComboStopBits"_s, text(TextId::stopBits), TextId::stopBitsTip, {u"1"_s, u"2"_s})),
      CheckLog(nameControl(new QCheckBox, u"CheckLog"_s, text(TextId::communicationLogSwitch),
                           TextId::communicationLogSwitchTip)),
      ButtonCommunicationLog(button(u"ButtonCommunicationLog"_s, TextId::communicationLogCommand,
                                    TextId::communicationLogCommandTip)) {
    setWindowTitle(text(TextId::calibratorConfiguration));
    layOut();
    setFirstFocus(ComboCalibrator);

    ComboBaudRate->setCurrentText(u"9600"_s);
    const auto offered = allCalibrators();
    for (auto last = offered.rbegin(); last != offered.rend(); ++last)
        ComboCalibrator->addItem(text(last->identity.caption), last->identity.name.toString());
    for (const auto& parity : parities)
        ComboParity->addItem(text(parity.caption), parity.word.toString());
    select(*ComboParity, u"None"_s);
    select(*ComboCalibrator, calibrator);
    showStored();
    ComboPort->view()->installEventFilter(this);

    // What the program itself selects is no change of the user's and stores nothing.
    connectGuarded(ComboCalibrator, &QComboBox::activated, this, session_.ui, [this] { showStored(); });
    for (const auto& setting : settings())
        connectGuarded(setting.list, &QComboBox::activated, this, session_.ui, [this] { save(); });
    connectGuarded(CheckLog, &QCheckBox::clicked, this, session_.ui, [this] { switchLog(); });
    connectGuarded(ButtonCommunicationLog, &QPushButton::clicked, this, session_.ui,
                   [this] { showCommunicationLog(*mdiArea(), session_, calibrators_, this->calibrator()); });
}

std::array<FormCalConfig::Setting, 5> FormCalConfig::settings() const {
    return {{{lineKey::baudRate, ComboBaudRate},
             {lineKey::parity, ComboParity},
             {lineKey::stopBits, ComboStopBits},
             {lineKey::dataBits, ComboDataBits},
             {lineKey::port, ComboPort}}};
}

void FormCalConfig::layOut() {
    auto* communication = nameControl(new QGroupBox, u"Frame1"_s, text(TextId::lineCommunication));
    communication->setTitle(text(TextId::lineCommunication));
    auto* line = new QHBoxLayout(communication);
    line->addWidget(labelFor(ComboPort, u"Label6"_s, TextId::serialPort));
    line->addWidget(ComboPort, 1);

    auto* configuration = nameControl(new QGroupBox, u"Frame2"_s, text(TextId::lineConfiguration));
    configuration->setTitle(text(TextId::lineConfiguration));
    auto* grid = new QGridLayout(configuration);
    struct {
        QComboBox* list;
        QString name;
        TextId caption;
    } const cells[] = {{ComboBaudRate, u"Label2"_s, TextId::baudRate},
                       {ComboParity, u"Label5"_s, TextId::parity},
                       {ComboDataBits, u"Label3"_s, TextId::dataBits},
                       {ComboStopBits, u"Label4"_s, TextId::stopBits}};
    int cell = 0;
    for (const auto& setting : cells) {
        grid->addWidget(labelFor(setting.list, setting.name, setting.caption), cell / 2, cell % 2 * 2);
        grid->addWidget(setting.list, cell / 2, cell % 2 * 2 + 1);
        ++cell;
    }
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 1);

    CheckLog->setText(text(TextId::communicationLogSwitch));
    auto* log = new QHBoxLayout;
    log->addWidget(CheckLog);
    log->addStretch(1);
    log->addWidget(ButtonCommunicationLog);

    auto* body = new QWidget;
    auto* column = new QVBoxLayout(body);
    column->addWidget(labelFor(ComboCalibrator, u"Label1"_s, TextId::calibratorToConfigure));
    column->addWidget(ComboCalibrator);
    column->addWidget(communication);
    column->addWidget(configuration);
    column->addLayout(log);
    column->addStretch();
    setBody(body);
    kelvane::setTabOrder({ComboCalibrator, ComboPort, ComboBaudRate, ComboParity, ComboDataBits,
                          ComboStopBits, CheckLog, ButtonCommunicationLog});
}

QString FormCalConfig::calibrator() const {
    return storedWord(*ComboCalibrator, ComboCalibrator->currentIndex());
}

void FormCalConfig::showStored() {
    const auto shown = calibrator();
    const bool hasLineFormat = calibratorNamed(shown).hasLineFormat;
    for (auto* list : {ComboParity, ComboStopBits, ComboDataBits})
        list->setEnabled(hasLineFormat);
    for (const auto& setting : settings()) {
        select(*setting.list, ModuleGlobals::GetRegSetting(session_, shown, setting.key.toString()));
    }
    CheckLog->setChecked(calibrators_.log(shown).isSwitchedOn());
}

void FormCalConfig::save() {
    const auto shown = calibrator();
    for (const auto& setting : settings())
        ModuleGlobals::SaveRegSetting(session_, shown, setting.key.toString(),
                                      storedWord(*setting.list, setting.list->currentIndex()));
}

bool FormCalConfig::eventFilter(QObject* watched, QEvent* event) {
    if (watched == ComboPort->view() && event->type() == QEvent::Show)
        runGuarded(session_.ui, [this] { showDevices(); });
    return ChildWindow::eventFilter(watched, event);
}

void FormCalConfig::showDevices() {
    for (int row = 0; row < ComboPort->count(); ++row) {
        const int number = portNumber(ComboPort->itemText(row));
        ComboPort->setItemData(row, portDescription(calibrators_.ports, number), Qt::ToolTipRole);
    }
}

void FormCalConfig::switchLog() {
    const auto shown = calibrator();
    ModuleGlobals::SaveRegSetting(session_, logSection, shown, CheckLog->isChecked() ? u"1"_s : u"0"_s);
    // It stays on where the command line has switched it on.
    CheckLog->setChecked(calibrators_.log(shown).isSwitchedOn());
}

} // namespace kelvane
