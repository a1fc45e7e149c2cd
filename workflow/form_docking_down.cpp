#include "workflow/form_docking_down.h"

#include "resources/text_id.h"
#include "ui/controls.h"
#include "ui/guarded.h"
#include "ui/list_rows.h"
#include "ui/open_windows.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiArea>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kelvane {

FormDockingDown::FormDockingDown(Session& session, Calibrators& calibrators)
    : ChildWindow(session, u"FormDockingDown"_s, {.width = 6060, .height = 2865}),
      calibrators_(calibrators),
      SSPanelCalibrator(nameControl(new QLabel, u"SSPanelCalibrator"_s, text(TextId::calibratorLabel),
                                    TextId::calibratorLabelTip)),
      TextAdd(nameControl(new QLineEdit, u"TextAdd"_s, text(TextId::instrumentOrPackageToAdd),
                          TextId::instrumentToCalibrateTip)),
      CommandAdd(button(u"CommandAdd"_s, TextId::addCommand, TextId::addInstrumentTip)),
      ListCal(nameControl(new QListWidget, u"ListCal"_s, text(TextId::instrumentsToCalibrate),
                          TextId::instrumentsToCalibrateTip)),
      CommandRemove(button(u"CommandRemove"_s, TextId::removeInstrument, TextId::removeInstrumentTip)),
      CommandDownload(button(u"CommandDownload"_s, TextId::downloadCommand, TextId::downloadListTip)) {
    setWindowTitle(text(TextId::downloadCommand));
    SSPanelCalibrator->setTextFormat(Qt::PlainText);
    SSPanelCalibrator->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    // Whichever name comes later, the window has its place from the start.
    for (const auto& calibrator : allCalibrators()) {
        SSPanelCalibrator->setText(text(calibrator.identity.caption));
        SSPanelCalibrator->setMinimumWidth(
            qMax(SSPanelCalibrator->minimumWidth(), SSPanelCalibrator->sizeHint().width()));
    }
    SSPanelCalibrator->clear();
    // As wide as the buttons below it; the rest is for the other side.
    ListCal->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Expanding);
    layOut();
    connectCommands();
    setDefaultButton(CommandAdd);
    setFirstFocus(TextAdd);
}

void FormDockingDown::layOut() {
    auto* entryLabel = labelFor(TextAdd, u"Label2"_s, TextId::instrumentOrPackageToAdd);
    entryLabel->setWordWrap(true);
    auto* adding = new QVBoxLayout;
    adding->setSpacing(4);
    auto* calibratorLabel = label(u"Label1"_s, TextId::calibratorLabel);
    // Still empty, it would ask for less space than with a name.
    SSPanelCalibrator->setMinimumHeight(calibratorLabel->sizeHint().height() +
                                        2 * SSPanelCalibrator->frameWidth());
    adding->addWidget(calibratorLabel);
    adding->addWidget(SSPanelCalibrator);
    adding->addStretch(1);
    adding->addWidget(entryLabel);
    adding->addWidget(TextAdd);
    adding->addWidget(CommandAdd, 0, Qt::AlignLeft);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(CommandRemove);
    buttons->addWidget(CommandDownload);
    auto* listing = new QVBoxLayout;
    listing->setSpacing(4);
    listing->addWidget(labelFor(ListCal, u"Label3"_s, TextId::instrumentsToCalibrate));
    listing->addWidget(ListCal, 1);
    listing->addLayout(buttons);

    auto* body = new QWidget;
    auto* columns = new QHBoxLayout(body);
    columns->setContentsMargins(8, 6, 8, 6);
    columns->setSpacing(10);
    columns->addLayout(adding, 1);
    columns->addLayout(listing);
    setBody(body);
    kelvane::setTabOrder({TextAdd, CommandAdd, ListCal, CommandRemove, CommandDownload});
}

void FormDockingDown::connectCommands() {
    const auto removeSelected = [this] {
        run([this] { removeFromDownloadList(calibrators_, *this, selectedRow(*ListCal)); });
    };
    connectGuarded(CommandAdd, &QPushButton::clicked, this, session_.ui, [this] {
        // It may have to ask for a standard; what it does before that must not be done for nothing.
        if (!session_.ui.bringQuestionForward())
            run([this] { addToDownloadList(calibrators_, *this, TextAdd->text()); });
    });
    connectGuarded(CommandRemove, &QPushButton::clicked, this, session_.ui, removeSelected);
    connectGuarded(CommandDownload, &QPushButton::clicked, this, session_.ui,
                   [this] { run([this] { downloadList(calibrators_, *this); }); });
    onDelete(ListCal, session_.ui, removeSelected);
}

void FormDockingDown::run(const std::function<void()>& command) {
    if (running_)
        return;
    running_ = true;
    setButtonsEnabled(false);
    runGuarded(session_.ui, command);
    setButtonsEnabled(true);
    running_ = false;
}

void FormDockingDown::setButtonsEnabled(bool enabled) {
    for (auto* button : {CommandAdd, CommandRemove, CommandDownload})
        button->setEnabled(enabled);
}

bool FormDockingDown::mayClose() {
    return !running_ && !isWindowOpen(session_, u"FormCustomDialog");
}

QString FormDockingDown::calibrator() const {
    return calibrator_;
}

void FormDockingDown::takeCalibrator(const QString& name) {
    calibrator_ = name;
    SSPanelCalibrator->setText(calibratorCaption(name));
    focusEntry();
}

QStringList FormDockingDown::rows() const {
    return rowsOf(*ListCal);
}

void FormDockingDown::addRow(const QString& asset) {
    ListCal->addItem(asset);
}

void FormDockingDown::removeRow(int row) {
    takeRow(*ListCal, row);
}

void FormDockingDown::clearEntry() {
    TextAdd->clear();
}

void FormDockingDown::focusEntry() {
    if (auto* area = mdiArea())
        area->setActiveSubWindow(this);
    TextAdd->setFocus();
}

} // namespace kelvane
