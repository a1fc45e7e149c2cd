#include "ui/status_line.h"

#include "resources/text_id.h"
#include "ui/controls.h"
#include "ui/whole_text.h"

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

void put(ElidedLabel& label, const QString& shown) {
    if (label.text() == shown)
        return;
    label.setText(shown);
    label.setAccessibleName(shown);
}

} // namespace

StatusLine::StatusLine(const Session& session)
    : session_(session),
      CommandConnectAgain(button(u"CommandConnectAgain"_s, TextId::connectAgain, TextId::connectAgainTip)),
      LabelActivity(nameControl(new ElidedLabel, u"LabelActivity"_s, {}, TextId::statusBarActionTip)),
      LabelUser(nameControl(new ElidedLabel, u"LabelUser"_s, {}, TextId::statusBarUserTip)),
      LabelDataSource(nameControl(new ElidedLabel, u"LabelDataSource"_s, {}, TextId::statusBarDataSourceTip)),
      ButtonAbout(button(u"ButtonAbout"_s, TextId::aboutTitle, TextId::aboutCommandTip)) {
    setObjectName(u"StatusLine"_s);
    addWidget(LabelActivity, 1);
    addPermanentWidget(CommandConnectAgain);
    addPermanentWidget(LabelUser);
    addPermanentWidget(LabelDataSource);
    addPermanentWidget(ButtonAbout);
    ButtonAbout->setFlat(true);
    ButtonAbout->setAutoDefault(false);
    // It takes no focus from a child window by a click.
    ButtonAbout->setFocusPolicy(Qt::TabFocus);
    refresh();
}

void StatusLine::setConnecting(std::function<bool()> offersConnecting, const QString& caption) {
    offersConnecting_ = std::move(offersConnecting);
    CommandConnectAgain->setText(caption);
}

void StatusLine::refresh() {
    CommandConnectAgain->setVisible(offersConnecting_ && offersConnecting_());
    const bool connected = session_.SessionConnected;
    put(*LabelUser, connected ? text(TextId::statusBarUser).arg(session_.SessionUser)
                              : text(TextId::statusBarNotConnected));
    put(*LabelDataSource,
        connected ? text(TextId::statusBarDataSource).arg(session_.SessionDataSource) : QString());
    LabelDataSource->setVisible(connected);
    Q_EMIT refreshed();
}

void StatusLine::showActivity(const QString& text) {
    put(*LabelActivity, text);
    LabelActivity->repaint();
}

} // namespace kelvane
