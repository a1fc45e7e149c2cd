#include "data/history/line_layout.h"

#include "data/tolerances/result_lines.h"
#include "platform/values/texts.h"

#include <QList>

#include <algorithm>
#include <span>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// What a field may have been before it was written.
struct Candidate {
    /// Prepared: with the blanks in front.
    QString value = {};
    /// By how many characters its substitution has made the line longer.
    qsizetype growth = 0;
};

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

/// The texts that the program writes into a field, where it writes no others.
std::span<const QStringView> wordsOf(QStringView code) {
    static constexpr QStringView none[] = {u""};
    static constexpr QStringView comments[] = {u"", u"MARGINAL", u"NOTIFY USER"};
    static constexpr QStringView verdicts[] = {u"PASS", u"FAIL"};
    if (code == u"TU")
        return none;
    if (code == u"CO")
        return comments;
    return code == u"TR" ? std::span<const QStringView>(verdicts) : std::span<const QStringView>();
}

qsizetype growthBy(const SubstRow& row) {
    return characterCount(row.to) - characterCount(row.from);
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

    /// True for a substitution that moves what was written before the field and stands behind it. Where such
    /// a field began, and whether this one has written over it, can't be told any more.
    bool movesOthers(qsizetype place, const SubstRow& row) const {
        return growthBy(row) != 0 && std::any_of(order_.cbegin() + place, order_.cend(),
                                                 [&](std::size_t field) { return field < order_[place]; });
    }

    /// How many characters a field has up to the next one; nothing for the last one.
    std::optional<qsizetype> widthAt(qsizetype place) const {
        if (place + 1 == order_.size())
            return {};
        return columnOf(order_[place + 1]) - columnOf(order_[place]);
    }

    /// What stands at a field; nothing when its end can't be told from what follows.
    std::optional<QString> textAt(qsizetype place) const {
        const auto begin = columnOf(order_[place]);
        const auto width = widthAt(place);
        const auto text = charactersOf(line_, begin, width ? begin + *width : characterCount(line_));
        if (width && !text.endsWith(u' '))
            return {};
        return withoutBlanksAtEnd(text);
    }

    /// True for a value that had room before the next field.
    bool hadRoom(qsizetype place, const QString& value) const {
        const auto width = widthAt(place);
        return !width || characterCount(value) < *width;
    }

    /// True when a text stands partly in a field and partly in the next one.
    bool standsAcrossTheEnd(qsizetype place, const QString& text) const {
        const auto width = widthAt(place);
        const auto length = characterCount(text);
        for (qsizetype inside = 1; width && inside < length; ++inside) {
            const auto from = columnOf(order_[place]) + *width - inside;
            if (from >= 0 && charactersOf(line_, from, from + length) == text)
                return true;
        }
        return false;
    }

    /// Appends what the field was before a substitution; false when that can't be told.
    bool addSubstituted(qsizetype place, const SubstRow& row, QList<Candidate>& candidates) const {
        if (movesOthers(place, row))
            return false;
        const auto text = textAt(place);
        const auto written = withoutBlanksAtEnd(row.to);
        if (standsAcrossTheEnd(place, written))
            return false;
        if (!text || !text->endsWith(written))
            return true;
        const auto kept = text->chopped(written.size());
        if (mayHaveLostItsEnd(kept, row))
            return false;
        const QString value = kept + row.from;
        if (ModuleGlobals::substitutionOf(session_, row.code, value) != &row)
            return true;
        candidates << Candidate{value, growthBy(row)};
        return hadRoom(place, value);
    }

    std::optional<Candidate> candidateAt(qsizetype place) const {
        const auto code = resultFields[order_[place]].code;
        const auto words = wordsOf(code);
        return words.empty() ? valueAt(place, code) : wordAt(place, code, words);
    }

    /// The word that gives what stands there; none when several do.
    std::optional<Candidate> wordAt(qsizetype place, QStringView code,
                                    std::span<const QStringView> words) const {
        const auto rest = charactersOf(line_, columnOf(order_[place]), characterCount(line_));
        const auto text = textAt(place);
        std::optional<Candidate> found;
        for (const auto word : words) {
            Candidate candidate{word.toString()};
            auto written = candidate.value;
            const auto* row = ModuleGlobals::substitutionOf(session_, code, candidate.value);
            if (row != nullptr) {
                written = written.chopped(row->from.size()) + row->to;
                candidate.growth = growthBy(*row);
            }
            const bool mayStand = row != nullptr && movesOthers(place, *row)
                                      ? rest.startsWith(written)
                                      : text == withoutBlanksAtEnd(written);
            if (!mayStand)
                continue;
            if (found || !hadRoom(place, candidate.value) || (row != nullptr && movesOthers(place, *row)))
                return {};
            found = candidate;
        }
        return found;
    }

    std::optional<Candidate> valueAt(qsizetype place, QStringView code) const {
        QList<Candidate> candidates;
        for (int index = 0; index <= session_.SubstTable.last; ++index) {
            const auto& row = session_.SubstTable[index];
            if (row.code.isEmpty())
                break;
            if (row.code == code && !addSubstituted(place, row, candidates))
                return {};
        }
        const auto text = textAt(place);
        if (text && ModuleGlobals::substitutionOf(session_, code, *text) == nullptr)
            candidates << Candidate{*text};
        return onlyOneOf(candidates);
    }

    /// One of those that differ in no number; none of others.
    static std::optional<Candidate> onlyOneOf(const QList<Candidate>& candidates) {
        if (candidates.isEmpty())
            return {};
        const auto& first = candidates.first();
        for (const auto& candidate : candidates) {
            if (numberInFront(candidate.value) != numberInFront(first.value))
                return {};
        }
        return first;
    }

    const Session& session_;
    QString line_;
    /// The fields that the template has, by their columns.
    QList<std::size_t> order_;
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
