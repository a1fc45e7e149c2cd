#include "app/frame_start.h"

#include "platform/version.h"
#include "resources/text_id.h"
#include "ui/controls.h"
#include "ui/program_icon.h"
#include "ui/whole_text.h"

#include <QEvent>
#include <QGridLayout>
#include <QIcon>
#include <QKeySequence>
#include <QMdiArea>
#include <QPainter>
#include <QStyleOptionFocusRect>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

constexpr int markSize = 64;

/// The icon of the program, drawn for the resolution of the display.
class Mark final : public QWidget {
  public:
    Mark() { setFixedSize(markSize, markSize); }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        programIcon().paint(&painter, rect());
    }
};

/// A button that looks like a link. Return clicks it as Space does.
class StepButton final : public QPushButton {
  public:
    StepButton() {
        setAutoDefault(true);
        setAttribute(Qt::WA_Hover);
        setCursor(Qt::PointingHandCursor);
    }
    QSize sizeHint() const override {
        return fontMetrics().size(Qt::TextShowMnemonic, text()) + QSize(2 * besideCaption, besideCaption);
    }
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent*) override;

  private:
    static constexpr int besideCaption = 4;
};

void StepButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    auto letters = font();
    letters.setUnderline(underMouse() || hasFocus());
    painter.setFont(letters);
    painter.setPen(palette().color(isEnabled() ? QPalette::Link : QPalette::Text));
    painter.drawText(rect().adjusted(besideCaption, 0, -besideCaption, 0),
                     static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter) | Qt::TextShowMnemonic, text());
    if (!hasFocus())
        return;
    QStyleOptionFocusRect focus;
    focus.initFrom(this);
    focus.backgroundColor = palette().color(QPalette::Base);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
}

QFont scaled(const QFont& font, double factor, QFont::Weight weight) {
    QFont made(font);
    made.setPointSizeF(QFontInfo(font).pointSizeF() * factor);
    made.setWeight(weight);
    return made;
}

void put(QLabel& label, const QString& shown) {
    label.setText(shown);
    label.setAccessibleName(shown);
    label.setHidden(shown.isEmpty());
}

} // namespace

FrameStart::FrameStart(QMdiArea& area)
    : QWidget(area.viewport()),
      mark_(new Mark),
      LabelProgram(label(u"LabelProgram"_s, TextId::applicationName)),
      LabelVersion(label(u"LabelVersion"_s, TextId::frameVersion)),
      LabelFrameUser(nameControl(new ElidedLabel, u"LabelFrameUser"_s, {})),
      LabelFrameWarning(nameControl(new ElidedLabel, u"LabelFrameWarning"_s, {})),
      LabelNextSteps(label(u"LabelNextSteps"_s, TextId::frameNextSteps)),
      LabelMenuKey(label(u"LabelMenuKey"_s, TextId::frameKeys)),
      stepGrid_(new QGridLayout) {
    setObjectName(u"FrameStart"_s);
    setAccessibleName(text(TextId::applicationName));
    // Letters on it have the contrast that the palette gives to those in fields and lists.
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
    layOut();
    takeFonts();
    put(*LabelVersion, text(TextId::frameVersion).arg(programVersion()));
    put(*LabelMenuKey, text(TextId::frameKeys).arg(u"F10"_s));
    area.viewport()->installEventFilter(this);
    resize(area.viewport()->size());
    lower();
}

void FrameStart::layOut() {
    auto* head = new QGridLayout;
    head->setHorizontalSpacing(14);
    head->setVerticalSpacing(0);
    head->setColumnStretch(1, 1);
    head->addWidget(mark_, 0, 0, 2, 1);
    head->addWidget(LabelProgram, 0, 1, Qt::AlignBottom);
    head->addWidget(LabelVersion, 1, 1, Qt::AlignTop);
    stepGrid_->setHorizontalSpacing(24);
    stepGrid_->setVerticalSpacing(2);

    auto* column = new QVBoxLayout;
    column->setSpacing(8);
    // More space above than below: the login screen stands at the top.
    column->addStretch(2);
    column->addLayout(head);
    column->addWidget(LabelFrameUser);
    column->addWidget(LabelFrameWarning);
    column->addSpacing(8);
    column->addWidget(LabelNextSteps);
    column->addLayout(stepGrid_);
    column->addWidget(LabelMenuKey);
    column->addStretch(1);

    auto* middle = new QHBoxLayout(this);
    middle->addStretch(1);
    middle->addLayout(column);
    middle->addStretch(1);
}

void FrameStart::takeFonts() {
    LabelProgram->setFont(scaled(font(), 2, QFont::DemiBold));
    LabelFrameWarning->setFont(scaled(font(), 1, QFont::Bold));
    LabelNextSteps->setFont(scaled(font(), 1.2, QFont::DemiBold));
}

void FrameStart::setContents(const FrameContents& contents) {
    if (contents_ == contents)
        return;
    contents_ = contents;
    put(*LabelFrameUser, contents.user);
    put(*LabelFrameWarning, contents.warning);
    for (qsizetype number = 0; number < contents.steps.size(); ++number) {
        const auto& step = contents.steps[number];
        const auto& shown = row(number);
        shown.button->setText(QString(step.caption).replace(u'&', u"&&"_s));
        shown.button->setAccessibleName(step.caption);
        // Named as the menu names them, in the user's language.
        const auto keys = QKeySequence(step.keys).toString(QKeySequence::NativeText);
        shown.button->setAccessibleDescription(keys);
        shown.button->show();
        put(*shown.keys, keys);
    }
    // They are kept: the one whose click has changed the contents is still in use.
    for (auto number = contents.steps.size(); number < rows_.size(); ++number) {
        rows_[number].button->hide();
        rows_[number].keys->hide();
    }
}

const FrameStart::Row& FrameStart::row(qsizetype number) {
    while (rows_.size() <= number) {
        const auto place = rows_.size();
        const auto name = QString::number(place + 1);
        const Row made{nameControl(new StepButton, u"CommandStep"_s + name, {}),
                       nameControl(new QLabel, u"LabelKeys"_s + name, {})};
        made.keys->setTextFormat(Qt::PlainText);
        stepGrid_->addWidget(made.button, static_cast<int>(place), 0, Qt::AlignLeft);
        stepGrid_->addWidget(made.keys, static_cast<int>(place), 1, Qt::AlignLeft);
        connect(made.button, &QPushButton::clicked, this, [this, place] { take(place); });
        rows_ << made;
    }
    return rows_[number];
}

void FrameStart::take(qsizetype number) {
    if (number < contents_.steps.size() && chosen)
        chosen(contents_.steps[number].entry);
}

bool FrameStart::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize)
        resize(static_cast<QWidget*>(watched)->size());
    return QWidget::eventFilter(watched, event);
}

/// Scrolling the area moves all that stands in it.
void FrameStart::moveEvent(QMoveEvent* event) {
    QWidget::moveEvent(event);
    if (!pos().isNull())
        move(0, 0);
}

void FrameStart::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        takeFonts();
}

} // namespace kelvane
