#pragma once

#include "platform/user_interface.h"
#include "reports/report.h"
#include "resources/strings.h"

#include <QMainWindow>
#include <QPageLayout>
#include <QPrinter>

#include <span>

class QComboBox;
class QGraphicsView;
class QLabel;
class QPrintPreviewWidget;
class QToolBar;

namespace kelvane {

/// A window of its own beside the program's that shows the pages of a report, prints them and saves them as a
/// PDF. It deletes itself when it is closed. Its boxes go through `ui`, which must outlive it.
class ReportPreview final : public QMainWindow {
    Q_OBJECT

  public:
    ReportPreview(UserInterface& ui, Report report, const QString& title);

    /// Paints the pages and shows the window. Throws the `ReportError` that stopped it; the window then has
    /// not been shown.
    void open(const GroupProgress& onGroup = {});

    /// Prints all pages on a printer that is set up; what goes wrong is shown in a box.
    void printOn(QPrinter& printer);
    /// Writes all pages into a file; what goes wrong is shown in a box.
    void saveAs(const QString& path);

  protected:
    void changeEvent(QEvent* event) override;

  private:
    /// A button of the tool bar.
    struct Command;
    static std::span<const Command> commands();

    void buildToolBar();
    void addCommand(QToolBar& bar, const Command& command);
    void addPaper(QToolBar& bar);
    QAction* action(TextId caption) const;
    QGraphicsView* view() const;
    void takePalette();

    void print();
    void save();
    void turnTo(int page);
    void choosePaper();
    void showState();
    void paintPages(QPrinter& printer);
    void takeSizeFromScreen();
    using Work = std::function<bool(const GroupProgress& onGroup)>;
    bool carryOut(TextId caption, const Work& work);
    void showFailure(TextId caption, const QString& failure);

    UserInterface& ui_;
    Report report_;
    QPageLayout pages_;
    /// The device of the preview; it never prints.
    QPrinter printer_;
    QPrintPreviewWidget* preview_;
    QComboBox* paper_;
    QLabel* page_;
    QString folder_;
    /// Told while the preview paints.
    GroupProgress onGroup_;
    /// Why the preview could not paint.
    QString failure_;
};

} // namespace kelvane
