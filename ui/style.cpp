#include "ui/style.h"

#include "platform/error.h"
#include "platform/settings_store.h"
#include "ui/whole_text.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QHelpEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStyleOption>
#include <QTabBar>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

constexpr int focusWidth = 2;

/// What an outline may lie on.
QList<QColor> groundsOf(const QPalette& palette) {
    const auto button = palette.color(QPalette::Button);
    // Buttons and the pages of tabs are painted lighter than the palette says, the more so the darker they
    // are.
    const int lighter = 100 + qMax(1, (180 - qGray(button.rgb())) / 6);
    return {palette.color(QPalette::Window), palette.color(QPalette::Base), button.lighter(lighter)};
}

QColor outlineColor(const QStyleOption& option) {
    const auto& palette = option.palette;
    const auto window = palette.color(QPalette::Window);
    if (!option.state.testFlag(QStyle::State_Enabled))
        return mixed(window, palette.color(QPalette::Active, QPalette::WindowText), 0.25);
    const auto halfway = mixed(window, palette.color(QPalette::WindowText), 0.4);
    return readableOn(groundsOf(palette), halfway, leastContrast);
}

QColor focusColor(const QList<QColor>& grounds, const QPalette& palette) {
    return readableOn(grounds, palette.color(QPalette::Active, QPalette::Highlight), leastContrast);
}

enum class Shape { box, circle };

void draw(QPainter& painter, const QRect& rect, const QColor& color, int width, Shape shape) {
    constexpr double rounding = 2;
    const double inset = width / 2.0;
    const auto line = QRectF(rect).adjusted(inset, inset, -inset, -inset);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(color, width));
    if (shape == Shape::circle)
        painter.drawEllipse(line);
    else
        painter.drawRoundedRect(line, rounding, rounding);
    painter.restore();
}

/// True for the button that Return clicks.
bool isDefault(const QStyleOption& option) {
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(&option);
    return button && button->features.testFlag(QStyleOptionButton::DefaultButton);
}

/// The outline of a control as its state asks for.
void drawOutline(const QStyleOption& option, QPainter& painter, Shape shape = Shape::box) {
    const bool isEnabled = option.state.testFlag(QStyle::State_Enabled);
    const bool hasFocus = isEnabled && option.state.testFlag(QStyle::State_HasFocus);
    const bool isMarked = hasFocus || (isEnabled && isDefault(option));
    draw(painter, option.rect,
         isMarked ? focusColor(groundsOf(option.palette), option.palette) : outlineColor(option),
         hasFocus ? focusWidth : 1, shape);
}

/// The outline around what has the focus inside a control: a row, a caption.
void drawInnerFocus(const QStyleOptionFocusRect& option, QPainter& painter) {
    const auto ground = option.backgroundColor;
    // Rows that are not selected say that they lie on the window, but lie on the ground of their list.
    const bool isSelected = ground.isValid() && ground != option.palette.color(QPalette::Window);
    const auto grounds = isSelected ? QList<QColor>{ground} : groundsOf(option.palette);
    draw(painter, option.rect, focusColor(grounds, option.palette), 1, Shape::box);
}

bool isList(const QWidget* widget) {
    return qobject_cast<const QAbstractItemView*>(widget) && !qobject_cast<const QHeaderView*>(widget) &&
           !widget->inherits("QComboBoxListView");
}

/// A box for text that can't be changed has the ground of the window, as long as it is so.
void takeGround(QAbstractScrollArea& area) {
    const auto* text = qobject_cast<QPlainTextEdit*>(&area);
    const bool canChange = area.isEnabled() && (!text || !text->isReadOnly());
    area.viewport()->setBackgroundRole(canChange ? QPalette::Base : QPalette::Window);
}

bool showsFocusInItsShape(const QWidget* widget) {
    return qobject_cast<const QPushButton*>(widget) || qobject_cast<const QTabBar*>(widget);
}

bool isFlatButton(const QWidget* widget) {
    const auto* button = qobject_cast<const QPushButton*>(widget);
    return button && button->isFlat();
}

/// A list or a box for text, with its frame; the list that drops down has another one.
bool isBox(const QWidget* widget) {
    return isList(widget) || qobject_cast<const QPlainTextEdit*>(widget);
}

/// The width that a field has for its text.
int widthForText(const QLineEdit& field) {
    QStyleOptionFrame option;
    option.initFrom(&field);
    option.rect = field.contentsRect();
    option.lineWidth = field.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, &field);
    constexpr int besideText = 2;
    return field.style()->subElementRect(QStyle::SE_LineEditContents, &option, &field).width() -
           2 * besideText;
}

bool isCutOff(const QLineEdit& field) {
    return field.echoMode() == QLineEdit::Normal &&
           field.fontMetrics().horizontalAdvance(field.text()) > widthForText(field);
}

} // namespace

Style::Style(const QString& key) : QProxyStyle(key) {}

void Style::polish(QPalette& palette) {
    QProxyStyle::polish(palette);
    makeReadable(palette);
}

void Style::polish(QWidget* widget) {
    QProxyStyle::polish(widget);
    if (isList(widget))
        static_cast<QAbstractItemView*>(widget)->setAlternatingRowColors(true);
    if (isBox(widget)) {
        auto* box = static_cast<QAbstractScrollArea*>(widget);
        // A frame is measured when it is made, before it is known what it is a frame of.
        box->setFrameStyle(box->frameStyle());
        takeGround(*box);
    }
    if (isBox(widget) || qobject_cast<QLineEdit*>(widget))
        widget->installEventFilter(this);
}

void Style::unpolish(QWidget* widget) {
    widget->removeEventFilter(this);
    QProxyStyle::unpolish(widget);
}

int Style::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                     QStyleHintReturn* returned) const {
    if (hint == SH_LineEdit_PasswordCharacter)
        return u'*';
    return QProxyStyle::styleHint(hint, option, widget, returned);
}

int Style::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    // As high as the letters beside them.
    if (metric == PM_ButtonIconSize && qobject_cast<const QPushButton*>(widget))
        return widget->fontMetrics().ascent();
    const int measure = QProxyStyle::pixelMetric(metric, option, widget);
    // What lies inside must leave the outline of the focus free.
    return metric == PM_DefaultFrameWidth && isBox(widget) ? qMax(measure, focusWidth) : measure;
}

void Style::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                          const QWidget* widget) const {
    if (element == PE_FrameFocusRect) {
        const auto* focus = qstyleoption_cast<const QStyleOptionFocusRect*>(option);
        if (focus && !showsFocusInItsShape(widget))
            drawInnerFocus(*focus, *painter);
        return;
    }
    if (const auto* field = qstyleoption_cast<const QStyleOptionFrame*>(option);
        element == PE_PanelLineEdit && field &&
        (field->state.testFlag(State_ReadOnly) || !field->state.testFlag(State_Enabled))) {
        QStyleOptionFrame onWindow(*field);
        onWindow.palette.setBrush(QPalette::Base, field->palette.window());
        QProxyStyle::drawPrimitive(element, &onWindow, painter, widget);
        return;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (element == PE_FrameLineEdit || element == PE_PanelButtonCommand || element == PE_IndicatorCheckBox ||
        (element == PE_Frame && isBox(widget)))
        drawOutline(*option, *painter);
    else if (element == PE_IndicatorRadioButton)
        drawOutline(*option, *painter, Shape::circle);
    else if (element == PE_FrameWindow)
        draw(*painter, option->rect, outlineColor(*option), 1, Shape::box);
}

void Style::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                        const QWidget* widget) const {
    QProxyStyle::drawControl(element, option, painter, widget);
    // It has no panel whose outline would show the focus.
    if (element == CE_PushButton && isFlatButton(widget) && option->state.testFlag(State_HasFocus))
        drawOutline(*option, *painter);
    // Some styles show nothing on a tab that has the focus.
    if (element == CE_TabBarTabShape && option->state.testFlag(State_HasFocus))
        draw(*painter, option->rect.adjusted(2, 3, -2, -2),
             focusColor(groundsOf(option->palette), option->palette), 1, Shape::box);
}

void Style::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                               const QWidget* widget) const {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if (control == CC_ComboBox)
        drawOutline(*option, *painter);
}

bool Style::eventFilter(QObject* watched, QEvent* event) {
    const auto type = event->type();
    if (auto* field = qobject_cast<QLineEdit*>(watched)) {
        if (type != QEvent::ToolTip || !isCutOff(*field))
            return false;
        showWholeText(static_cast<QHelpEvent*>(event)->globalPos(), field->text(), *field);
        return true;
    }
    if (auto* area = qobject_cast<QAbstractScrollArea*>(watched);
        area && (type == QEvent::EnabledChange || type == QEvent::ReadOnlyChange))
        takeGround(*area);
    return false;
}

Colors chosenColors(const SettingsStore& settings) {
    try {
        return colorsNamed(settings.value(u"Looks"_s, u"Colors"_s));
    } catch (const Error&) {
        // There is no window yet to report it in. The login reads the store, too, and does.
        return Colors::desktop;
    }
}

void setLooks(Colors colors) {
    QApplication::setStyle(new Style);
    if (colors == Colors::desktop)
        return;
    const auto palette = ownPalette(colors);
    QApplication::setPalette(palette);
    // Tool tips have a palette of their own.
    QToolTip::setPalette(palette);
}

} // namespace kelvane
