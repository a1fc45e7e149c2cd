#pragma once

#include <QLabel>

class QListView;

namespace kelvane {

/// The tool tip that shows a text as it stands, whatever marks are in it. Long lines wrap, words without an
/// end too; what no screen could show is cut off with "…".
QString wholeTextTip(const QString& whole);

/// Shows `whole` as the tool tip of `widget` at a place of the screen, above the tip that `widget` has.
void showWholeText(const QPoint& place, const QString& whole, QWidget& widget);

/// Makes each row of a list as wide as its text, so that the rest of a long one is reached by scrolling. The
/// tool tip of a row that is cut off has its whole text.
void showWholeRows(QListView& list);

/// A text of one line. Where it is wider than its place it ends in "…", and its tool tip has the whole text
/// above its own.
class ElidedLabel final : public QLabel {
  public:
    ElidedLabel();
    QSize minimumSizeHint() const override;

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    bool isElided() const;
};

} // namespace kelvane
