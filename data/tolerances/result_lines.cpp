#include "data/tolerances/result_lines.h"

#include "data/routine.h"
#include "platform/values/texts.h"

#include <algorithm>
#include <iterator>
#include <utility>

using namespace Qt::StringLiterals;

namespace kelvane::ModuleGlobals {

namespace {

constexpr int narrowWidth = 3;

/// Puts `count` blanks in front, without another allocation where the text has room for them.
void padLeft(QString& text, qsizetype count) {
    const auto size = text.size();
    text.resize(size + count);
    auto* const begin = text.data();
    std::copy_backward(begin, begin + size, begin + size + count);
    std::fill_n(begin, count, u' ');
}

void prepare(QString& value, Preparation preparation) {
    if (preparation == Preparation::threeWide)
        padLeft(value, std::max<qsizetype>(narrowWidth - characterCount(value), 0));
    else if (preparation == Preparation::signColumn && !value.contains(u'-'))
        padLeft(value, 1);
}

/// A text without its last `count` characters.
QString dropLast(const QString& text, qsizetype count) {
    return text.left(unitsOfCharacters(text, characterCount(text) - count));
}

/// A line whose columns count characters.
class Line {
  public:
    Line() : text(resultLineLength, Qt::Uninitialized) { std::fill(text.begin(), text.end(), u' '); }

    /// Writes a value of so many characters at a column in the place of `length` characters, or behind a
    /// shorter line.
    void write(qsizetype column, qsizetype length, QStringView value, qsizetype characters) {
        hasPairs_ = hasPairs_ || characters != value.size();
        const auto begin = unitsBefore(column);
        const auto end = unitsBefore(column + length);
        if (value.size() == end - begin)
            std::copy(value.cbegin(), value.cend(), text.begin() + begin);
        else
            text.replace(begin, end - begin, value.data(), value.size());
    }

    QString text;

  private:
    qsizetype unitsBefore(qsizetype column) const {
        return hasPairs_ ? unitsOfCharacters(text, column) : std::min(column, text.size());
    }

    /// True once a character of two units stands in the line.
    bool hasPairs_ = false;
};

} // namespace

const SubstRow* substitutionOf(const Session& session, QStringView code, const QString& value) {
    const SubstRow* fitting = nullptr;
    for (int index = 0; index <= session.SubstTable.last; ++index) {
        const auto& row = session.SubstTable[index];
        if (row.code.isEmpty())
            break;
        if (row.code == code && value.contains(row.from))
            fitting = &row;
    }
    return fitting;
}

QString ResultLine(Session& session, QString& number, QString& nominal, QString& applied, QString& reading,
                   QString& tolerance, QString& deviation, QString& percent, QString& units, QString& comment,
                   QString& lowLimit, QString& highLimit, QString& verdict) {
    Line line;
    Routine routine(session, u"ModuleGlobals,ResultLine"_s);
    routine.run([&] {
        QString* const values[] = {&number,  &nominal, &applied, &reading,  &tolerance, &deviation,
                                   &percent, &units,   &comment, &lowLimit, &highLimit, &verdict};
        static_assert(std::size(values) == resultFields.size());
        for (std::size_t field = 0; field < resultFields.size(); ++field) {
            const auto column = session.ResultTemplateLine.columnOf(field);
            if (column < 0)
                continue;
            auto& value = *values[field];
            prepare(value, resultFields[field].preparation);
            // The tail is cut by the length of the value before its substitution: a longer or shorter text
            // moves the rest of the line.
            const auto length = characterCount(value);
            if (const auto* row = substitutionOf(session, resultFields[field].code, value)) {
                const auto text = dropLast(value, characterCount(row->from)) += row->to;
                line.write(column, length, text, characterCount(text));
            } else {
                line.write(column, length, value, length);
            }
        }
    });
    return std::move(line.text);
}

} // namespace kelvane::ModuleGlobals
