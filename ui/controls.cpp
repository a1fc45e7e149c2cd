#include "ui/controls.h"

#include <QListView>
#include <QScrollBar>
#include <QWheelEvent>

namespace kelvane {

namespace {

/// A caption without the marks that would be read as a mnemonic.
QString plainCaption(int id) {
    return text(id).replace(QLatin1Char('&'), QLatin1String("&&"));
}

/// A list to choose from that the wheel turns only while it has the focus: one that turns under the pointer
/// by chance would choose another record, and drop what was entered.
class DropDown final : public QComboBox {
  public:
    DropDown() { setFocusPolicy(Qt::StrongFocus); }

  protected:
    void wheelEvent(QWheelEvent* event) override {
        if (hasFocus())
            QComboBox::wheelEvent(event);
        else
            event->ignore();
    }
};

} // namespace

QLabel* label(const QString& name, int caption) {
    auto* made = named(new QLabel, name, text(caption));
    made->setTextFormat(Qt::PlainText);
    made->setText(text(caption));
    return made;
}

QLabel* labelFor(QWidget* control, const QString& name, int caption) {
    auto* made = label(name, caption);
    made->setText(plainCaption(caption));
    made->setBuddy(control);
    return made;
}

QPushButton* button(const QString& name, int caption, int toolTip) {
    auto* made = named(new QPushButton, name, text(caption), toolTip);
    made->setText(plainCaption(caption));
    return made;
}

QComboBox* dropDown(const QString& name, const QString& accessibleName, int toolTip,
                    const QStringList& rows) {
    auto* made = named(static_cast<QComboBox*>(new DropDown), name, accessibleName, toolTip);
    made->addItems(rows);
    return made;
}

void keepWidth(QComboBox* list) {
    list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    list->setMinimumContentsLength(10);
    auto* rows = list->view();
    rows->setMinimumWidth(
        qMin(rows->sizeHintForColumn(0) + rows->verticalScrollBar()->sizeHint().width(), 600));
    // Thousands of rows would be measured one by one, each time that they change later.
    if (auto* plain = qobject_cast<QListView*>(rows))
        plain->setUniformItemSizes(true);
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
