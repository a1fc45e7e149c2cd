#pragma once

#include <QPlainTextEdit>
#include <QTextOption>

namespace kelvane {

/// How a text has to wrap. A word without an end wraps anywhere: to look for the best place in it again for
/// each line would cost the square of its length.
QTextOption::WrapMode wrapModeFor(const QString& text);

/// A box for a text of several lines. Its line ends are CR LF, every other character stays what it is; Tab
/// leaves the box.
class TextBox final : public QPlainTextEdit {
    Q_OBJECT
  public:
    TextBox();

    QString text() const;
    /// Puts a text in; the same text changes nothing.
    void setText(const QString& text);
    /// Keeps the box at exactly so many lines.
    void setLines(int lines);
    /// No more than it needs; what is left is given to it by its stretch.
    QSize sizeHint() const override { return minimumSizeHint(); }

  Q_SIGNALS:
    /// The focus has come from another control; not after a box, a menu or another program.
    void entered();

  protected:
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace kelvane
