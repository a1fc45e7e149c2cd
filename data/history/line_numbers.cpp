#include "data/history/line_numbers.h"

#include "platform/values/numbers.h"

#include <QList>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

enum Field : std::size_t { TN, FN, FVA, FRE, TT, DE, ET, TU, CO, FLL, FUL, TR };

constexpr Field amountFields[] = {FN, FVA, FRE, TT, DE, FLL, FUL};
/// The amounts in the unit of the output.
constexpr Field outputFields[] = {FN, FRE, TT, DE};

/// The slack of the comparison of decimal figures in binary ones, as a part of their last digit.
constexpr double slack = 1e-3;
/// The percentage is worked out in 32-bit figures, and printed as a whole number.
constexpr double percentRounding = 0.5 + slack;
constexpr double percentPrecision = 1e-5;
/// From here on it is printed as ">500".
constexpr double percentOutOfScale = 501;
constexpr QStringView outOfScale = u">500";
/// The coarsest resolution that there is a format for.
constexpr double coarsest = 100000;

/// A number with its unit, as the workstation prints it.
struct Amount {
    QString number;
    QString unit;
    qsizetype decimals() const {
        const auto point = number.indexOf(u'.');
        return point < 0 ? 0 : number.size() - point - 1;
    }
    double value() const { return numericValue(number); }
};

bool isDigit(QChar unit) {
    return unit >= u'0' && unit <= u'9';
}

qsizetype digitsFrom(const QString& text, qsizetype at) {
    const auto begin = at;
    while (at < text.size() && isDigit(text[at]))
        ++at;
    return at - begin;
}

/// A unit that can't be taken for the end of a number, nor a number for its beginning.
bool isUnit(QStringView text) {
    if (text.isEmpty())
        return true;
    const bool isBeginning =
        text.front().isLetter() || text.front().isSurrogate() || QStringView(u" %°").contains(text.front());
    return isBeginning && !text.contains(u"  "); // two fields
}

/// Nothing for a text that is no amount. An amount without a number is that of a resolution that there is no
/// format for.
std::optional<Amount> amountOf(const QString& text) {
    const qsizetype sign = text.startsWith(u'-') ? 1 : 0;
    const auto whole = digitsFrom(text, sign);
    auto end = sign + whole;
    if (whole > 0 && end < text.size() && text[end] == u'.') {
        const auto decimals = digitsFrom(text, end + 1);
        if (decimals == 0)
            return {};
        end += 1 + decimals;
    }
    if (whole == 0)
        end = 0;
    Amount amount{text.left(end), text.mid(end)};
    if (!isUnit(amount.unit))
        return {};
    return amount;
}

class Figures {
  public:
    Figures(const ResultTemplate& layout, const LineFields& fields) : layout_(layout), fields_(fields) {}

    std::optional<LineNumbers> read() {
        if (!takePointNumber() || !takeAmounts() || !isVerdictOfFigures())
            return {};
        findLastDigit();
        if (!isDeviationOfFigures() || !isToleranceOfFigures() || !takePercent())
            return {};
        // Both are whole numbers: an unconfirmed one may be the other.
        if (has(ET) && fields_[ET] != outOfScale && !numbers_[ET])
            numbers_[TN].reset();
        return numbers_;
    }

  private:
    bool has(Field field) const { return layout_.columnOf(field) >= 0; }
    /// The line has numbers in all of these.
    bool knows(std::initializer_list<Field> fields) const {
        return std::ranges::all_of(fields, [&](Field field) { return numbers_[field].has_value(); });
    }
    double operator[](Field field) const { return *numbers_[field]; }

    bool takePointNumber() {
        const auto& text = fields_[TN];
        if (!has(TN))
            return true;
        if (text.isEmpty() || digitsFrom(text, 0) != text.size())
            return false;
        numbers_[TN] = numericValue(text);
        return true;
    }

    /// All amounts have a number of the same decimals, or none has one.
    bool takeAmounts() {
        QList<Amount> amounts;
        for (const auto field : amountFields) {
            if (!has(field))
                continue;
            const auto amount = amountOf(fields_[field]);
            if (!amount || ((field == FLL || field == FUL) && !amount->unit.isEmpty()))
                return false;
            amounts << *amount;
            if (!amount->number.isEmpty())
                numbers_[field] = amount->value();
        }
        hasAmounts_ = !amounts.isEmpty() && !amounts.first().number.isEmpty();
        for (const auto& amount : std::as_const(amounts)) {
            if (amount.number.isEmpty() == hasAmounts_ || amount.decimals() != amounts.first().decimals())
                return false;
        }
        decimals_ = amounts.isEmpty() ? 0 : static_cast<int>(amounts.first().decimals());
        return hasOneUnit();
    }

    bool hasOneUnit() const {
        std::optional<QString> unit;
        for (const auto field : outputFields) {
            if (!has(field))
                continue;
            const auto own = amountOf(fields_[field])->unit;
            if (own != unit.value_or(own))
                return false;
            unit = own;
        }
        return true;
    }

    /// The place of the last digit; without decimals the coarsest one that all figures may be rounded to.
    void findLastDigit() {
        if (decimals_ > 0) {
            lastDigit_ = std::pow(10.0, -decimals_);
            return;
        }
        lastDigit_ = coarsest;
        const auto isRounded = [&](Field field) {
            return !numbers_[field] || std::fmod(*numbers_[field], lastDigit_) == 0;
        };
        while (lastDigit_ > 1 && !std::ranges::all_of(amountFields, isRounded))
            lastDigit_ /= 10;
    }

    /// Each of the three figures was rounded by itself.
    bool isSameRounded(double left, double right) const {
        return std::abs(left - right) <= (1.5 + slack) * lastDigit_;
    }

    bool isDeviationOfFigures() const {
        return !knows({FN, FRE, DE}) || isSameRounded((*this)[DE], (*this)[FRE] - (*this)[FN]);
    }

    bool isToleranceOfFigures() const {
        return !knows({FN, TT, FLL, FUL}) || isSameRounded((*this)[TT], (*this)[FN] - (*this)[FLL]) ||
               isSameRounded((*this)[TT], (*this)[FUL] - (*this)[FN]);
    }

    /// Rounding changes no order, but makes equal.
    bool isVerdictOfFigures() const {
        if (!has(TR))
            return true;
        const auto& verdict = fields_[TR];
        if (verdict != u"PASS" && verdict != u"FAIL")
            return false;
        if (!knows({FRE, FLL, FUL}))
            return true;
        if ((*this)[FLL] > (*this)[FUL])
            return false;
        const auto reading = (*this)[FRE];
        if (verdict == u"PASS")
            return reading >= (*this)[FLL] && reading <= (*this)[FUL];
        return reading <= (*this)[FLL] || reading >= (*this)[FUL];
    }

    bool takePercent() {
        const auto& text = fields_[ET];
        if (!has(ET))
            return true;
        const bool isOutOfScale = text == outOfScale;
        const qsizetype sign = text.startsWith(u'-') ? 1 : 0;
        const auto digits = digitsFrom(text, sign);
        if (!isOutOfScale && (digits == 0 || sign + digits != text.size()))
            return false;
        if (!knows({FN, FRE, DE, FLL, FUL}))
            return true;
        const auto reading = (*this)[FRE];
        const auto nominal = (*this)[FN];
        return (reading <= nominal && isPercentOf(text, isOutOfScale, nominal - (*this)[FLL], true)) ||
               (reading >= nominal && isPercentOf(text, isOutOfScale, (*this)[FUL] - nominal, false));
    }

    /// Compares the percentage with the error in parts of a half-width. One that rounds to nothing says
    /// nothing of it: then there is no number.
    bool isPercentOf(const QString& text, bool isOutOfScale, double halfWidth, bool isLowSide) {
        const auto deviation = (*this)[DE];
        if (isOutOfScale) {
            const auto largest = std::abs(deviation) + lastDigit_ / 2;
            const auto smallest = std::max(std::abs(halfWidth) - (1 + slack) * lastDigit_, 0.0);
            return largest * 100 >= percentOutOfScale * smallest;
        }
        if (std::abs(halfWidth) < lastDigit_ / 2)
            return true;
        const auto ratio = deviation / halfWidth * 100;
        const auto expected = isLowSide ? std::abs(ratio) : ratio;
        const auto percent = numericValue(text);
        if (std::abs(percent - expected) > percentRounding + percentPrecision * std::abs(expected))
            return false;
        numbers_[ET] = percent;
        return true;
    }

    const ResultTemplate& layout_;
    const LineFields& fields_;
    LineNumbers numbers_{};
    bool hasAmounts_ = false;
    int decimals_ = 0;
    double lastDigit_ = 1;
};

} // namespace

std::optional<LineNumbers> numbersOfLine(const ResultTemplate& layout, const LineFields& fields) {
    return Figures(layout, fields).read();
}

QString unitOf(const QString& field) {
    const auto amount = amountOf(field);
    return amount ? amount->unit.trimmed() : QString();
}

} // namespace kelvane
