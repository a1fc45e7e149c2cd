#include "records/form_standard_use.h"

#include "records/since_field.h"
#include "reports/report_preview.h"
#include "resources/strings.h"
#include "resources/text_id.h"
#include "testkit/screen_operator.h"
#include "tests/records/looks.h"
#include "tests/records/reading_session.h"

#include <QClipboard>
#include <QCompleter>
#include <QDateEdit>
#include <QFileDialog>
#include <QHeaderView>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class StandardUseScreen : public ReadingSession {
  protected:
    /// The standard DMM-01 is named by the calibrations of two instruments.
    StandardUseScreen() {
        use(u"DMM-01"_s, u"PT-101"_s);
        use(u"DMM-01"_s, u"PT-102"_s);
    }

    void use(const QString& standard, const QString& asset) {
        write(
            u"insert into mt.standards (c2430,mtag,ctag) select (select mtag from mt.inventory where i4201 "
            "= '%1'),mtag,ctag from mt.calibration where mtag = (select mtag from mt.inventory where i4201 = "
            "'%2')"_s.arg(standard, asset));
    }
    void open() {
        form = std::make_unique<FormStandardUse>(session, QStringList{folder.path()});
        form->resize(900, 500);
        form->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(form.get()));
    }
    void ask(const QString& standard, const QDate& day = {1990, 1, 1}) {
        this->since().setDate(day);
        auto& field = control<QLineEdit>(*form, u"TextStandard"_s);
        field.setFocus();
        field.selectAll();
        QTest::keyClicks(&field, standard);
        field.completer()->popup()->hide();
        QTest::keyClick(&field, Qt::Key_Return);
    }
    QDateEdit& since() { return control<QDateEdit>(*form, u"DateSince"_s); }
    QTableView& table() { return control<QTableView>(*form, u"TableUses"_s); }
    QPushButton& command(const QString& name) { return control<QPushButton>(*form, u"Command"_s + name); }
    QString state() { return control<QLabel>(*form, u"LabelUses"_s).text(); }
    void select(int row) {
        QTest::mouseClick(table().viewport(), Qt::LeftButton, {},
                          table().visualRect(table().model()->index(row, 0)).center());
    }
    QString cell(int row, int column) { return table().model()->index(row, column).data().toString(); }
    QStringList column(int number) {
        QStringList cells;
        for (int row = 0; row < table().model()->rowCount(); ++row)
            cells << cell(row, number);
        return cells;
    }
    QStringList ctags() {
        auto found = column(6);
        found.sort();
        return found;
    }
    QStringList expectedCtags(const QString& standard, const QDate& since) {
        return values(
            u"select c.ctag from mt.calibration c where (c2301 >= '%1' or c2301 is null) and exists "
            "(select 1 from mt.standards s join mt.inventory i on i.mtag = s.c2430 where s.ctag = "
            "c.ctag and s.mtag = c.mtag and i.i4201 = '%2')"_s.arg(since.toString(Qt::ISODate), standard));
    }
    static QList<ReportPreview*> previews() {
        QList<ReportPreview*> open;
        const auto windows = QApplication::topLevelWidgets();
        for (auto* window : windows) {
            if (auto* preview = qobject_cast<ReportPreview*>(window))
                open << preview;
        }
        return open;
    }

    std::unique_ptr<FormStandardUse> form;
};

TEST_F(StandardUseScreen, ShowsWhatAStandardWasUsedForSinceADay) {
    open();
    EXPECT_EQ(since().date(), clock.now().date().addYears(-1));
    EXPECT_FALSE(command(u"Save"_s).isEnabled() || command(u"Print"_s).isEnabled());
    ask(u"dmm-01"_s);
    const auto all = expectedCtags(u"DMM-01"_s, {1990, 1, 1});
    ASSERT_GT(all.size(), 1);
    EXPECT_EQ(ctags(), all);
    EXPECT_TRUE(column(0).contains(u"PT-101"_s));
    const auto instruments = value(
        u"select count(distinct s.mtag) from mt.standards s join mt.inventory i on i.mtag = s.c2430 where "
        "i.i4201 = 'DMM-01'"_s);
    EXPECT_EQ(
        state(),
        text(TextId::usesFound).arg(u"DMM-01"_s, u"1990-01-01"_s, QString::number(all.size()), instruments));
    EXPECT_TRUE(command(u"Save"_s).isEnabled() && command(u"Print"_s).isEnabled());

    const auto newest = QDate::fromString(cell(0, 2), Qt::ISODate);
    ask(u"DMM-01"_s, newest);
    EXPECT_EQ(ctags(), expectedCtags(u"DMM-01"_s, newest));
    ask(u"DMM-01"_s, QDate(9999, 12, 31));
    EXPECT_EQ(state(), text(TextId::usesNone).arg(u"DMM-01"_s, u"9999-12-31"_s));
    EXPECT_EQ(ctags(), QStringList());
}

TEST_F(StandardUseScreen, TellsAnUnknownStandardAndNeverShowsThoseOfAnother) {
    open();
    ask(u"DMM-01"_s);
    for (const auto& wrong : {u"NO-SUCH"_s, u"O'RING"_s, u"' or '1' = '1"_s, u"%"_s, QString(100, u'9')}) {
        ask(wrong);
        EXPECT_EQ(state(), text(TextId::usesUnknown).arg(wrong));
        EXPECT_EQ(ctags(), QStringList()) << wrong.toStdString();
        EXPECT_FALSE(command(u"Save"_s).isEnabled() || command(u"Print"_s).isEnabled());
    }
    ask(QString(200, u'9'));
    EXPECT_EQ(control<QLineEdit>(*form, u"TextStandard"_s).text().size(), 100);
}

TEST_F(StandardUseScreen, TakesNoDayThatIsNone) {
    open();
    ask(u"DMM-01"_s, QDate(2020, 1, 1));
    since().setFocus();
    since().setSelectedSection(QDateTimeEdit::YearSection);
    QTest::keyClicks(&since(), u"1991"_s);
    QTest::keyClick(&since(), Qt::Key_Return);
    EXPECT_EQ(since().date(), QDate(1991, 1, 1));
    EXPECT_EQ(ctags(), expectedCtags(u"DMM-01"_s, {1991, 1, 1})) << "Return in the day asks, too";
    since().setSelectedSection(QDateTimeEdit::MonthSection);
    QTest::keyClicks(&since(), u"19x;'"_s);
    QTest::keyClick(&since(), Qt::Key_Return);
    EXPECT_TRUE(since().date().isValid());
    EXPECT_EQ(ctags(), expectedCtags(u"DMM-01"_s, since().date()));
}

TEST_F(StandardUseScreen, TakesATypedDayByReturnAndByShow) {
    open();
    ask(u"DMM-01"_s);
    QTest::keyClick(&control<QLineEdit>(*form, u"TextStandard"_s), Qt::Key_Tab);
    ASSERT_TRUE(since().hasFocus());
    QTest::keyClicks(&since(), u"2018-06-15"_s);
    QTest::keyClick(&since(), Qt::Key_Return);
    EXPECT_EQ(since().text(), u"2018-06-15"_s);
    EXPECT_EQ(ctags(), expectedCtags(u"DMM-01"_s, {2018, 6, 15}));
    EXPECT_TRUE(state().contains(u"DMM-01 since 2018-06-15"_s)) << state().toStdString();

    QTest::keyClick(&since(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&since(), u"2020-01-02"_s);
    EXPECT_TRUE(state().contains(u"DMM-01 since 2018-06-15"_s)) << "until it is asked for";
    click(command(u"Show"_s));
    EXPECT_EQ(since().date(), QDate(2020, 1, 2));
    EXPECT_TRUE(state().contains(u"DMM-01 since 2020-01-02"_s)) << state().toStdString();
}

TEST_F(StandardUseScreen, FindsNumbersThatAreFilledUpWithBlanks) {
    write(u"update mt.inventory set i4201 = 'DMM-01   ' where i4201 = 'DMM-01'"_s);
    write(u"update mt.inventory set i4201 = 'PT-101   ' where i4201 = 'PT-101'"_s);
    open();
    auto& offered = *control<QLineEdit>(*form, u"TextStandard"_s).completer()->model();
    EXPECT_EQ(offered.match(offered.index(0, 0), Qt::DisplayRole, u"DMM-01"_s, 1, Qt::MatchExactly).size(),
              1);
    ask(u"DMM-01"_s);
    EXPECT_EQ(ctags(), expectedCtags(u"DMM-01   "_s, {1990, 1, 1}));
    const auto row = static_cast<int>(column(0).indexOf(u"PT-101"_s));
    ASSERT_GE(row, 0);
    const QSignalSpy wanted(form.get(), &FormStandardUse::historyWanted);
    select(row);
    QTest::keyClick(&table(), Qt::Key_Return);
    ASSERT_EQ(wanted.size(), 1);
    EXPECT_EQ(wanted[0][0].toString(), u"PT-101   "_s);
    form->showUses(u"DMM-01   "_s);
    EXPECT_EQ(ctags(), expectedCtags(u"DMM-01   "_s, {1990, 1, 1}));
}

TEST_F(StandardUseScreen, WithoutAStandardAsksNothing) {
    open();
    ask(u"   "_s);
    EXPECT_FALSE(control<QLabel>(*form, u"LabelUses"_s).isVisible());
    ask(u"  DMM-01 "_s);
    EXPECT_GT(ctags().size(), 0) << "blanks around it don't count";
}

TEST_F(StandardUseScreen, TellsRecordsWithoutADateAndHasThemLast) {
    write(
        u"insert into mt.calibration (mtag,cdsrc) select mtag,'OLD' from mt.inventory where i4201 = 'PT-102'"_s);
    write(u"insert into mt.standards (c2430,mtag,ctag) select (select mtag from mt.inventory where i4201 = "
          "'DMM-01'),mtag,ctag from mt.calibration where cdsrc = 'OLD'"_s);
    open();
    ask(u"DMM-01"_s);
    EXPECT_TRUE(state().endsWith(text(TextId::usesUndated).arg(1))) << state().toStdString();
    EXPECT_TRUE(control<QLabel>(*form, u"LabelUses"_s).font().bold());
    EXPECT_EQ(column(2).last(), QString());
    auto& header = *table().horizontalHeader();
    QTest::mouseClick(header.viewport(), Qt::LeftButton, {},
                      QPoint(header.sectionViewportPosition(2) + 20, header.height() / 2));
    EXPECT_EQ(header.sortIndicatorOrder(), Qt::AscendingOrder);
    EXPECT_EQ(column(2).last(), QString());
    auto dates = column(2);
    dates.removeLast();
    EXPECT_TRUE(std::ranges::is_sorted(dates));
}

TEST_F(StandardUseScreen, OffersTheStandardsWhileOneIsTyped) {
    open();
    auto& field = control<QLineEdit>(*form, u"TextStandard"_s);
    field.setFocus();
    QTest::keyClicks(&field, u"mm-0"_s);
    EXPECT_EQ(field.completer()->currentCompletion(), u"DMM-01"_s);
}

TEST_F(StandardUseScreen, OpensTheHistoryByReturnAndByADoubleClick) {
    open();
    QSignalSpy wanted(form.get(), &FormStandardUse::historyWanted);
    ask(u"DMM-01"_s);
    EXPECT_FALSE(command(u"History"_s).isEnabled());
    select(0);
    QTest::keyClick(&table(), Qt::Key_Return);
    select(1);
    QTest::mouseDClick(table().viewport(), Qt::LeftButton, {},
                       table().visualRect(table().model()->index(1, 0)).center());
    click(command(u"History"_s));
    ASSERT_EQ(wanted.size(), 3);
    EXPECT_EQ(wanted[0][0].toString(), cell(0, 0));
    EXPECT_EQ(wanted[1][0].toString(), cell(1, 0));
}

TEST_F(StandardUseScreen, OpensTheHistoryOfTheCurrentRowWhenNoneIsSelected) {
    open();
    QSignalSpy wanted(form.get(), &FormStandardUse::historyWanted);
    ask(u"DMM-01"_s);
    command(u"Show"_s).setFocus();
    QTest::keyClick(&command(u"Show"_s), Qt::Key_Tab);
    ASSERT_TRUE(table().hasFocus());
    EXPECT_FALSE(table().selectionModel()->hasSelection());
    QTest::keyClick(&table(), Qt::Key_Return);
    ASSERT_EQ(wanted.size(), 1);
    EXPECT_EQ(wanted[0][0].toString(), cell(0, 0));
    table().selectAll();
    QTest::keyClick(&table(), Qt::Key_Return);
    EXPECT_EQ(wanted.size(), 1) << "no one of several";
}

TEST_F(StandardUseScreen, CopiesAndSavesTheListAsItIsShown) {
    open();
    ask(u"DMM-01"_s);
    select(0);
    QTest::keyClick(&table(), Qt::Key_C, Qt::ControlModifier);
    const auto copied = QApplication::clipboard()->text().split(u"\r\n"_s);
    EXPECT_EQ(copied.value(0), u"Asset\tDescription\tDate\tTime\tState\tResult\tRecord"_s);
    EXPECT_TRUE(copied.value(1).startsWith(cell(0, 0) + u'\t'));
    const auto path = folder.path() + u"/uses.csv"_s;
    QTimer::singleShot(0, form.get(), [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        EXPECT_TRUE(dialog->selectedFiles().value(0).endsWith(u"/Where Used DMM-01.csv"_s));
        auto& name = *dialog->findChild<QLineEdit*>();
        name.setText(path);
        QTest::keyClick(&name, Qt::Key_Return);
    });
    click(command(u"Save"_s));
    EXPECT_EQ(control<QLabel>(*form, u"LabelOutcome"_s).text(), u"Saved: "_s + path);
    const auto lines = folder.read(u"uses.csv"_s).split(u"\r\n"_s);
    EXPECT_EQ(lines.value(0), u"Asset,Description,Date,Time,State,Result,Record"_s);
    ASSERT_EQ(lines.size(), table().model()->rowCount() + 2);
    for (int row = 0; row < table().model()->rowCount(); ++row)
        EXPECT_TRUE(lines[row + 1].endsWith(u',' + cell(row, 6))) << lines[row + 1].toStdString();
}

TEST_F(StandardUseScreen, PrintsTheListFromAPreviewThatLogOutCloses) {
    open();
    ask(u"DMM-01"_s);
    click(command(u"Print"_s));
    ASSERT_EQ(previews().size(), 1);
    const QPointer preview = previews().first();
    EXPECT_EQ(preview->windowTitle(), text(TextId::usesReportTitle).arg(u"DMM-01"_s, u"1990-01-01"_s));
    EXPECT_TRUE(preview->isVisible());
    form->forget();
    EXPECT_FALSE(preview);
    EXPECT_EQ(ctags(), QStringList());
    EXPECT_FALSE(command(u"Print"_s).isEnabled());
}

TEST_F(StandardUseScreen, TellsWhyTheListCanNotBePrinted) {
    folder.write(u"kvuses.rpt"_s, "{}\n");
    open();
    ask(u"DMM-01"_s);
    folder.write(u"kvuses.rpt"_s, "{\"width\": 3000}\n");
    QString told;
    ui.onBox = [&] { told = u"box"_s; };
    ui.expectBox(u"kvuses.rpt, line 1: \"width\" must be from 10 to 1000."_s, text(TextId::usesTab),
                 box::warning);
    click(command(u"Print"_s));
    EXPECT_EQ(told, u"box"_s);
    EXPECT_EQ(previews().size(), 0);
}

TEST_F(StandardUseScreen, OfADatabaseThatFailsShowsNothingAndSaysSo) {
    open();
    ask(u"DMM-01"_s);
    closeConnection(session);
    constexpr int closed = static_cast<int>(ErrorNumber::connectionClosed);
    ui.expectReport(closed, u"History,standardOf"_s);
    click(command(u"Show"_s));
    EXPECT_EQ(state(), text(TextId::historyNotRead));
    EXPECT_EQ(ctags(), QStringList());
    EXPECT_FALSE(command(u"Save"_s).isEnabled());
    ui.expectReport(closed, u"History,usedStandards"_s);
    form->readAgain();
    EXPECT_EQ(state(), text(TextId::historyNotRead));
}

TEST_F(StandardUseScreen, TellsALostConnectionOnceWhenItReadsAgain) {
    open();
    ask(u"DMM-01"_s);
    const auto before = ctags();
    closeConnection(session);
    ui.expectReport(static_cast<int>(ErrorNumber::connectionClosed), u"History,usedStandards"_s);
    QTest::keyClick(&table(), Qt::Key_F5);
    EXPECT_EQ(ctags(), before);
}

TEST_F(StandardUseScreen, ReadsAgainWhatItShows) {
    open();
    ask(u"DMM-01"_s);
    const auto before = ctags().size();
    use(u"DMM-01"_s, u"PT-103"_s);
    QTest::keyClick(&table(), Qt::Key_F5);
    EXPECT_GT(ctags().size(), before);
    EXPECT_EQ(ctags(), expectedCtags(u"DMM-01"_s, {1990, 1, 1}));
}

TEST_F(StandardUseScreen, ShowsWhatAnotherTabAsksFor) {
    open();
    since().setDate({1990, 1, 1});
    form->showUses(u"DMM-01"_s);
    EXPECT_EQ(control<QLineEdit>(*form, u"TextStandard"_s).text(), u"DMM-01"_s);
    EXPECT_EQ(ctags(), expectedCtags(u"DMM-01"_s, {1990, 1, 1}));
    form->showUses(u"DMM-01"_s, {1995, 5, 5});
    EXPECT_EQ(since().date(), QDate(1990, 1, 1)) << "that day is among them already";
    form->showUses(u"DMM-01"_s, {1985, 5, 5});
    EXPECT_EQ(since().date(), QDate(1985, 5, 5));
    EXPECT_EQ(ctags(), expectedCtags(u"DMM-01"_s, {1985, 5, 5}));
}

TEST_F(StandardUseScreen, AfterLogOutBeginsWithTheUsualDay) {
    open();
    ask(u"DMM-01"_s);
    form->forget();
    EXPECT_EQ(since().date(), usualSince(session));
}

TEST_F(StandardUseScreen, LooksWholeInEachSizeAndLanguage) {
    setCurrent(u"PT-101"_s, u"c2323 = 'N'"_s);
    expectNothingCutOff(u"records-uses"_s, [&] {
        auto made = std::make_unique<FormStandardUse>(session, QStringList());
        control<QDateEdit>(*made, u"DateSince"_s).setDate({1990, 1, 1});
        made->showUses(u"DMM-01"_s);
        return made;
    });
}

} // namespace kelvane::testing
