#include "data/tolerances/result_lines.h"

#include "data/routine.h"
#include "platform/values/texts.h"

#include <iterator>

using namespace Qt::StringLiterals;

namespace kelvane::ModuleGlobals {

namespace {

enum class Preparation {
    none,
    /// Blanks in front up to a length of 3.
    threeWide,
    /// A blank in front unless the value holds a "-", so that the digits stand in one column.
    signColumn,
};

/// A tag of the template, the substitution code of its values, and how these are prepared.
struct Tag {
    QStringView tag;
    QStringView code;
    Preparation preparation;
};

/// In the order of the routine's arguments, which is the order in which the line is filled.
constexpr Tag tags[] = {
    {u"TN$", u"TN", Preparation::threeWide},    {u"FN$", u"FN", Preparation::signColumn},
    {u"FVA$", u"FVA", Preparation::signColumn}, {u"FRE$", u"FRE", Preparation::signColumn},
    {u"TT$", u"TT", Preparation::none},         {u"DE$", u"DE", Preparation::none},
    {u"ET$", u"ET", Preparation::threeWide},    {u"TU$", u"TU", Preparation::none},
    {u"CO$", u"CO", Preparation::none},         {u"FLL$", u"FLL", Preparation::signColumn},
    {u"FUL$", u"FUL", Preparation::signColumn}, {u"TR$", u"TR", Preparation::none},
};

constexpr int lineLength = 120;
constexpr int narrowWidth = 3;

void prepare(QString& value, Preparation preparation) {
    if (preparation == Preparation::threeWide && characterCount(value) < narrowWidth)
        value.prepend(QString(narrowWidth - characterCount(value), u' '));
    else if (preparation == Preparation::signColumn && !value.contains(u'-'))
        value.prepend(u' ');
}

/// A text without its last `count` characters.
QString withoutLast(const QString& text, qsizetype count) {
    return text.left(unitsOfCharacters(text, characterCount(text) - count));
}

/// The value with its end replaced by the last row that fits: each row starts again from the value.
QString substituted(const Session& session, const QString& value, QStringView code) {
    QString text = value;
    for (int row = session.SubstTable.first; row <= session.SubstTable.last; ++row) {
        const auto& subst = session.SubstTable[row];
        if (subst.code.isEmpty())
            break;
        if (subst.code == code && value.contains(subst.from))
            text = withoutLast(value, characterCount(subst.from)) + subst.to;
    }
    return text;
}

/// Writes `text` at a column of the line in the place of `length` characters, or behind a shorter line.
void write(QString& line, qsizetype column, qsizetype length, const QString& text) {
    const auto begin = unitsOfCharacters(line, column);
    const auto end = unitsOfCharacters(line, column + length);
    line.replace(begin, end - begin, text);
}

} // namespace

QString ResultLine(Session& session, QString& number, QString& nominal, QString& applied, QString& reading,
                   QString& tolerance, QString& deviation, QString& percent, QString& units, QString& comment,
                   QString& lowLimit, QString& highLimit, QString& verdict) {
    QString line(lineLength, u' ');
    Routine routine(session, u"ModuleGlobals,ResultLine"_s);
    routine.run([&] {
        QString* const values[] = {&number,  &nominal, &applied, &reading,  &tolerance, &deviation,
                                   &percent, &units,   &comment, &lowLimit, &highLimit, &verdict};
        static_assert(std::size(values) == std::size(tags));
        for (std::size_t i = 0; i < std::size(tags); ++i) {
            const auto place = session.ResultTemplateLine.indexOf(tags[i].tag);
            if (place < 0)
                continue;
            auto& value = *values[i];
            prepare(value, tags[i].preparation);
            // The tail is cut by the length of the value before its substitution: a longer or shorter text
            // moves the rest of the line.
            const auto column = characterCount(QStringView(session.ResultTemplateLine).left(place));
            write(line, column, characterCount(value), substituted(session, value, tags[i].code));
        }
    });
    return line;
}

} // namespace kelvane::ModuleGlobals
