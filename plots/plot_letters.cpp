#include "plots/plot_letters.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane {

QString plotLine(const QString& text) {
    QString line;
    for (const auto character : text.simplified().toUcs4()) { // half a character becomes U+FFFD
        if (QChar::category(character) != QChar::Other_Control && !QChar::isNonCharacter(character))
            line += QChar::fromUcs4(character);
    }
    return line.simplified();
}

double PlotLetters::widthOf(const QString& text) const {
    return metrics_.horizontalAdvance(plotLine(text));
}

QString PlotLetters::shortened(const QString& text, double width) const {
    const auto shown = metrics_.elidedText(plotLine(text), Qt::ElideMiddle, width);
    return widthOf(shown) <= width ? shown : QString();
}

QStringList PlotLetters::linesOf(const QString& sentence, double width) const {
    QStringList lines;
    QString line;
    for (const auto& word : plotLine(sentence).split(u' ')) {
        const auto longer = line.isEmpty() ? word : line + u' ' + word;
        if (line.isEmpty() || widthOf(longer) <= width) {
            line = longer;
            continue;
        }
        lines << shortened(line, width);
        line = word;
    }
    return lines << shortened(line, width);
}

QStringList PlotLetters::linesOf(const QStringList& sentences, double width, qsizetype most) const {
    QStringList lines;
    for (const auto& sentence : sentences)
        lines << linesOf(sentence, width);
    if (lines.size() <= most)
        return lines;
    lines = lines.first(std::max<qsizetype>(most, 0));
    if (!lines.isEmpty())
        lines.last() = metrics_.elidedText(lines.last() + u" …"_s, Qt::ElideRight, width);
    return lines;
}

} // namespace kelvane
