#include "reports/measured_text.h"

#include <QPainter>
#include <QTextOption>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// From this length on, looking for the end of a word costs more than it is worth.
constexpr qsizetype maxWordLength = 500;

bool hasEndlessWord(const QString& text) {
    qsizetype length = 0;
    for (const auto character : text) {
        length = character.isSpace() ? 0 : length + 1;
        if (length > maxWordLength)
            return true;
    }
    return false;
}

/// The text as it can stand on paper: line ends become breaks, other control characters blanks.
QString printable(QString text) {
    text.replace(u"\r\n"_s, u"\n"_s);
    text.replace(u'\t', u"    "_s);
    for (auto& character : text) {
        if (character == u'\n' || character == u'\r')
            character = QChar(QChar::LineSeparator);
        else if (character.category() == QChar::Other_Control)
            character = u' ';
    }
    return text;
}

} // namespace

MeasuredText::MeasuredText(const QString& text, const QFont& font, Qt::Alignment alignment, double width)
    : layout_(printable(text), font), alignment_(alignment) {
    QTextOption option(alignment & Qt::AlignHorizontal_Mask);
    option.setWrapMode(hasEndlessWord(text) ? QTextOption::WrapAnywhere
                                            : QTextOption::WrapAtWordBoundaryOrAnywhere);
    option.setUseDesignMetrics(true);
    layout_.setTextOption(option);
    layout_.setCacheEnabled(true);
    layout_.beginLayout();
    for (auto line = layout_.createLine(); line.isValid(); line = layout_.createLine()) {
        line.setLineWidth(width);
        line.setPosition({0, height_});
        height_ += line.height();
    }
    layout_.endLayout();
}

void MeasuredText::paint(QPainter& painter, const QRectF& place) const {
    auto top = place.top();
    if (alignment_ & Qt::AlignBottom)
        top = place.bottom() - height_;
    else if (alignment_ & Qt::AlignVCenter)
        top = place.center().y() - height_ / 2;
    layout_.draw(&painter, {place.left(), top});
}

double lineHeight(const QFont& font) {
    return MeasuredText(u"X"_s, font, Qt::AlignLeft, std::numeric_limits<int>::max() / 1024.0).height();
}

} // namespace kelvane
