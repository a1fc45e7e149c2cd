#include "ui/form_status_bar.h"

#include "resources/text_id.h"
#include "ui/controls.h"
#include "ui/whole_text.h"

#include <QProgressBar>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kelvane {

FormStatusBar::FormStatusBar(Session& session)
    : ChildWindow(session, u"FormStatusBar"_s, {.width = 6000, .height = 1350}),
      LabelStatus(nameControl(new ElidedLabel, u"LabelStatus"_s, text(TextId::statusBarAction),
                              TextId::statusBarAction)),
      ProgressBar(nameControl(new QProgressBar, u"ProgressBar"_s, text(TextId::statusBarProgress),
                              TextId::statusBarProgress)) {
    // Without the hint of a system menu too: styles draw a button that closes for it.
    setWindowFlags(Qt::SubWindow | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
    ProgressBar->setRange(0, 100);
    ProgressBar->setValue(0);

    auto* body = new QWidget;
    auto* column = new QVBoxLayout(body);
    column->setContentsMargins(12, 8, 12, 8);
    column->addWidget(LabelStatus);
    column->addWidget(ProgressBar);
    setBody(body);
}

void FormStatusBar::setStatus(const QString& text) {
    LabelStatus->setText(text);
    LabelStatus->repaint();
}

void FormStatusBar::setValue(int percent) {
    ProgressBar->setValue(qBound(0, percent, 100));
    ProgressBar->repaint();
}

} // namespace kelvane
