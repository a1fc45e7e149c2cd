#include "resources/strings.h"
#include "testkit/program_screen.h"
#include "ui/open_windows.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString torqueStar = u"Crane TorqueStar IVc"_s;

} // namespace

class FormCalConfigTest : public ProgramScreen {
  protected:
    FormCalConfigTest() : ProgramScreen(u"FormCalConfig"_s, u"mnuConfiguration"_s) { startLoggedIn(4); }
    void open() {
        ProgramScreen::open();
        settings.writes.clear();
    }
    QComboBox& list(const QString& name) { return controlNamed<QComboBox>(u"Combo"_s + name); }
    /// Chooses a row as a user does, with the keyboard.
    void pick(const QString& name, const QString& row) {
        auto& box = list(name);
        const int wanted = box.findText(row);
        ASSERT_GE(wanted, 0) << row.toStdString();
        QTest::keyClick(&box, Qt::Key_Home);
        for (int i = 0; i < wanted; ++i)
            QTest::keyClick(&box, Qt::Key_Down);
        EXPECT_EQ(box.currentText(), row);
    }
    QStringList displayText() {
        QStringList texts;
        for (const auto& name : {u"BaudRate"_s, u"Parity"_s, u"StopBits"_s, u"DataBits"_s, u"Port"_s})
            texts << list(name).currentText();
        return texts;
    }
    void store(const QString& calibrator, const QString& key, const QString& value) {
        settings.values.insert(calibrator + u'/' + key, value);
    }
};

TEST_F(FormCalConfigTest, HasItsPlaceTextsAndLists) {
    open();
    auto& window = form();
    EXPECT_EQ(window.pos(), QPoint(7, 5));
    EXPECT_EQ(window.windowTitle(), u"Calibrator Configuration"_s);
    const struct {
        QString name;
        QString label;
        QString caption;
        QString toolTip;
        QStringList rows;
    } lists[] = {
        {u"Calibrator"_s,
         u"Label1"_s,
         u"Select Calibrator to Configure"_s,
         u"Select a calibrator"_s,
         {u"Fluke 743/744"_s, u"Fluke 702"_s, torqueStar}},
        {u"Port"_s,
         u"Label6"_s,
         u"Port"_s,
         u"Local communications port connected to the calibrator"_s,
         {u"COM1"_s, u"COM2"_s, u"COM3"_s, u"COM4"_s}},
        {u"BaudRate"_s,
         u"Label2"_s,
         u"Baud Rate"_s,
         u"Baud rate used in communications"_s,
         {u"300"_s, u"600"_s, u"1200"_s, u"2400"_s, u"4800"_s, u"9600"_s, u"19200"_s}},
        {u"Parity"_s,
         u"Label5"_s,
         u"Parity"_s,
         u"Parity used in communications"_s,
         {u"Even"_s, u"Odd"_s, u"None"_s}},
        {u"DataBits"_s,
         u"Label3"_s,
         u"Data Bits"_s,
         u"Number of data bits used in communications"_s,
         {u"8"_s, u"7"_s}},
        {u"StopBits"_s,
         u"Label4"_s,
         u"Stop Bits"_s,
         u"Number of stop bits used in communications"_s,
         {u"1"_s, u"2"_s}},
    };
    for (const auto& expected : lists) {
        SCOPED_TRACE(expected.name.toStdString());
        EXPECT_EQ(control<QLabel>(window, expected.label).text(), expected.caption);
        EXPECT_EQ(list(expected.name).toolTip(), expected.toolTip);
        EXPECT_EQ(choicesOf(list(expected.name)), expected.rows);
    }
    EXPECT_EQ(control<QGroupBox>(window, u"Frame1"_s).title(), u"Communication"_s);
    EXPECT_EQ(control<QGroupBox>(window, u"Frame2"_s).title(), u"Configuration"_s);
}

TEST_F(FormCalConfigTest, AnEmptyStoreGivesTheStartValuesAndNothingIsStored) {
    open();
    EXPECT_EQ(list(u"Calibrator"_s).currentText(), u"Fluke 743/744"_s);
    EXPECT_EQ(displayText(), (QStringList{u"9600"_s, u"None"_s, u"1"_s, u"8"_s, u"COM1"_s}));
    EXPECT_TRUE(settings.writes.isEmpty());
}

TEST_F(FormCalConfigTest, StoredValuesAreShownAndThoseThatAreNoRowLeaveTheSelection) {
    store(u"Fluke 743/744"_s, u"BaudRate"_s, u"1200"_s);
    store(u"Fluke 743/744"_s, u"Parity"_s, u"even"_s);
    store(u"Fluke 743/744"_s, u"StopBits"_s, u"1.5"_s);
    store(u"Fluke 743/744"_s, u"DataBits"_s, u"7"_s);
    store(u"Fluke 743/744"_s, u"Port"_s, u"COM9"_s);
    open();
    EXPECT_EQ(displayText(), (QStringList{u"1200"_s, u"None"_s, u"1"_s, u"7"_s, u"COM1"_s}));
    EXPECT_TRUE(settings.writes.isEmpty());
}

TEST_F(FormCalConfigTest, OnlyTheTorqueStarSetsParityStopAndDataBits) {
    store(u"Fluke 702"_s, u"Parity"_s, u"Odd"_s);
    open();
    for (const auto& [calibrator, enabled] :
         {std::pair{u"Fluke 702"_s, false}, {torqueStar, true}, {u"Fluke 743/744"_s, false}}) {
        pick(u"Calibrator"_s, calibrator);
        for (const auto& name : {u"Parity"_s, u"StopBits"_s, u"DataBits"_s})
            EXPECT_EQ(list(name).isEnabled(), enabled) << calibrator.toStdString();
        EXPECT_TRUE(list(u"BaudRate"_s).isEnabled());
        EXPECT_TRUE(list(u"Port"_s).isEnabled());
        if (calibrator == u"Fluke 702"_s) {
            // Greyed, but still its own.
            EXPECT_EQ(list(u"Parity"_s).currentText(), u"Odd"_s);
        }
    }
}

TEST_F(FormCalConfigTest, ChangingTheCalibratorShowsItsValuesAndStoresNothing) {
    store(u"Fluke 743/744"_s, u"BaudRate"_s, u"300"_s);
    store(torqueStar, u"BaudRate"_s, u"19200"_s);
    store(torqueStar, u"Port"_s, u"COM3"_s);
    open();
    EXPECT_EQ(list(u"BaudRate"_s).currentText(), u"300"_s);
    pick(u"Calibrator"_s, torqueStar);
    EXPECT_EQ(list(u"BaudRate"_s).currentText(), u"19200"_s);
    EXPECT_EQ(list(u"Port"_s).currentText(), u"COM3"_s);
    EXPECT_TRUE(settings.writes.isEmpty());
}

TEST_F(FormCalConfigTest, ACalibratorWithNothingStoredShowsWhatTheLastOneLeft) {
    store(u"Fluke 743/744"_s, u"BaudRate"_s, u"300"_s);
    open();
    pick(u"Calibrator"_s, torqueStar);
    EXPECT_EQ(list(u"BaudRate"_s).currentText(), u"300"_s);
}

TEST_F(FormCalConfigTest, AChangeStoresAllFiveValuesAtOnceInTheirOrder) {
    open();
    pick(u"Calibrator"_s, torqueStar);
    auto& bits = list(u"StopBits"_s);
    QTest::keyClick(&bits, Qt::Key_Down);
    EXPECT_EQ(settings.writes, (QStringList{torqueStar + u"/BaudRate=9600"_s, torqueStar + u"/Parity=None"_s,
                                            torqueStar + u"/StopBits=2"_s, torqueStar + u"/DataBits=8"_s,
                                            torqueStar + u"/Port=COM1"_s}));
}

TEST_F(FormCalConfigTest, EachListStoresItsKeyForTheCalibratorShown) {
    open();
    pick(u"Calibrator"_s, torqueStar);
    const struct {
        QString name;
        QString value;
    } rows[] = {{u"BaudRate"_s, u"19200"_s},
                {u"Parity"_s, u"Odd"_s},
                {u"StopBits"_s, u"2"_s},
                {u"DataBits"_s, u"7"_s},
                {u"Port"_s, u"COM4"_s}};
    for (const auto& row : rows) {
        pick(row.name, row.value);
        EXPECT_EQ(settings.values.value(torqueStar + u'/' + row.name), row.value);
    }
    EXPECT_FALSE(settings.values.contains(u"Fluke 702/BaudRate"_s));
}

TEST_F(FormCalConfigTest, ClosingStoresOnlyThePosition) {
    open();
    form().close();
    EXPECT_EQ(settings.writes, (QStringList{u"Left/FormCalConfig=105"_s, u"Top/FormCalConfig=75"_s}));
    EXPECT_FALSE(isWindowOpen(session, u"FormCalConfig"));
}

/// A translation of what the screen shows.
class TranslatedCalConfig : public FormCalConfigTest {
  protected:
    TranslatedCalConfig() {
        translate("327\tGerade\n328\tUngerade\n329\tKeine\n350\tDas 702\n351\tDer Drehmomentprüfer\n"
                  "567\tDas 74x\n");
    }
    ~TranslatedCalConfig() override {
        translate("327\tEven\n328\tOdd\n329\tNone\n350\tFluke 702\n351\tCrane TorqueStar IVc\n"
                  "567\tFluke 743/744\n");
    }
    void translate(const QByteArray& texts) {
        folder.write(u"texts.txt"_s, texts);
        EXPECT_TRUE(overlayStrings(folder.path() + u"/texts.txt"_s));
    }
};

TEST_F(TranslatedCalConfig, StoresAndReadsTheWordsOfTheProgramUnderTranslatedCaptions) {
    store(torqueStar, u"Parity"_s, u"Even"_s);
    open();
    EXPECT_EQ(choicesOf(list(u"Calibrator"_s)),
              (QStringList{u"Das 74x"_s, u"Das 702"_s, u"Der Drehmomentprüfer"_s}));
    EXPECT_EQ(list(u"Parity"_s).currentText(), u"Keine"_s);
    pick(u"Calibrator"_s, u"Der Drehmomentprüfer"_s);
    EXPECT_EQ(list(u"Parity"_s).currentText(), u"Gerade"_s);
    EXPECT_TRUE(list(u"Parity"_s).isEnabled());
    pick(u"Parity"_s, u"Ungerade"_s);
    EXPECT_EQ(settings.values.value(torqueStar + u"/Parity"_s), u"Odd"_s);
    pick(u"Calibrator"_s, u"Das 702"_s);
    EXPECT_FALSE(list(u"Parity"_s).isEnabled());
    pick(u"BaudRate"_s, u"19200"_s);
    EXPECT_EQ(settings.values.value(u"Fluke 702/BaudRate"_s), u"19200"_s);
}

} // namespace kelvane::testing
