#include "ui/whole_text.h"

#include <QHelpEvent>
#include <QListView>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <QStyledItemDelegate>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// So many characters of a tip are shown, and so many of them without a place to wrap at.
constexpr qsizetype longestTip = 4000;
constexpr qsizetype longestWord = 60;
constexpr QChar wrapsHere(0x200B);
constexpr QChar ellipsis(0x2026);

/// Marks where words without an end may wrap.
QString wrappable(const QString& text) {
    QString marked;
    qsizetype inWord = 0;
    for (const auto character : text) {
        inWord = character.isSpace() ? 0 : inWord + 1;
        if (inWord > longestWord && !character.isLowSurrogate()) {
            marked += wrapsHere;
            inWord = 1;
        }
        marked += character;
    }
    return marked;
}

/// Draws rows as ever. A row is as wide as its text; its measure is taken in one step, since a list may have
/// thousands of them.
class WholeRows final : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        if (rowHeight_ == 0 || option.font != font_) {
            rowHeight_ = QStyledItemDelegate::sizeHint(option, index).height();
            font_ = option.font;
        }
        return {neededWidth(option, index), rowHeight_};
    }

    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override {
        const auto shown = option.rect & view->viewport()->rect();
        if (event->type() != QEvent::ToolTip || !index.isValid() ||
            shown.width() >= neededWidth(option, index))
            return QStyledItemDelegate::helpEvent(event, view, option, index);
        showWholeText(event->globalPos(), index.data().toString(), *view);
        return true;
    }

  private:
    static int neededWidth(const QStyleOptionViewItem& option, const QModelIndex& index) {
        const auto* style = option.widget->style();
        const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, option.widget) + 1;
        return option.fontMetrics.horizontalAdvance(index.data().toString()) + 2 * margin;
    }

    mutable int rowHeight_ = 0;
    mutable QFont font_;
};

} // namespace

QString wholeTextTip(const QString& whole) {
    const auto shown = whole.size() <= longestTip ? whole : whole.left(longestTip) + ellipsis;
    return u"<qt>"_s + wrappable(shown).toHtmlEscaped().replace(u"\n"_s, u"<br>"_s) + u"</qt>"_s;
}

void showWholeText(const QPoint& place, const QString& whole, QWidget& widget) {
    const auto own = widget.toolTip();
    QToolTip::showText(place, wholeTextTip(own.isEmpty() ? whole : whole + u'\n' + own), &widget);
}

void showWholeRows(QListView& list) {
    list.setUniformItemSizes(false);
    list.setItemDelegate(new WholeRows(&list));
}

ElidedLabel::ElidedLabel() {
    setTextFormat(Qt::PlainText);
}

QSize ElidedLabel::minimumSizeHint() const {
    auto hint = QLabel::minimumSizeHint();
    hint.setWidth(qMin(hint.width(), fontMetrics().averageCharWidth() * 8));
    return hint;
}

bool ElidedLabel::isElided() const {
    return fontMetrics().horizontalAdvance(text()) > contentsRect().width();
}

bool ElidedLabel::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip && isElided()) {
        showWholeText(static_cast<QHelpEvent*>(event)->globalPos(), text(), *this);
        return true;
    }
    return QLabel::event(event);
}

void ElidedLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    drawFrame(&painter);
    const auto shown = fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width());
    style()->drawItemText(&painter, contentsRect(), static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter),
                          palette(), isEnabled(), shown, foregroundRole());
}

} // namespace kelvane
