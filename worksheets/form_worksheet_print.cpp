#include "worksheets/form_worksheet_print.h"

#include "resources/text_id.h"
#include "ui/controls.h"
#include "ui/guarded.h"
#include "ui/list_rows.h"
#include "ui/open_windows.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kelvane {

FormWorksheetPrint::FormWorksheetPrint(Session& session, ReportControl& reports)
    : ChildWindow(session, u"FormWorksheetPrint"_s, {.width = 2865, .height = 6060}),
      reports_(reports),
      TextAdd(nameControl(new QLineEdit, u"TextAdd"_s, text(TextId::instrumentOrPackageToAdd),
                          TextId::worksheetInstrumentTip)),
      CommandAdd(button(u"CommandAdd"_s, TextId::addCommand, TextId::addToWorksheetsTip)),
      ListCal(nameControl(new QListWidget, u"ListCal"_s, text(TextId::instrumentsToCalibrate),
                          TextId::worksheetInstrumentsTip)),
      CommandRemove(
          button(u"CommandRemove"_s, TextId::removeInstrument, TextId::removeWorksheetInstrumentTip)),
      CommandChkStandard(button(u"CommandChkStandard"_s, TextId::checkStandard, TextId::checkStandardTip)),
      CommandPrint(button(u"CommandPrint"_s, TextId::printWorksheetsCommand, TextId::printWorksheetsTip)) {
    setWindowTitle(text(TextId::printWorksheets));
    // As wide as the screen; a longer number scrolls.
    ListCal->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Expanding);
    layOut();
    connectCommands();
    setDefaultButton(CommandAdd);
    setFirstFocus(TextAdd);
}

void FormWorksheetPrint::layOut() {
    auto* entryLabel = labelFor(TextAdd, u"Label1"_s, TextId::instrumentOrPackageToAdd);
    auto* listLabel = labelFor(ListCal, u"Label2"_s, TextId::instrumentsToCalibrate);
    for (auto* caption : {entryLabel, listLabel})
        caption->setWordWrap(true);

    auto* body = new QWidget;
    auto* column = new QVBoxLayout(body);
    column->setContentsMargins(8, 6, 8, 6);
    column->setSpacing(4);
    column->addWidget(entryLabel);
    column->addWidget(TextAdd);
    column->addWidget(CommandAdd);
    column->addSpacing(6);
    column->addWidget(listLabel);
    column->addWidget(ListCal, 1);
    for (auto* command : {CommandRemove, CommandChkStandard, CommandPrint})
        column->addWidget(command);
    setBody(body);
    kelvane::setTabOrder({TextAdd, CommandAdd, ListCal, CommandRemove, CommandChkStandard, CommandPrint});
}

void FormWorksheetPrint::connectCommands() {
    connectGuarded(CommandAdd, &QPushButton::clicked, this, session_.ui,
                   [this] { addToWorksheetList(session_, *this, TextAdd->text()); });
    connectGuarded(CommandRemove, &QPushButton::clicked, this, session_.ui,
                   [this] { removeFromWorksheetList(*this, selectedRow(*ListCal)); });
    connectGuarded(CommandChkStandard, &QPushButton::clicked, this, session_.ui, [this] { checkStandard(); });
    connectGuarded(CommandPrint, &QPushButton::clicked, this, session_.ui, [this] { print(); });
    onDelete(ListCal, session_.ui, [this] { CommandRemove->click(); });
}

void FormWorksheetPrint::run(bool& running, const std::function<void()>& command) {
    const QPointer self(this);
    running = true;
    enableButtons();
    runGuarded(session_.ui, command);
    if (!self)
        return;
    running = false;
    enableButtons();
}

/// Its button stays enabled, so that a second press brings the question forward.
void FormWorksheetPrint::checkStandard() {
    if (checking_)
        session_.ui.bringQuestionForward();
    else
        run(checking_, [this] { checkStandardForWorksheets(session_, *this); });
}

void FormWorksheetPrint::print() {
    const QPointer self(this);
    run(printing_, [this] { printWorksheets(session_, *this, reports_); });
    if (self)
        Q_EMIT printed();
}

void FormWorksheetPrint::closeReport() {
    while (auto* report = shownWindow(text(TextId::calibrationWorksheet))) {
        if (!report->close())
            return;
    }
}

void FormWorksheetPrint::enableButtons() {
    CommandAdd->setEnabled(!checking_);
    CommandRemove->setEnabled(!checking_);
    CommandPrint->setEnabled(!checking_ && !printing_);
}

bool FormWorksheetPrint::mayClose() {
    if (checking_)
        session_.ui.bringQuestionForward();
    else if (printing_)
        bringWindowForward(text(TextId::calibrationWorksheet));
    return !checking_ && !printing_;
}

QStringList FormWorksheetPrint::rows() const {
    return rowsOf(*ListCal);
}

void FormWorksheetPrint::addRow(const QString& asset) {
    ListCal->addItem(asset);
}

void FormWorksheetPrint::removeRow(int row) {
    takeRow(*ListCal, row);
}

void FormWorksheetPrint::clearEntry() {
    TextAdd->clear();
}

void FormWorksheetPrint::focusEntry() {
    TextAdd->setFocus();
    TextAdd->selectAll();
}

} // namespace kelvane
