#include "ui/panels.h"

#include "ui/controls.h"

#include <QGroupBox>
#include <QHash>
#include <QStyleOptionTab>
#include <QStylePainter>
#include <QTabBar>
#include <QTabWidget>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// A row of tabs with little space beside their captions, so that long ones stand in a row. It measures and
/// places the captions itself: each style reserves another amount of space.
class CaptionBar final : public QTabBar {
  public:
    // The name that a tab control gives its row of tabs.
    CaptionBar() { setObjectName(u"qt_tabwidget_tabbar"_s); }

  protected:
    QSize tabSizeHint(int index) const override {
        const int caption = fontMetrics().size(Qt::TextShowMnemonic, tabText(index)).width();
        return {caption + 2 * besideCaption, QTabBar::tabSizeHint(index).height()};
    }
    QSize minimumTabSizeHint(int index) const override { return tabSizeHint(index); }
    void paintEvent(QPaintEvent* event) override;

  private:
    void paintTab(QStylePainter& painter, int index);

    static constexpr int besideCaption = 4;
};

void CaptionBar::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    // The chosen tab lies over its neighbours.
    for (int index = 0; index < count(); ++index) {
        if (index != currentIndex())
            paintTab(painter, index);
    }
    if (currentIndex() >= 0)
        paintTab(painter, currentIndex());
}

void CaptionBar::paintTab(QStylePainter& painter, int index) {
    QStyleOptionTab option;
    initStyleOption(&option, index);
    painter.drawControl(QStyle::CE_TabBarTabShape, option);
    // The style keeps free what it wants beside the caption; so it is given as much more.
    const int free = option.rect.width() -
                     style()->subElementRect(QStyle::SE_TabBarTabText, &option, this).width() -
                     2 * (besideCaption - 2);
    if (free > 0)
        option.rect.adjust(-free / 2 - 1, 0, free / 2 + 1, 0);
    painter.drawControl(QStyle::CE_TabBarTabLabel, option);
}

/// A tab control with such a row of tabs.
class Tabs final : public QTabWidget {
  public:
    Tabs() { setTabBar(new CaptionBar); }
};

/// A text that wraps and never changes. While a window is laid out it is asked again and again for its height
/// at the same few widths, and each answer would mean to set the whole text.
class Note final : public QLabel {
  public:
    int heightForWidth(int width) const override {
        auto& height = heights_[width];
        if (height == 0)
            height = QLabel::heightForWidth(width);
        return height;
    }

  protected:
    void changeEvent(QEvent* event) override {
        heights_.clear();
        QLabel::changeEvent(event);
    }

  private:
    mutable QHash<int, int> heights_;
};

} // namespace

QGroupBox* panel(const QString& name, TextId caption) {
    auto* made = nameControl(new QGroupBox, name, text(caption));
    made->setTitle(text(caption));
    return made;
}

QLabel* note(const QString& name, TextId caption) {
    auto* made = nameControl(new Note, name, text(caption));
    made->setTextFormat(Qt::PlainText);
    made->setText(text(caption));
    made->setWordWrap(true);
    return made;
}

QLabel* changingNote(const QString& name, TextId accessibleName) {
    auto* made = label(name, accessibleName);
    made->clear();
    made->setWordWrap(true);
    made->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return made;
}

void tell(QLabel& note, const QString& words, bool isAlarming) {
    note.setText(words);
    note.setAccessibleName(words);
    auto font = note.font();
    font.setBold(isAlarming);
    note.setFont(font);
}

void changePage(QTabWidget& tabs, int step) {
    for (int passed = 1; passed < tabs.count(); ++passed) {
        const int page = (tabs.currentIndex() + step * passed + passed * tabs.count()) % tabs.count();
        if (tabs.isTabEnabled(page) && tabs.isTabVisible(page)) {
            tabs.setCurrentIndex(page);
            return;
        }
    }
}

QTabWidget* tabControl(const QString& name, TextId accessibleName) {
    auto* made = nameControl(static_cast<QTabWidget*>(new Tabs), name, text(accessibleName));
    made->setFocusPolicy(Qt::NoFocus);
    made->tabBar()->setFocusPolicy(Qt::TabFocus);
    made->tabBar()->setAccessibleName(text(accessibleName));
    // A caption that is cut off says nothing; rather the window grows.
    made->setUsesScrollButtons(false);
    made->setElideMode(Qt::ElideNone);
    return made;
}

} // namespace kelvane
