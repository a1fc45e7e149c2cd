#include "reports/work_window.h"

#include "resources/strings.h"
#include "resources/text_id.h"

#include <QCloseEvent>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

constexpr int quickWork = 500; // milliseconds

} // namespace

WorkWindow::WorkWindow(const QString& title, qsizetype steps, bool canBeEnded, QWidget* parent)
    : QProgressDialog(QString(), text(TextId::cancel), 0, static_cast<int>(steps), parent),
      canBeEnded_(canBeEnded) {
    setObjectName(u"Progress"_s);
    setWindowTitle(title);
    setWindowModality(Qt::ApplicationModal);
    setMinimumDuration(quickWork);
    if (!canBeEnded)
        setCancelButton(nullptr);
}

void WorkWindow::reject() {
    if (canBeEnded_)
        cancel();
}

void WorkWindow::closeEvent(QCloseEvent* event) {
    if (canBeEnded_)
        QProgressDialog::closeEvent(event);
    else
        event->ignore();
}

} // namespace kelvane
