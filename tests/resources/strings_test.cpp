#include "resources/strings.h"
#include "resources/text_id.h"
#include "testkit/fixtures.h"
#include "tests/resources/given_texts.h"

#include <QFile>
#include <QRegularExpression>
#include <QTemporaryFile>

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
            entries << testing::GivenText{line.section(u'\t', 0, 0).toInt(), line.section(u'\t', 2)};
    }
    return entries;
}

/// Lays a translation over the table and takes it off again at the end.
class Translation : public ::testing::Test {
  protected:
    ~Translation() override { restore(); }
    /// Lays the texts of the program over themselves.
    static void restore() {
        QTemporaryFile file;
        ASSERT_TRUE(file.open());
        for (const auto& entry : tableEntries())
            file.write((QString::number(entry.id) + u'\t' + entry.text + u'\n').toUtf8());
        file.close();
        ASSERT_TRUE(overlayStrings(file.fileName()));
    }
    bool overlay(const QByteArray& content) {
        folder.write(u"german.txt"_s, content);
        return overlayStrings(folder.path() + u"/german.txt"_s);
    }
    testing::OwnFolder folder;
};

} // namespace

TEST(Strings, AreExactlyTheGivenOnes) {
    for (const auto& given : testing::givenTexts())
        EXPECT_EQ(text(TextId{given.id}), given.text) << given.id;
}

TEST(Strings, AreNoMoreThanTheGivenOnesAndTheProgramsOwn) {
    QSet<int> given;
    for (const auto& row : testing::givenTexts())
        given << row.id;
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

TEST(Strings, StandInLinesOfNumberNameAndText) {
    static const QRegularExpression entry(u"^[1-9][0-9]*\t[a-z][A-Za-z0-9]*\t[^\t\r]+$"_s);
    static const QRegularExpression strayEscape(u"\\\\(?![n\\\\])"_s);
    for (const auto& line : tableLines()) {
        EXPECT_TRUE(line.startsWith(u'#') || entry.match(line).hasMatch()) << line.toStdString();
        if (!line.startsWith(u'#')) {
            EXPECT_FALSE(strayEscape.match(line).hasMatch()) << line.toStdString();
        }
    }
}

TEST(Strings, HaveANameOfTheirOwnEach) {
    QSet<QString> names;
    for (const auto& line : tableLines().filter(QRegularExpression(u"^[0-9]"_s))) {
        const auto name = line.section(u'\t', 1, 1);
        EXPECT_FALSE(names.contains(name)) << name.toStdString();
        names << name;
    }
}

TEST(Strings, OfTheProgramDifferFromOneAnother) {
    QSet<QString> own;
    for (const auto& entry : tableEntries()) {
        if (entry.id < firstOwn)
            continue;
        EXPECT_FALSE(own.contains(entry.text)) << entry.id;
        own << entry.text;
    }
}

TEST(Strings, OfAnUnknownIdShowItsNumber) {
    EXPECT_EQ(text(TextId{99999}), u"#99999"_s);
    EXPECT_EQ(text(TextId{0}), u"#0"_s);
    EXPECT_EQ(text(TextId{-1}), u"#-1"_s);
}

TEST_F(Translation, ReplacesTheTextsThatItHas) {
    EXPECT_TRUE(overlay("# Deutsch\n102\tDatei\n103\tBeenden\n"));
    EXPECT_EQ(text(TextId::fileMenu), u"Datei"_s);
    EXPECT_EQ(text(TextId::exitCommand), u"Beenden"_s);
    EXPECT_EQ(text(TextId::calibrationMenu), u"Calibration"_s);
    restore();
    EXPECT_EQ(text(TextId::fileMenu), u"File"_s);
}

TEST_F(Translation, MayAddATextAndHoldAnyAlphabet) {
    EXPECT_TRUE(overlay("90001\tПоверка – 校正 ä\n"));
    EXPECT_EQ(text(TextId{90001}), u"Поверка – 校正 ä"_s);
}

TEST_F(Translation, TakesLineBreaksAndBackslashes) {
    EXPECT_TRUE(overlay("90002\tone\\ntwo\\\\n C:\\\\x\\\n90003\ttab\there \n"));
    EXPECT_EQ(text(TextId{90002}), u"one\r\ntwo\\n C:\\x\\"_s);
    EXPECT_EQ(text(TextId{90003}), u"tab\there "_s);
}

TEST_F(Translation, TakesTheFileOfAnyEditor) {
    EXPECT_TRUE(overlay("\xEF\xBB\xBF"
                        "102\tDatei\r\n103\tBeenden"));
    EXPECT_EQ(text(TextId::fileMenu), u"Datei"_s);
    EXPECT_EQ(text(TextId::exitCommand), u"Beenden"_s);
}

TEST_F(Translation, PassesOverLinesThatAreNoEntries) {
    EXPECT_TRUE(
        overlay("\n102 Datei\nx\ty\n\t\n104.5\tz\n#103\tBeenden\n99999999999999\tw\n105\tHerunterladen\n"));
    EXPECT_EQ(text(TextId::fileMenu), u"File"_s);
    EXPECT_EQ(text(TextId::exitCommand), u"Exit"_s);
    EXPECT_EQ(text(TextId::calibrationMenu), u"Calibration"_s);
    EXPECT_EQ(text(TextId::downloadProcedures), u"Herunterladen"_s);
}

TEST_F(Translation, MayEmptyAText) {
    EXPECT_TRUE(overlay("102\t\n"));
    EXPECT_EQ(text(TextId::fileMenu), u""_s);
}

TEST_F(Translation, ThatCanNotBeReadChangesNothing) {
    EXPECT_FALSE(overlayStrings(folder.path() + u"/nowhere.txt"_s));
    EXPECT_FALSE(overlayStrings(folder.path()));
    EXPECT_TRUE(overlay(""));
    EXPECT_TRUE(overlay(QByteArray("\x00\xFF\xFE\x80 no text", 12)));
    EXPECT_EQ(text(TextId::fileMenu), u"File"_s);
}

} // namespace kelvane
