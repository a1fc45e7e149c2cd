#include "reports/report_preview.h"

#include "reports/report_error.h"
#include "reports/report_pdf.h"
#include "reports/work_window.h"
#include "resources/captions.h"
#include "resources/text_id.h"

#include <QAction>
#include <QCloseEvent>
#include <QComboBox>
#include <QDir>
#include <QEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QGraphicsView>
#include <QLabel>
#include <QPrintDialog>
#include <QPrintPreviewWidget>
#include <QPrinterInfo>
#include <QScopeGuard>
#include <QScreen>
#include <QStandardPaths>
#include <QStatusBar>
#include <QToolBar>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

constexpr qreal zoomStep = 1.25;

/// The user's folder for documents, or the home where there is none: the dialog would show the working folder
/// instead.
QString documentsFolder() {
    const auto folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QDir(folder).exists() ? folder : QDir::homePath();
}

} // namespace

struct ReportPreview::Command {
    QStringView name;
    TextId caption;
    /// What the button shows; empty for the caption.
    QStringView sign;
    /// In the portable form, several with "; " between them.
    QStringView keys;
    void (*run)(ReportPreview& preview);
    bool beginsGroup = false;
    /// It stays pressed while its kind of zoom is on.
    bool isKept = false;
};

std::span<const ReportPreview::Command> ReportPreview::commands() {
    using P = ReportPreview;
    static constexpr Command all[] = {
        {u"Print", TextId::printReport, u"", u"Ctrl+P", [](P& p) { p.print(); }},
        {u"Save", TextId::saveReport, u"", u"Ctrl+S", [](P& p) { p.save(); }},
        {u"First", TextId::firstPage, u"«", u"Ctrl+Home", [](P& p) { p.turnTo(1); }, true},
        {u"Previous", TextId::previousPage, u"‹", u"PgUp",
         [](P& p) { p.turnTo(p.preview_->currentPage() - 1); }},
        {u"Next", TextId::nextPage, u"›", u"PgDown", [](P& p) { p.turnTo(p.preview_->currentPage() + 1); }},
        {u"Last", TextId::lastPage, u"»", u"Ctrl+End", [](P& p) { p.turnTo(p.preview_->pageCount()); }},
        {u"ZoomOut", TextId::zoomOut, u"−", u"Ctrl+-", [](P& p) { p.preview_->zoomOut(zoomStep); }, true},
        {u"ZoomIn", TextId::zoomIn, u"+", u"Ctrl++; Ctrl+=", [](P& p) { p.preview_->zoomIn(zoomStep); }},
        {u"FitWidth", TextId::fitWidth, u"", u"Ctrl+1", [](P& p) { p.preview_->fitToWidth(); }, false, true},
        {u"FitPage", TextId::fitPage, u"", u"Ctrl+2", [](P& p) { p.preview_->fitInView(); }, false, true},
        {u"Close", TextId::closeCommand, u"", u"Esc", [](P& p) { p.close(); }, true},
    };
    return all;
}

ReportPreview::ReportPreview(UserInterface& ui, Report report, const QString& title)
    : ui_(ui),
      report_(std::move(report)),
      pages_(pageLayout(report_.layout())),
      printer_(QPrinter::HighResolution),
      preview_(new QPrintPreviewWidget(&printer_, this)),
      paper_(new QComboBox),
      page_(new QLabel),
      folder_(documentsFolder()) {
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(u"ReportPreview"_s);
    setWindowTitle(title);
    printer_.setOutputFormat(QPrinter::PdfFormat);
    printer_.setPageLayout(pages_);

    preview_->setObjectName(u"Pages"_s);
    preview_->setAccessibleName(text(TextId::previewPages));
    if (auto* shown = view()) {
        shown->setAccessibleName(text(TextId::previewPages));
        preview_->setFocusProxy(shown);
    }
    takePalette();
    setCentralWidget(preview_);
    buildToolBar();
    statusBar()->setObjectName(u"Status"_s);
    connect(preview_, &QPrintPreviewWidget::paintRequested, this,
            [this](QPrinter* printer) { paintPages(*printer); });
    connect(preview_, &QPrintPreviewWidget::previewChanged, this, [this] { showState(); });
}

void ReportPreview::buildToolBar() {
    auto* bar = addToolBar(windowTitle());
    bar->setObjectName(u"ToolBar"_s);
    bar->setMovable(false);
    bar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    for (const auto& command : commands()) {
        if (command.caption == TextId::closeCommand)
            addPaper(*bar);
        addCommand(*bar, command);
        if (command.caption == TextId::previousPage) {
            page_->setObjectName(u"Page"_s);
            page_->setAlignment(Qt::AlignCenter);
            bar->addWidget(page_);
        }
    }
}

void ReportPreview::addCommand(QToolBar& bar, const Command& command) {
    if (command.beginsGroup)
        bar.addSeparator();
    auto* made = bar.addAction(text(command.caption));
    made->setObjectName(command.name.toString());
    made->setShortcuts(QKeySequence::listFromString(command.keys.toString()));
    made->setToolTip(text(command.caption) + u" ("_s + made->shortcut().toString(QKeySequence::NativeText) +
                     u')');
    made->setCheckable(command.isKept);
    made->setIconText(command.sign.isEmpty() ? text(command.caption) : command.sign.toString());
    connect(made, &QAction::triggered, this, [this, run = command.run] {
        run(*this);
        showState();
    });
    auto* button = bar.widgetForAction(made);
    button->setObjectName(made->objectName() + u"Button"_s);
    button->setAccessibleName(text(command.caption));
    button->setFocusPolicy(Qt::TabFocus);
}

void ReportPreview::addPaper(QToolBar& bar) {
    bar.addSeparator();
    auto* caption = new QLabel(text(TextId::paper) + u' ');
    caption->setBuddy(paper_);
    bar.addWidget(caption);
    paper_->setObjectName(u"Paper"_s);
    paper_->setAccessibleName(text(TextId::paper));
    const auto own = pages_.pageSize().id();
    for (const auto size : {QPageSize::A4, QPageSize::Letter})
        paper_->addItem(QPageSize::name(size).section(u" / "_s, 0, 0), size);
    if (paper_->findData(own) < 0)
        paper_->addItem(pages_.pageSize().name(), own);
    paper_->setCurrentIndex(paper_->findData(own));
    connect(paper_, &QComboBox::currentIndexChanged, this, [this] { choosePaper(); });
    bar.addWidget(paper_);
}

QAction* ReportPreview::action(TextId caption) const {
    const auto* found = std::ranges::find(commands(), caption, &Command::caption).base();
    return findChild<QAction*>(found->name.toString());
}

void ReportPreview::open(const GroupProgress& onGroup) {
    onGroup_ = onGroup;
    preview_->updatePreview();
    onGroup_ = {};
    if (!failure_.isEmpty())
        throw ReportError(failure_);
    showState();
    takeSizeFromScreen();
    show();
    raise();
    activateWindow();
    preview_->setFocus();
}

QGraphicsView* ReportPreview::view() const {
    return preview_->findChild<QGraphicsView*>();
}

/// The preview has a colour of its own around the paper.
void ReportPreview::takePalette() {
    if (auto* shown = view())
        shown->scene()->setBackgroundBrush(palette().dark());
}

void ReportPreview::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        takePalette();
}

/// As high as the screen lets a whole page be seen, and wide enough for the tool bar.
void ReportPreview::takeSizeFromScreen() {
    const auto space = screen()->availableSize() * 9 / 10;
    const auto page = pages_.fullRectPoints().size();
    const int wide = space.height() * page.width() / std::max(page.height(), 1);
    ensurePolished();
    const int toolBar = findChild<QToolBar*>()->sizeHint().width() + findChild<QToolBar*>()->height();
    resize(QSize(std::max(wide, toolBar), space.height()).boundedTo(space));
}

void ReportPreview::paintPages(QPrinter& printer) {
    // Nothing may be thrown through the preview.
    try {
        report_.paint(printer, onGroup_);
        failure_.clear();
    } catch (const ReportError& error) {
        failure_ = error.text();
    }
}

void ReportPreview::showState() {
    const int page = preview_->currentPage();
    const int count = preview_->pageCount();
    page_->setText(u' ' + text(TextId::pageOfPages).arg(page).arg(count) + u' ');
    action(TextId::firstPage)->setEnabled(page > 1);
    action(TextId::previousPage)->setEnabled(page > 1);
    action(TextId::nextPage)->setEnabled(page < count);
    action(TextId::lastPage)->setEnabled(page < count);
    action(TextId::fitWidth)->setChecked(preview_->zoomMode() == QPrintPreviewWidget::FitToWidth);
    action(TextId::fitPage)->setChecked(preview_->zoomMode() == QPrintPreviewWidget::FitInView);
}

void ReportPreview::turnTo(int page) {
    preview_->setCurrentPage(page);
}

/// The pages are hidden meanwhile: the preview drops the old ones when the first new one is painted.
void ReportPreview::choosePaper() {
    pages_.setPageSize(QPageSize(static_cast<QPageSize::PageSizeId>(paper_->currentData().toInt())));
    printer_.setPageLayout(pages_);
    preview_->hide();
    carryOut(TextId::paper, [this](const GroupProgress& onGroup) {
        onGroup_ = onGroup;
        preview_->updatePreview();
        onGroup_ = {};
        return true;
    });
    preview_->show();
    turnTo(1);
    showState();
    if (!failure_.isEmpty())
        showFailure(TextId::paper, failure_);
}

void ReportPreview::print() {
    if (QPrinterInfo::availablePrinterNames().isEmpty()) {
        ui_.messageBox(text(TextId::noPrinter), windowTitle(), box::information);
        return;
    }
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageLayout(pages_);
    QPrintDialog dialog(&printer, this);
    // All sheets, always: pages are numbered within a sheet, so that none could be chosen by its number.
    dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintShowPageSize |
                      QAbstractPrintDialog::PrintCollateCopies);
    if (dialog.exec() == QDialog::Accepted)
        printOn(printer);
}

void ReportPreview::printOn(QPrinter& printer) {
    const auto name = printer.outputFileName().isEmpty() ? printer.printerName() : printer.outputFileName();
    try {
        printer.setDocName(windowTitle());
        const bool whole = carryOut(TextId::printReport, [&](const GroupProgress& onGroup) {
            return report_.paint(printer, onGroup);
        });
        if (printer.printerState() == QPrinter::Error || printer.printerState() == QPrinter::Aborted)
            throw ReportError(text(TextId::printerRefused));
        statusBar()->showMessage(whole ? text(TextId::reportSent).arg(name) : text(TextId::printingStopped));
    } catch (const ReportError& error) {
        showFailure(TextId::printReport,
                    text(TextId::printingFailed).arg(name) + u"\r\n\r\n"_s + error.text());
    }
}

void ReportPreview::save() {
    QFileDialog dialog(this, titleOf(TextId::saveReport));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilter(text(TextId::pdfFiles));
    dialog.setDefaultSuffix(u"pdf"_s);
    dialog.setDirectory(folder_);
    dialog.selectFile(windowTitle().replace(u'/', u'-') + u".pdf"_s);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return;
    const auto path = dialog.selectedFiles().constFirst();
    folder_ = QFileInfo(path).absolutePath();
    saveAs(path);
}

void ReportPreview::saveAs(const QString& path) {
    try {
        const bool whole = carryOut(TextId::saveReport, [&](const GroupProgress& onGroup) {
            return writePdf(report_, pages_, windowTitle(), path, onGroup);
        });
        statusBar()->showMessage(whole ? text(TextId::reportSaved).arg(QDir::toNativeSeparators(path))
                                       : text(TextId::reportNotSaved));
    } catch (const ReportError& error) {
        showFailure(TextId::saveReport, text(TextId::reportSaveFailed) + u"\r\n\r\n"_s + error.text());
    }
}

/// Runs long work on all sheets with a window that shows how far it is, once it takes a while. False when the
/// user has ended it there.
bool ReportPreview::carryOut(TextId caption, const Work& work) {
    const auto count = static_cast<int>(report_.groupCount());
    // The preview would keep no more than the sheets up to there.
    const bool canBeEnded = caption != TextId::paper;
    WorkWindow dialog(titleOf(caption), count, canBeEnded, this);
    ui_.setBusyPointer();
    const auto normal = qScopeGuard([this] { ui_.setNormalPointer(); });
    return work([&](qsizetype group) {
        dialog.setLabelText(text(TextId::sheetOfSheets).arg(group + 1).arg(count));
        dialog.setValue(static_cast<int>(group));
        return !dialog.wasCanceled();
    });
}

void ReportPreview::showFailure(TextId caption, const QString& failure) {
    ui_.messageBox(failure, titleOf(caption), box::stop);
}

} // namespace kelvane
