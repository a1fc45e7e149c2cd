#include "resources/strings.h"
#include "tests/resources/given_texts.h"
#include "tests/support/fixtures.h"

#include <QFile>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

const auto compiledIn = u":/strings.txt"_s;
/// From here on the texts are the program's own.
constexpr int firstOwn = 1062;

QStringList tableLines() {
    QFile file(compiledIn);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    auto lines = QString::fromUtf8(file.readAll()).split(u'\n');
    EXPECT_EQ(lines.takeLast(), u""_s) << "the last line has its end";
    return lines;
}

/// The entries of the table as they stand in the file.
QList<testing::GivenText> tableEntries() {
    QList<testing::GivenText> entries;
    for (const auto& line : tableLines()) {
        if (!line.startsWith(u'#'))
            entries << testing::GivenText{line.section(u'\t', 0, 0).toInt(), line.section(u'\t', 1)};
    }
    return entries;
}

/// Lays a translation over the table and takes it off again at the end.
class Translation : public ::testing::Test {
  protected:
    ~Translation() override { overlayStrings(compiledIn); }
    bool overlay(const QByteArray& content) {
        folder.write(u"german.txt"_s, content);
        return overlayStrings(folder.path() + u"/german.txt"_s);
    }
    testing::OwnFolder folder;
};

} // namespace

TEST(Strings, AreToTheLetter) {
    for (const auto& given : testing::givenTexts())
        EXPECT_EQ(text(given.id), given.text) << given.id;
}

TEST(Strings, AreNoMoreThanTheGivenOnesAndTheProgramsOwn) {
    QSet<int> given;
    for (const auto& one : testing::givenTexts())
        given << one.id;
    EXPECT_EQ(given.size(), testing::givenTexts().size());
    for (const auto& entry : tableEntries())
        EXPECT_TRUE(given.contains(entry.id) || entry.id >= firstOwn) << entry.id;
}

TEST(Strings, HaveOneEntryEachInAscendingOrder) {
    int before = 100;
    for (const auto& entry : tableEntries()) {
        EXPECT_GT(entry.id, before);
        before = entry.id;
    }
}

TEST(Strings, StandInLinesOfNumberTabAndText) {
    static const QRegularExpression entry(u"^[1-9][0-9]*\t[^\t\r]+$"_s);
    static const QRegularExpression strayEscape(u"\\\\(?![n\\\\])"_s);
    for (const auto& line : tableLines()) {
        EXPECT_TRUE(line.startsWith(u'#') || entry.match(line).hasMatch()) << line.toStdString();
        if (!line.startsWith(u'#')) {
            EXPECT_FALSE(strayEscape.match(line).hasMatch()) << line.toStdString();
        }
    }
}

TEST(Strings, OfAnUnknownIdShowItsNumber) {
    EXPECT_EQ(text(99999), u"#99999"_s);
    EXPECT_EQ(text(0), u"#0"_s);
    EXPECT_EQ(text(-1), u"#-1"_s);
}

TEST_F(Translation, ReplacesTheTextsThatItHas) {
    EXPECT_TRUE(overlay("# Deutsch\n102\tDatei\n103\tBeenden\n"));
    EXPECT_EQ(text(102), u"Datei"_s);
    EXPECT_EQ(text(103), u"Beenden"_s);
    EXPECT_EQ(text(104), u"Calibration"_s);
    overlayStrings(compiledIn);
    EXPECT_EQ(text(102), u"File"_s);
}

TEST_F(Translation, MayAddATextAndHoldAnyAlphabet) {
    EXPECT_TRUE(overlay("90001\tПоверка – 校正 ä\n"));
    EXPECT_EQ(text(90001), u"Поверка – 校正 ä"_s);
}

TEST_F(Translation, TakesLineBreaksAndBackslashes) {
    EXPECT_TRUE(overlay("90002\tone\\ntwo\\\\n C:\\\\x\\\n90003\ttab\there \n"));
    EXPECT_EQ(text(90002), u"one\r\ntwo\\n C:\\x\\"_s);
    EXPECT_EQ(text(90003), u"tab\there "_s);
}

TEST_F(Translation, TakesTheFileOfAnyEditor) {
    EXPECT_TRUE(overlay("\xEF\xBB\xBF"
                        "102\tDatei\r\n103\tBeenden"));
    EXPECT_EQ(text(102), u"Datei"_s);
    EXPECT_EQ(text(103), u"Beenden"_s);
}

TEST_F(Translation, PassesOverLinesThatAreNoEntries) {
    EXPECT_TRUE(
        overlay("\n102 Datei\nx\ty\n\t\n104.5\tz\n#103\tBeenden\n99999999999999\tw\n105\tHerunterladen\n"));
    EXPECT_EQ(text(102), u"File"_s);
    EXPECT_EQ(text(103), u"Exit"_s);
    EXPECT_EQ(text(104), u"Calibration"_s);
    EXPECT_EQ(text(105), u"Herunterladen"_s);
}

TEST_F(Translation, MayEmptyAText) {
    EXPECT_TRUE(overlay("102\t\n"));
    EXPECT_EQ(text(102), u""_s);
}

TEST_F(Translation, ThatCanNotBeReadChangesNothing) {
    EXPECT_FALSE(overlayStrings(folder.path() + u"/nowhere.txt"_s));
    EXPECT_FALSE(overlayStrings(folder.path()));
    EXPECT_TRUE(overlay(""));
    EXPECT_TRUE(overlay(QByteArray("\x00\xFF\xFE\x80 no text", 12)));
    EXPECT_EQ(text(102), u"File"_s);
}

} // namespace kelvane
