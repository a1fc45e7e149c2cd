// What has to hold for every table of another language.
#include "resources/languages.h"
#include "testkit/fixtures.h"

#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QStringDecoder>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

using Entries = QMap<int, QString>;

/// A table's text as it stands in the resource; the conversion of what is no UTF-8 fails the test.
QString contentOf(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    QStringDecoder utf8(QStringDecoder::Utf8);
    QString content = utf8(file.readAll());
    EXPECT_FALSE(utf8.hasError()) << path.toStdString();
    return content;
}

QStringList linesOf(const QString& path) {
    auto lines = contentOf(path).split(u'\n');
    EXPECT_EQ(lines.takeLast(), u""_s) << "the last line has its end";
    lines.removeIf([](const QString& line) { return line.startsWith(u'#'); });
    return lines;
}

const Entries& ownTexts() {
    static const Entries entries = [] {
        Entries read;
        for (const auto& line : linesOf(u":/strings.txt"_s))
            read.insert(line.section(u'\t', 0, 0).toInt(), line.section(u'\t', 2));
        return read;
    }();
    return entries;
}

QStringList partsOf(const QString& text, const QRegularExpression& pattern) {
    QStringList parts;
    for (auto found = pattern.globalMatch(text); found.hasNext();)
        parts << found.next().captured();
    return parts;
}

/// Names, signs and units, which may be the same in another language.
const QSet<int>& sameInAnother() {
    static const QSet<int> ids{101,  120,  350,  351,  567,  1004, 1185, 1272, 1273, 1274, 1290,
                               1308, 1397, 2021, 2291, 2292, 2297, 2298, 2501, 2584, 2590};
    return ids;
}

/// A table of another language, by its code.
class TranslatedTexts : public ::testing::TestWithParam<QString> {
  protected:
    TranslatedTexts() : lines(linesOf(u":/strings.%1.txt"_s.arg(GetParam()))) {
        for (const auto& line : std::as_const(lines))
            texts.insert(line.section(u'\t', 0, 0).toInt(), line.section(u'\t', 1));
    }
    /// Compares something of each text with the same of the program's own text.
    template <class Part>
    void expectSame(Part part) const {
        for (auto own = ownTexts().cbegin(); own != ownTexts().cend(); ++own)
            EXPECT_EQ(part(texts.value(own.key())), part(own.value())) << own.key();
    }
    QStringList lines;
    Entries texts;
};

} // namespace

TEST_P(TranslatedTexts, AreThereForEachNumberOnceAndForNoOther) {
    EXPECT_EQ(texts.keys(), ownTexts().keys());
    EXPECT_EQ(lines.size(), texts.size());
}

TEST_P(TranslatedTexts, StandInLinesOfNumberAndTextInAscendingOrder) {
    static const QRegularExpression entry(u"^[1-9][0-9]*\t[^\t\r]+$"_s);
    static const QRegularExpression strayEscape(u"\\\\(?![n\\\\])"_s);
    int before = 0;
    for (const auto& line : std::as_const(lines)) {
        EXPECT_TRUE(entry.match(line).hasMatch()) << line.toStdString();
        EXPECT_FALSE(strayEscape.match(line).hasMatch()) << line.toStdString();
        const int id = line.section(u'\t', 0, 0).toInt();
        EXPECT_GT(id, before);
        before = id;
    }
}

TEST_P(TranslatedTexts, TakeTheSameValues) {
    static const QRegularExpression place(u"%[1-9]"_s);
    expectSame([](const QString& text) {
        auto places = partsOf(text, place);
        places.sort();
        return places;
    });
}

TEST_P(TranslatedTexts, HaveTheSameBlanksAtTheirEndsAndTheSameLineBreaks) {
    static const QRegularExpression blanks(u"^ +| +$|\\\\n"_s);
    expectSame([](const QString& text) { return partsOf(text, blanks); });
}

TEST_P(TranslatedTexts, EndAsTheOnesThatAValueOrAQuestionFollows) {
    expectSame([](const QString& text) { return text.endsWith(u':'); });
    expectSame([](const QString& text) { return text.endsWith(u"..."_s); });
}

TEST_P(TranslatedTexts, NameTheSameKindsOfFiles) {
    static const QRegularExpression kind(u"\\(\\*[^)]*\\)|;;"_s);
    expectSame([](const QString& text) { return partsOf(text, kind); });
}

TEST_P(TranslatedTexts, HaveNoMarksOfMnemonics) {
    for (const auto& line : std::as_const(lines))
        EXPECT_FALSE(line.contains(u'&')) << line.toStdString();
}

TEST_P(TranslatedTexts, DifferFromTheOwnOnesButForNamesSignsAndUnits) {
    for (auto own = ownTexts().cbegin(); own != ownTexts().cend(); ++own) {
        if (!sameInAnother().contains(own.key())) {
            EXPECT_NE(texts.value(own.key()), own.value()) << own.key();
        }
    }
}

TEST_P(TranslatedTexts, TellApartWhatIsChosenFromOneList) {
    // Parities; calibrators; yes and no; the predefined strategies.
    for (const auto& [first, last] : {std::pair{327, 329}, {350, 351}, {643, 644}, {1185, 1198}}) {
        QSet<QString> rows;
        for (int id = first; id <= last; ++id)
            rows << texts.value(id);
        EXPECT_EQ(rows.size(), last - first + 1) << first;
    }
}

INSTANTIATE_TEST_SUITE_P(All, TranslatedTexts, ::testing::ValuesIn([] {
                             auto others = languages();
                             others.removeAll(ownLanguage.toString());
                             return others;
                         }()),
                         [](const auto& tested) { return tested.param.toStdString(); });

} // namespace kelvane::testing
