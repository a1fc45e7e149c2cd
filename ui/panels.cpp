#include "ui/panels.h"

#include "ui/controls.h"

#include <QApplication>
#include <QGroupBox>
#include <QHash>
#include <QProxyStyle>
#include <QTabBar>
#include <QTabWidget>

namespace kelvane {

namespace {

/// The style of the program with less room beside the captions of tabs, so that long ones stand in a row.
class CloseTabs final : public QProxyStyle {
  public:
    CloseTabs() : QProxyStyle(QApplication::style()->name()) {}
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override {
        const int usual = QProxyStyle::pixelMetric(metric, option, widget);
        return metric == PM_TabBarTabHSpace ? qMin(usual, besideCaption) : usual;
    }

  private:
    static constexpr int besideCaption = 10;
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

QGroupBox* panel(const QString& name, int caption) {
    auto* made = named(new QGroupBox, name, text(caption));
    made->setTitle(text(caption));
    return made;
}

QLabel* note(const QString& name, int caption) {
    auto* made = named(new Note, name, text(caption));
    made->setTextFormat(Qt::PlainText);
    made->setText(text(caption));
    made->setWordWrap(true);
    return made;
}

QTabWidget* tabControl(const QString& name, int accessibleName) {
    auto* made = named(new QTabWidget, name, text(accessibleName));
    made->setFocusPolicy(Qt::NoFocus);
    made->tabBar()->setFocusPolicy(Qt::TabFocus);
    made->tabBar()->setAccessibleName(text(accessibleName));
    auto* style = new CloseTabs;
    style->setParent(made);
    made->tabBar()->setStyle(style);
    // A caption that is cut off says nothing; rather the window grows.
    made->setUsesScrollButtons(false);
    made->setElideMode(Qt::ElideNone);
    return made;
}

} // namespace kelvane
