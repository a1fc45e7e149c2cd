#include "data/history/line_layout.h"

#include "data/tolerances/result_lines.h"
#include "platform/values/texts.h"

#include <QList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// What a field may have been before it was written.
struct Candidate {
    /// Prepared: with the blanks in front.
    QString value;
    /// By how many characters its substitution has made the line longer,
    qsizetype growth = 0;
    /// and has moved what was written before it and stands behind it.
    qsizetype shift = 0;
};

QString withoutBlanksAtEnd(QString text) {
    while (text.endsWith(u' '))
        text.chop(1);
    return text;
}

QString withoutBlanksInFront(const QString& text) {
    qsizetype at = 0;
    while (at < text.size() && text[at] == u' ')
        ++at;
    return text.mid(at);
}

/// The characters of a text from one place up to another one.
QString charactersOf(const QString& text, qsizetype from, qsizetype to) {
    const auto begin = unitsOfCharacters(text, from);
    return text.mid(begin, unitsOfCharacters(text, to) - begin);
}

/// The digits, sign and point that a value begins with.
QString numberInFront(const QString& value) {
    const auto text = withoutBlanksInFront(value);
    const auto* end = std::ranges::find_if_not(
        text, [](QChar unit) { return (unit >= u'0' && unit <= u'9') || unit == u'.' || unit == u'-'; });
    return text.left(end - text.cbegin());
}

/// True when the replaced text could also have stood before the end of the value, whose own end is lost then.
bool mayHaveLostItsEnd(const QString& kept, const SubstRow& row) {
    if (row.from.isEmpty())
        return false;
    // Blanks between what is kept and a blank in its place can't be seen.
    const bool endsInBlanks = row.to.isEmpty() || row.to.endsWith(u' ');
    if (kept.contains(row.from) || (endsInBlanks && row.from.contains(u' ')))
        return true;
    for (qsizetype length = 1; length < row.from.size(); ++length) {
        if (kept.endsWith(row.from.left(length)))
            return true;
    }
    return false;
}

/// Fields that hold one of a few texts.
struct Vocabulary {
    QStringView code;
    std::array<QStringView, 3> texts;
};

constexpr Vocabulary vocabularies[] = {
    {u"TU", {u"", u"", u""}},
    {u"CO", {u"", u"MARGINAL", u"NOTIFY USER"}},
    {u"TR", {u"PASS", u"FAIL", u"FAIL"}},
};

/// False for a text that the program does not write into that field.
bool isPossible(QStringView code, const QString& value) {
    const auto* words = std::ranges::find(vocabularies, code, &Vocabulary::code);
    return words == std::end(vocabularies) ||
           std::ranges::find(words->texts, QStringView(value)) != words->texts.end();
}

class LineReader {
  public:
    LineReader(const Session& session, const QString& stored) : session_(session), line_(stored) {
        for (std::size_t field = 0; field < resultFields.size(); ++field) {
            if (columnOf(field) >= 0)
                order_ << field;
        }
        std::ranges::sort(order_, {}, [this](std::size_t field) { return columnOf(field); });
        // Servers may have cut the blanks off the end.
        const auto last = order_.isEmpty() ? 0 : columnOf(order_.last());
        line_ += QString(std::max<qsizetype>(last + 1 - characterCount(line_), 0) + 1, u' ');
    }

    std::optional<LineFields> read() {
        if (order_.isEmpty() || !charactersOf(line_, 0, columnOf(order_.first())).trimmed().isEmpty())
            return {};
        LineFields fields;
        for (qsizetype place = 0; place < order_.size(); ++place) {
            const auto candidate = candidateAt(place);
            if (!candidate)
                return {};
            shifts_[order_[place]] = candidate->shift;
            growths_[order_[place]] = candidate->growth;
            fields[order_[place]] = withoutBlanksInFront(candidate->value);
        }
        return reachesItsColumns() ? std::optional(fields) : std::nullopt;
    }

  private:
    qsizetype columnOf(std::size_t field) const { return session_.ResultTemplateLine.columnOf(field); }

    /// True when each field was written at its column: behind the end of a line that is too short for it, a
    /// field goes on where the line ends.
    bool reachesItsColumns() const {
        qsizetype length = resultLineLength;
        for (std::size_t field = 0; field < resultFields.size(); ++field) {
            if (columnOf(field) > length)
                return false;
            length += growths_[field];
        }
        return true;
    }

    /// True when something stands behind the field that was written before it.
    bool movesOthers(qsizetype place) const {
        return std::any_of(order_.cbegin() + place, order_.cend(),
                           [&](std::size_t field) { return field < order_[place]; });
    }

    /// Where a field begins: what was written after it and stands before it has moved it.
    qsizetype beginOf(qsizetype place) const {
        const auto field = order_[place];
        auto begin = columnOf(field);
        for (qsizetype before = 0; before < place; ++before) {
            if (order_[before] > field)
                begin += shifts_[order_[before]];
        }
        return begin;
    }

    /// What stands at a field, when that field has moved what was written before it by `shift`; nothing when
    /// its end can't be told from what follows.
    std::optional<QString> textAt(qsizetype place, qsizetype shift) const {
        const auto begin = beginOf(place);
        if (place + 1 == order_.size())
            return withoutBlanksAtEnd(charactersOf(line_, begin, characterCount(line_)));
        const auto end = beginOf(place + 1) + (order_[place] > order_[place + 1] ? shift : 0);
        const auto text = charactersOf(line_, begin, end);
        if (end <= begin || !text.endsWith(u' '))
            return {};
        return withoutBlanksAtEnd(text);
    }

    /// Appends what the field was before a substitution; false when that can't be told.
    bool addSubstituted(qsizetype place, const SubstRow& row, QList<Candidate>& candidates) const {
        const auto growth = characterCount(row.to) - characterCount(row.from);
        const auto shift = movesOthers(place) ? growth : 0;
        const auto text = textAt(place, shift);
        const auto written = withoutBlanksAtEnd(row.to);
        if (!text || !text->endsWith(written))
            return true;
        const auto kept = text->chopped(written.size());
        if (mayHaveLostItsEnd(kept, row))
            return false;
        const QString value = kept + row.from;
        if (ModuleGlobals::substitutionOf(session_, row.code, value) == &row)
            candidates << Candidate{value, growth, shift};
        return true;
    }

    std::optional<Candidate> candidateAt(qsizetype place) const {
        const auto code = resultFields[order_[place]].code;
        QList<Candidate> candidates;
        for (int index = 0; index <= session_.SubstTable.last; ++index) {
            const auto& row = session_.SubstTable[index];
            if (row.code.isEmpty())
                break;
            if (row.code == code && !addSubstituted(place, row, candidates))
                return {};
        }
        const auto text = textAt(place, 0);
        if (text && ModuleGlobals::substitutionOf(session_, code, *text) == nullptr)
            candidates << Candidate{*text};
        return onlyOneOf(code, candidates);
    }

    /// The one that is meant. None when several are possible that differ in a number, in a text of a few, or
    /// in what they did to the line.
    static std::optional<Candidate> onlyOneOf(QStringView code, QList<Candidate> candidates) {
        candidates.removeIf([&](const Candidate& candidate) { return !isPossible(code, candidate.value); });
        if (candidates.isEmpty())
            return {};
        const bool isWord =
            std::ranges::find(vocabularies, code, &Vocabulary::code) != std::end(vocabularies);
        const auto& first = candidates.first();
        for (const auto& candidate : std::as_const(candidates)) {
            if (candidate.shift != first.shift || (isWord && candidate.value != first.value) ||
                numberInFront(candidate.value) != numberInFront(first.value))
                return {};
        }
        return first;
    }

    const Session& session_;
    QString line_;
    /// The fields that the template has, by their columns.
    QList<std::size_t> order_;
    std::array<qsizetype, resultFields.size()> shifts_{};
    std::array<qsizetype, resultFields.size()> growths_{};
};

/// The line that the fields give.
QString laidOut(Session& session, const LineFields& fields) {
    auto padded = fields;
    auto& [number, nominal, applied, reading, tolerance, deviation, percent, units, comment, low, high,
           verdict] = padded;
    return ModuleGlobals::ResultLine(session, number, nominal, applied, reading, tolerance, deviation,
                                     percent, units, comment, low, high, verdict);
}

} // namespace

std::optional<LineFields> fieldsOfLine(Session& session, const QString& stored) {
    auto fields = LineReader(session, stored).read();
    if (fields && withoutBlanksAtEnd(laidOut(session, *fields)) != withoutBlanksAtEnd(stored))
        return {};
    return fields;
}

} // namespace kelvane
