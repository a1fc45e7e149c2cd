#pragma once

#include <QFont>
#include <QRectF>
#include <QString>
#include <QTextLayout>

QT_FORWARD_DECLARE_CLASS(QPainter)

namespace kelvane {

/// A text broken into lines of at most a width, shaped once and painted as often as wanted. All lengths are
/// design units. It wraps between words, or within a word that is too long for a line, so that all of it
/// stands there.
class MeasuredText {
  public:
    /// `font` is sized in design units.
    MeasuredText(const QString& text, const QFont& font, Qt::Alignment alignment, double width);

    double height() const { return height_; }
    /// Paints the text at `place`, according to its vertical alignment.
    void paint(QPainter& painter, const QRectF& place) const;

  private:
    QTextLayout layout_;
    Qt::Alignment alignment_;
    double height_ = 0;
};

/// The height of one line of a font.
double lineHeight(const QFont& font);

} // namespace kelvane
