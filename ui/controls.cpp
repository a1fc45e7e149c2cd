#include "ui/controls.h"

#include "resources/text_id.h"
#include "ui/button_icons.h"
#include "ui/whole_text.h"

#include <QHelpEvent>
#include <QListView>
#include <QScreen>
#include <QScrollBar>
#include <QStyleOptionComboBox>
#include <QStylePainter>
#include <QWheelEvent>

#include <algorithm>

namespace kelvane {

namespace {

/// A caption without the marks that would be read as a mnemonic.
QString plainCaption(TextId id) {
    return text(id).replace(QLatin1Char('&'), QLatin1String("&&"));
}

/// The captions whose buttons have a picture.
constexpr std::pair<TextId, ButtonIcon> iconsOfCaptions[] = {
    {TextId::ok, ButtonIcon::accept},
    {TextId::cancel, ButtonIcon::cancel},
    {TextId::addCommand, ButtonIcon::add},
    {TextId::removeInstrument, ButtonIcon::remove},
    {TextId::saveCommand, ButtonIcon::save},
    {TextId::printWorksheetsCommand, ButtonIcon::print},
    {TextId::downloadCommand, ButtonIcon::download},
};

/// A list to choose from that the wheel turns only while it has the focus: one that turns under the pointer
/// by chance would choose another record, and drop what was entered. What does not fit ends in "…" and stands
/// whole in its tool tip; what drops down is as wide as its rows.
class DropDown final : public QComboBox {
  public:
    DropDown();
    void showPopup() override;

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    int textWidth() const;
};

DropDown::DropDown() {
    setFocusPolicy(Qt::StrongFocus);
    if (auto* rows = qobject_cast<QListView*>(view()))
        showWholeRows(*rows);
}

void DropDown::showPopup() {
    const auto* scrollBar = view()->verticalScrollBar();
    const int needed = view()->sizeHintForColumn(0) + 2 * view()->frameWidth() +
                       (count() > maxVisibleItems() ? scrollBar->sizeHint().width() : 0);
    view()->setMinimumWidth(qMin(needed, screen()->availableSize().width()));
    QComboBox::showPopup();
}

int DropDown::textWidth() const {
    QStyleOptionComboBox option;
    initStyleOption(&option);
    return style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this).width() -
           2;
}

bool DropDown::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip && fontMetrics().horizontalAdvance(currentText()) > textWidth()) {
        showWholeText(static_cast<QHelpEvent*>(event)->globalPos(), currentText(), *this);
        return true;
    }
    return QComboBox::event(event);
}

void DropDown::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    option.currentText = fontMetrics().elidedText(option.currentText, Qt::ElideRight, textWidth());
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

void DropDown::wheelEvent(QWheelEvent* event) {
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}

} // namespace

QLabel* label(const QString& name, TextId caption) {
    auto* made = nameControl(new QLabel, name, text(caption));
    made->setTextFormat(Qt::PlainText);
    made->setText(text(caption));
    return made;
}

QLabel* labelFor(QWidget* control, const QString& name, TextId caption) {
    auto* made = label(name, caption);
    made->setText(plainCaption(caption));
    made->setBuddy(control);
    return made;
}

QPushButton* button(const QString& name, TextId caption, TextId toolTip) {
    auto* made = nameControl(new QPushButton, name, text(caption), toolTip);
    made->setText(plainCaption(caption));
    const auto* found = std::ranges::find(iconsOfCaptions, caption, &std::pair<TextId, ButtonIcon>::first);
    if (found != std::end(iconsOfCaptions))
        made->setIcon(buttonIcon(found->second));
    return made;
}

QComboBox* dropDown(const QString& name, const QString& accessibleName, std::optional<TextId> toolTip,
                    const QStringList& rows) {
    auto* made = nameControl(static_cast<QComboBox*>(new DropDown), name, accessibleName, toolTip);
    made->addItems(rows);
    return made;
}

void keepWidth(QComboBox* list) {
    list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    list->setMinimumContentsLength(10);
    // Thousands of rows would be measured one by one, each time that they change later. All are as wide as
    // the list that drops down, and that is measured when it does.
    if (auto* rows = qobject_cast<QListView*>(list->view()))
        rows->setUniformItemSizes(true);
}

void setTabOrder(std::initializer_list<QWidget*> controls) {
    QWidget* before = nullptr;
    for (auto* control : controls) {
        if (before)
            QWidget::setTabOrder(before, control);
        before = control;
    }
}

} // namespace kelvane
