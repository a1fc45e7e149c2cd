#include "data/history/point_history.h"

#include "data/history/stored_lines.h"

#include <algorithm>
#include <cmath>

namespace kelvane {

namespace {

/// How far apart two values of one point are, as a part of what the values of a record span.
constexpr double nearness = 0.02;
/// A larger percentage is no error of an instrument, but a tolerance that means nothing.
constexpr double largestPercent = 1e9;

/// A value of a line and its unit. A template without a column for the value gives none.
struct Value {
    std::optional<double> number;
    QString unit;
};

Value valueOf(const StoredLine& line, LineField field) {
    return {line.number(field), unitOf(line.field(field))};
}

/// A line that has an error, with what its record's values span.
struct Line {
    Value nominal;
    Value applied;
    double nominalSpan = 0;
    double appliedSpan = 0;
    QString nominalText;
    PointError error;
};

/// The usable lines of a record; not complete when others had to be left out.
struct UsableLines {
    QList<Line> lines;
    bool isComplete = true;
};

/// The distance of the limit on the side of the error; of no error, that of the farther one.
std::optional<double> widthOf(const StoredLine& line, double nominal, double deviation) {
    const auto low = line.number(LineField::lowLimit);
    const auto high = line.number(LineField::highLimit);
    if (!low || !high)
        return line.number(LineField::tolerance);
    const double below = nominal - *low;
    const double above = *high - nominal;
    if (deviation == 0)
        return std::max(below, above);
    return deviation < 0 ? below : above;
}

std::optional<double> percentOf(const StoredLine& line) {
    const auto nominal = line.number(LineField::nominal);
    const auto deviation = line.number(LineField::deviation);
    if (!nominal || !deviation)
        return {};
    const auto width = widthOf(line, *nominal, *deviation);
    if (!width || !(*width > 0))
        return {};
    const double percent = *deviation / *width * 100;
    if (!(std::abs(percent) <= largestPercent))
        return {};
    return percent;
}

double spanOf(const QList<Line>& lines, Value Line::*member, const Value& value) {
    double least = *value.number;
    double most = least;
    for (const auto& line : lines) {
        const auto& other = line.*member;
        if (!other.number || other.unit != value.unit)
            continue;
        least = std::min(least, *other.number);
        most = std::max(most, *other.number);
    }
    return most > least ? most - least : std::abs(most);
}

void findSpans(QList<Line>& lines) {
    for (auto& line : lines) {
        line.nominalSpan = spanOf(lines, &Line::nominal, line.nominal);
        if (line.applied.number)
            line.appliedSpan = spanOf(lines, &Line::applied, line.applied);
    }
}

bool isNear(const Value& left, const Value& right, double leftSpan, double rightSpan) {
    if (left.unit != right.unit || left.number.has_value() != right.number.has_value())
        return false;
    return !left.number || std::abs(*left.number - *right.number) <= nearness * std::min(leftSpan, rightSpan);
}

bool isOfOnePoint(const Line& left, const Line& right) {
    return isNear(left.nominal, right.nominal, left.nominalSpan, right.nominalSpan) &&
           isNear(left.applied, right.applied, left.appliedSpan, right.appliedSpan);
}

class Points {
  public:
    Points(Session& session, const QList<CalibrationRecord>& records) {
        QList<UsableLines> read;
        for (qsizetype record = 0; record < records.size(); ++record) {
            read << readLines(session, records[record], record);
            findRepeated(read.constLast().lines);
        }
        for (const auto& usable : std::as_const(read))
            add(usable);
    }

    PointHistory take() { return std::move(history_); }

  private:
    /// What lines with one nominal value have in common: the newest of them, and their points by occurrence.
    struct Nominal {
        Line first;
        QList<qsizetype> points;
        /// Of the record that is being added.
        int count = 0;
    };

    UsableLines readLines(Session& session, const CalibrationRecord& record, qsizetype number) {
        UsableLines usable;
        auto& lines = usable.lines;
        for (const auto& text : record.lines) {
            const auto stored = readStoredLine(session, text);
            if (stored.reading == StoredLine::Reading::blank)
                continue;
            ++history_.lines;
            if (stored.reading != StoredLine::Reading::readable) {
                ++history_.unreadable;
                usable.isComplete = false;
                continue;
            }
            const auto percent = percentOf(stored);
            if (!percent) {
                ++history_.withoutTolerance;
                usable.isComplete = false;
                continue;
            }
            Line line;
            line.nominal = valueOf(stored, LineField::nominal);
            line.applied = valueOf(stored, LineField::applied);
            line.nominalText = stored.field(LineField::nominal);
            line.error = {number, *percent, stored.field(LineField::reading)};
            lines << line;
        }
        findSpans(lines);
        return usable;
    }

    /// One line of each nominal value that the record has several times.
    void findRepeated(const QList<Line>& lines) {
        for (qsizetype line = 0; line < lines.size(); ++line) {
            const auto isSame = [&](const Line& other) { return isOfOnePoint(lines[line], other); };
            if (std::any_of(lines.cbegin(), lines.cbegin() + line, isSame) && !isRepeated(lines[line]))
                repeated_ << lines[line];
        }
    }

    bool isRepeated(const Line& line) const {
        return std::ranges::any_of(repeated_, [&](const Line& other) { return isOfOnePoint(other, line); });
    }

    void add(const UsableLines& usable) {
        for (auto& nominal : nominals_)
            nominal.count = 0;
        for (const auto& line : usable.lines) {
            if (!usable.isComplete && isRepeated(line))
                ++history_.uncertain;
            else
                pointOf(nominalOf(line), line).errors << line.error;
        }
    }

    /// The nearest one that is near enough, or a new one.
    Nominal& nominalOf(const Line& line) {
        Nominal* nearest = nullptr;
        const auto distance = [&](const Nominal& nominal) {
            return std::abs(*nominal.first.nominal.number - *line.nominal.number);
        };
        for (auto& nominal : nominals_) {
            if (isOfOnePoint(nominal.first, line) && (!nearest || distance(nominal) < distance(*nearest)))
                nearest = &nominal;
        }
        return nearest ? *nearest : nominals_.emplaceBack(Nominal{line, {}, 0});
    }

    InstrumentPoint& pointOf(Nominal& nominal, const Line& line) {
        if (nominal.count == nominal.points.size()) {
            nominal.points << history_.points.size();
            history_.points << InstrumentPoint{line.nominalText, nominal.count + 1, {}};
        }
        return history_.points[nominal.points[nominal.count++]];
    }

    QList<Nominal> nominals_;
    /// Of nominal values that a record has several times.
    QList<Line> repeated_;
    PointHistory history_;
};

} // namespace

PointHistory pointHistoryOf(Session& session, const QList<CalibrationRecord>& records) {
    return Points(session, records).take();
}

} // namespace kelvane
