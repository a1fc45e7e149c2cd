#include "reports/report_preview.h"

#include "reports/report_error.h"
#include "testkit/quiet_operator.h"
#include "testkit/screen_operator.h"
#include "tests/worksheets/small_layout.h"
#include "ui/qt_user_interface.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPrintPreviewWidget>
#include <QPrinterInfo>
#include <QProgressDialog>
#include <QScopeGuard>
#include <QStatusBar>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// Does something with a dialog of that kind as soon as it is open.
template <class Dialog>
void whenOpen(const std::function<void(Dialog&)>& action) {
    auto* timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, action] {
        const auto windows = QApplication::topLevelWidgets();
        for (auto* window : windows) {
            auto* dialog = qobject_cast<Dialog*>(window);
            if (!dialog || !dialog->isVisible())
                continue;
            delete timer;
            action(*dialog);
            return;
        }
    });
    timer->start(0);
}

/// A preview of sheets with the assets and so on, each on a page of its own.
class Preview : public ::testing::Test {
  protected:
    Preview() { writeSmallLayout(folder); }
    ~Preview() override { delete window.data(); }

    Report report(int sheets) const {
        ReportData data;
        data.values = {{"title"_L1, sheetTitle}};
        for (int sheet = 1; sheet <= sheets; ++sheet)
            data.add({{"asset"_L1, u"A-%1"_s.arg(sheet)}});
        return {readLayout(u"kvwrksht.rpt"_s), std::move(data)};
    }
    void open(int sheets = 3, UserInterface* user = nullptr) {
        window = new ReportPreview(user ? *user : ui, report(sheets), sheetTitle);
        window->open();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    }
    template <class Control>
    Control& named(const QString& name) {
        return control<Control>(*window, name);
    }
    QPrintPreviewWidget& pages() { return named<QPrintPreviewWidget>(u"Pages"_s); }
    QString pageText() { return named<QLabel>(u"Page"_s).text().trimmed(); }
    bool isEnabled(const QString& command) { return named<QToolButton>(command + u"Button"_s).isEnabled(); }
    void press(const QString& command) { click(named<QToolButton>(command + u"Button"_s)); }
    void key(const QString& keys) { QTest::keySequence(QApplication::focusWidget(), QKeySequence(keys)); }
    QString status() { return window->statusBar()->currentMessage(); }
    /// The sizes of the pages in a PDF, in points.
    QStringList pagesOf(const QString& file) const {
        static const QRegularExpression box(u"/MediaBox \\[([^\\]]*)\\]"_s);
        QStringList found;
        QFile pdf(file);
        EXPECT_TRUE(pdf.open(QIODevice::ReadOnly)) << file.toStdString();
        auto matches = box.globalMatch(QString::fromLatin1(pdf.readAll()));
        while (matches.hasNext())
            found << matches.next().captured(1);
        return found;
    }

    OwnFolder folder;
    ScriptedUserInterface ui;
    QPointer<ReportPreview> window;
};

const auto a4 = u"0 0 595.000000 842.000000"_s;
const auto letter = u"0 0 612.000000 792.000000"_s;

} // namespace

TEST_F(Preview, StandsBesideTheProgramWithItsTitleAndItsPages) {
    open();
    EXPECT_TRUE(window->isWindow());
    EXPECT_EQ(window->parentWidget(), nullptr);
    EXPECT_EQ(window->windowTitle(), sheetTitle);
    EXPECT_EQ(pages().pageCount(), 3);
    EXPECT_EQ(pageText(), u"Page 1 of 3"_s);
}

TEST_F(Preview, KeysTurnThePages) {
    open();
    EXPECT_FALSE(isEnabled(u"First"_s) || isEnabled(u"Previous"_s));
    key(u"PgDown"_s);
    EXPECT_EQ(pageText(), u"Page 2 of 3"_s);
    EXPECT_TRUE(isEnabled(u"Previous"_s) && isEnabled(u"Next"_s));
    key(u"Ctrl+End"_s);
    EXPECT_EQ(pageText(), u"Page 3 of 3"_s);
    EXPECT_FALSE(isEnabled(u"Next"_s) || isEnabled(u"Last"_s));
    key(u"PgDown"_s);
    key(u"PgUp"_s);
    EXPECT_EQ(pageText(), u"Page 2 of 3"_s);
    key(u"Ctrl+Home"_s);
    EXPECT_EQ(pageText(), u"Page 1 of 3"_s);
}

TEST_F(Preview, ButtonsTurnThePages) {
    open();
    press(u"Next"_s);
    EXPECT_EQ(pageText(), u"Page 2 of 3"_s);
    press(u"Last"_s);
    EXPECT_EQ(pageText(), u"Page 3 of 3"_s);
    press(u"Previous"_s);
    press(u"First"_s);
    EXPECT_EQ(pageText(), u"Page 1 of 3"_s);
}

TEST_F(Preview, ZoomsAndFits) {
    open();
    EXPECT_TRUE(named<QAction>(u"FitPage"_s).isChecked());
    const auto whole = pages().zoomFactor();
    key(u"Ctrl++"_s);
    EXPECT_NEAR(pages().zoomFactor(), whole * 1.25, 0.001);
    EXPECT_FALSE(named<QAction>(u"FitPage"_s).isChecked());
    key(u"Ctrl+-"_s);
    EXPECT_NEAR(pages().zoomFactor(), whole, 0.001);
    press(u"FitWidth"_s);
    EXPECT_TRUE(named<QAction>(u"FitWidth"_s).isChecked());
    EXPECT_GT(pages().zoomFactor(), whole);
    press(u"FitWidth"_s);
    EXPECT_TRUE(named<QAction>(u"FitWidth"_s).isChecked()) << "pressed again it stays";
    press(u"FitPage"_s);
    EXPECT_FALSE(named<QAction>(u"FitWidth"_s).isChecked());
    EXPECT_NEAR(pages().zoomFactor(), whole, 0.001);
}

TEST_F(Preview, PaperIsThatOfTheLayoutUntilAnotherIsChosen) {
    open();
    window->saveAs(folder.path() + u"/a4.pdf"_s);
    EXPECT_EQ(pagesOf(u"a4.pdf"_s), QStringList(3, a4));
    auto& paper = named<QComboBox>(u"Paper"_s);
    EXPECT_EQ(paper.currentText(), u"A4"_s);
    key(u"Ctrl+End"_s);
    paper.setFocus();
    QTest::keyClick(&paper, Qt::Key_Down);
    EXPECT_EQ(paper.currentText(), u"Letter"_s);
    EXPECT_TRUE(pages().isVisible());
    EXPECT_EQ(pages().pageCount(), 3);
    EXPECT_EQ(pageText(), u"Page 1 of 3"_s);
    window->saveAs(folder.path() + u"/letter.pdf"_s);
    EXPECT_EQ(pagesOf(u"letter.pdf"_s), QStringList(3, letter));
}

TEST_F(Preview, SavesAsPdfUnderTheNameThatTheDialogGets) {
    open();
    QString proposed;
    QString place;
    whenOpen<QFileDialog>([&](QFileDialog& dialog) {
        place = dialog.directory().absolutePath();
        auto& name = *dialog.findChild<QLineEdit*>();
        proposed = name.text();
        name.setText(folder.path() + u"/march"_s);
        QTest::keyClick(&name, Qt::Key_Return);
    });
    key(u"Ctrl+S"_s);
    EXPECT_EQ(proposed, u"Calibration Worksheet.pdf"_s);
    EXPECT_NE(place, QDir::currentPath()) << "nobody looks for it in the working folder";
    EXPECT_EQ(pagesOf(u"march.pdf"_s), QStringList(3, a4));
    EXPECT_EQ(status(), u"Saved as "_s + folder.path() + u"/march.pdf"_s);
}

TEST_F(Preview, ASaveThatIsGivenUpInTheDialogWritesNothing) {
    open();
    whenOpen<QFileDialog>([](QFileDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    press(u"Save"_s);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList{u"kvwrksht.rpt"_s});
    EXPECT_EQ(status(), QString());
}

TEST_F(Preview, AFailedSaveShowsTheFileAndTheReason) {
    open();
    const auto path = folder.path() + u"/no such folder/a.pdf"_s;
    ui.expectBox(u"The report could not be saved as a PDF:\r\n\r\n"_s + path +
                     u" can't be written: No such file or directory"_s,
                 u"Save as PDF"_s, box::stop);
    window->saveAs(path);
    EXPECT_TRUE(ui.hasMetAll());
    EXPECT_EQ(status(), QString());
    EXPECT_FALSE(ui.busy);
}

TEST_F(Preview, WithoutAPrinterSaysSo) {
    if (!QPrinterInfo::availablePrinterNames().isEmpty())
        GTEST_SKIP() << "this machine has a printer";
    open();
    ui.expectBox(u"No printer is set up on this computer. The report can be saved as a PDF."_s, sheetTitle,
                 box::information);
    key(u"Ctrl+P"_s);
    EXPECT_TRUE(ui.hasMetAll());
}

TEST_F(Preview, PrintsAllPages) {
    open();
    QPrinter printer;
    const auto path = folder.path() + u"/printed.pdf"_s;
    printer.setOutputFileName(path);
    window->printOn(printer);
    EXPECT_EQ(pagesOf(path).size(), 3);
    EXPECT_EQ(status(), u"Sent to the printer "_s + path);
}

/// An operator for whom the progress window comes up at once.
class ImpatientUser final : public QuietOperator {
  public:
    void setBusyPointer() override { window->findChild<QProgressDialog*>()->setMinimumDuration(0); }
    QPointer<ReportPreview> window;
};

class PreviewOfTwentySheets : public Preview {
  protected:
    PreviewOfTwentySheets() { window = user.window = new ReportPreview(user, report(20), sheetTitle); }
    ~PreviewOfTwentySheets() override { delete window.data(); }
    ImpatientUser user;
};

TEST_F(PreviewOfTwentySheets, AnEndedSaveLeavesNoFile) {
    bool shown = false;
    whenOpen<QProgressDialog>([&](QProgressDialog& dialog) {
        shown = true;
        EXPECT_TRUE(dialog.labelText().endsWith(u" of 20"_s)) << dialog.labelText().toStdString();
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    const auto path = folder.path() + u"/long.pdf"_s;
    window->saveAs(path);
    EXPECT_TRUE(shown);
    EXPECT_FALSE(QFile::exists(path));
    EXPECT_EQ(status(), u"Saving was stopped; no file was written."_s);
}

TEST_F(PreviewOfTwentySheets, AnEndedPrintSaysThatSheetsAreOnTheirWay) {
    whenOpen<QProgressDialog>([](QProgressDialog& dialog) { dialog.cancel(); });
    QPrinter printer;
    const auto path = folder.path() + u"/long.pdf"_s;
    printer.setOutputFileName(path);
    window->printOn(printer);
    EXPECT_LT(pagesOf(path).size(), 20);
    EXPECT_EQ(status(), u"Printing was stopped; the sheets up to there go to the printer."_s);
}

TEST_F(PreviewOfTwentySheets, AChangeOfPaperCannotBeEndedSoThatNoSheetIsMissing) {
    bool shown = false;
    whenOpen<QProgressDialog>([&](QProgressDialog& dialog) {
        shown = true;
        QTest::keyClick(&dialog, Qt::Key_Escape);
        dialog.close();
        EXPECT_TRUE(dialog.isVisible());
    });
    named<QComboBox>(u"Paper"_s).setCurrentText(u"Letter"_s);
    EXPECT_TRUE(shown);
    EXPECT_EQ(pages().pageCount(), 20);
}

TEST_F(Preview, ALayoutThatLeavesNoRoomIsThrownAndNothingIsShown) {
    auto layout = readLayout(u"kvwrksht.rpt"_s);
    layout.margins = {10, 140, 10, 140};
    ReportData data;
    data.add({});
    ReportPreview preview(ui, Report(layout, data), sheetTitle);
    EXPECT_THROW(preview.open(), ReportError);
    EXPECT_FALSE(preview.isVisible());
}

TEST_F(Preview, OpeningTellsOfEachSheet) {
    QList<qsizetype> sheets;
    window = new ReportPreview(ui, report(3), sheetTitle);
    window->open([&](qsizetype sheet) {
        sheets << sheet;
        return true;
    });
    EXPECT_EQ(sheets, (QList<qsizetype>{0, 1, 2}));
}

TEST_F(Preview, EscapeClosesAndDeletesIt) {
    open();
    key(u"Esc"_s);
    EXPECT_TRUE(QTest::qWaitFor([this] { return window.isNull(); }));
}

TEST_F(Preview, TheButtonClosesIt) {
    open();
    press(u"Close"_s);
    EXPECT_TRUE(QTest::qWaitFor([this] { return window.isNull(); }));
}

TEST_F(Preview, ClosingItEndsTheWaitForItsTitle) {
    QtUserInterface user;
    open(1, &user);
    QTimer::singleShot(0, window, [this] { key(u"Esc"_s); });
    user.waitForWindow(sheetTitle);
    EXPECT_TRUE(QTest::qWaitFor([this] { return window.isNull(); }));
}

TEST_F(Preview, ASecondWindowOfTheTitleProlongsTheWait) {
    QtUserInterface user;
    open(1, &user);
    QWidget second;
    second.setWindowTitle(sheetTitle);
    second.show();
    bool closedFirst = false;
    QTimer::singleShot(0, window, [&] {
        window->close();
        QTimer::singleShot(0, &second, [&] {
            closedFirst = window.isNull() || !window->isVisible();
            second.close();
        });
    });
    user.waitForWindow(sheetTitle);
    EXPECT_TRUE(closedFirst);
    EXPECT_FALSE(second.isVisible());
}

TEST_F(Preview, ABoxStandsOverThePreviewThatAskedForIt) {
    QtUserInterface user;
    open(1, &user);
    QWidget* under = nullptr;
    whenOpen<QMessageBox>([&](QMessageBox& box) {
        under = box.parentWidget();
        QTest::keyClick(&box, Qt::Key_Return);
    });
    window->saveAs(folder.path() + u"/no such folder/a.pdf"_s);
    EXPECT_EQ(under, window.data());
}

TEST_F(Preview, WindowsOfOtherTitlesAreNotWaitedFor) {
    QtUserInterface user;
    QWidget other;
    other.setWindowTitle(u"Calibration Worksheets"_s);
    other.show();
    user.waitForWindow(sheetTitle);
    EXPECT_TRUE(other.isVisible());
}

TEST_F(Preview, EachButtonIsReachedByTabAndHasNameKeyAndToolTip) {
    open();
    const auto buttons =
        window->findChild<QToolBar*>()->findChildren<QToolButton*>(QRegularExpression(u"Button$"_s));
    EXPECT_EQ(buttons.size(), 11);
    for (const auto* button : buttons) {
        const auto name = button->objectName().toStdString();
        EXPECT_EQ(button->accessibleName(), button->defaultAction()->text()) << name;
        const auto keys = button->defaultAction()->shortcut().toString(QKeySequence::NativeText);
        EXPECT_FALSE(keys.isEmpty()) << name;
        EXPECT_EQ(button->toolTip(), button->defaultAction()->text() + u" ("_s + keys + u')') << name;
        EXPECT_TRUE(button->focusPolicy() & Qt::TabFocus) << name;
        EXPECT_TRUE(button->isVisible()) << name;
    }
    EXPECT_EQ(named<QComboBox>(u"Paper"_s).accessibleName(), u"Paper"_s);
    EXPECT_EQ(pages().accessibleName(), u"Pages of the report"_s);
    EXPECT_TRUE(pages().isAncestorOf(QApplication::focusWidget()));
}

TEST_F(Preview, FitsOnTheScreen) {
    open();
    const auto space = window->screen()->availableGeometry();
    EXPECT_TRUE(space.contains(window->frameGeometry()));
    EXPECT_GE(window->height(), space.height() * 3 / 4);
}

TEST_F(Preview, PaperIsWhiteInADarkPalette) {
    const auto before = QApplication::palette();
    const auto undo = qScopeGuard([&] { QApplication::setPalette(before); });
    QApplication::setPalette(QPalette(QColor(45, 45, 48), QColor(40, 40, 42)));
    open();
    QCoreApplication::processEvents();
    const auto picture = pages().grab().toImage();
    EXPECT_EQ(picture.pixelColor(picture.rect().center()), QColor(Qt::white));
    EXPECT_LT(picture.pixelColor(2, 2).lightness(), 128) << "around the paper it is dark";
}

} // namespace kelvane::testing
