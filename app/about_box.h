#pragma once

#include "data/session.h"
#include "resources/text_id.h"

#include <QDialog>
#include <QList>

class QPushButton;

namespace kelvane {

/// A line of the about box: a caption, and the file or folder that it tells.
struct AboutLine {
    /// Of the field that shows it.
    QString name;
    TextId caption;
    QString value;
};

/// Where the files of this program stand now, in the order of the box.
QList<AboutLine> aboutLines(const Session& session);

/// The version as the box and its button have it, such as "Kelvane 0.2.0".
QString programNameWithVersion(const QString& version);

/// What this program is, and where its files stand, to read and to copy.
class AboutBox final : public QDialog {
    Q_OBJECT
  public:
    AboutBox(const Session& session, QWidget* parent);

  private:
    void layOut();
    QString asText() const;

    QList<AboutLine> lines_;
    QPushButton* CommandCopy;
    QPushButton* CommandClose;
};

/// Opens the box over a window. While a question is open, that comes forward instead.
void openAboutBox(const Session& session, QWidget* window);

} // namespace kelvane
