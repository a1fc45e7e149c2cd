#pragma once

#include <QFontMetricsF>
#include <QStringList>

namespace kelvane {

/// A text without line ends, and without characters that are no letters and that a file may not hold.
QString plotLine(const QString& text);

/// The letters of a plot on its device, from which all other lengths follow.
class PlotLetters {
  public:
    explicit PlotLetters(const QFontMetricsF& metrics) : metrics_(metrics) {}

    /// The height of a line.
    double line() const { return metrics_.height(); }
    /// Between two things that stand beside each other.
    double gap() const { return line() / 3; }
    /// The width of a line that can be seen well.
    double stroke() const { return line() / 15; }
    /// A mark, from side to side.
    double mark() const { return line() * 0.45; }

    double widthOf(const QString& text) const;
    /// A text in one line, shortened in its middle; nothing where not even that fits.
    QString shortened(const QString& text, double width) const;
    /// A sentence in lines of that width, broken between words. A word that is wider is shortened.
    QStringList linesOf(const QString& sentence, double width) const;
    /// At most so many lines of several sentences; dots stand at the end where there are more.
    QStringList linesOf(const QStringList& sentences, double width, qsizetype most) const;

  private:
    QFontMetricsF metrics_;
};

} // namespace kelvane
