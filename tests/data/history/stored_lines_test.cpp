#include "data/history/stored_lines.h"

#include "platform/values/numbers.h"
#include "testkit/fixtures.h"
#include "tests/data/tolerances/tolerance_points.h"

#include <random>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

using Reading = StoredLine::Reading;

const auto usual = u"TN$ FN$           FVA$          FRE$          TT$         DE$          ET$  TU$ CO$     "
                   u"    FLL$        FUL$      "
                   "  TR$"_s;

class StoredLines : public RecordedSession {
  protected:
    StoredLines() {
        session.ResultTemplateLine = usual;
        session.SubstTable[0] = {u"CO"_s, u"NOTIFY USER"_s, u"OUT OF TOL."_s};
        session.SubstTable[1] = {u"TU"_s, u"degC"_s, u"C   "_s};
    }

    /// A test point as the workstation judges it, somewhere in and around its limits.
    ErrorResult point() {
        static const QStringList digits{u"0.1"_s, u"0.01"_s, u"0.001"_s, u"1"_s, u"10"_s, u"0.5"_s};
        static const QStringList units{u"mA"_s, u"psig"_s, u"degC"_s, u"ft/lb"_s, u"inH2O"_s, u"V"_s};
        const auto any = [&](double from, double to) {
            return std::uniform_real_distribution<double>(from, to)(random_);
        };
        const auto index = [&](qsizetype size) { return static_cast<qsizetype>(any(0, 1) * double(size)); };
        Point p{};
        p.input_low = static_cast<float>(std::round(any(-50, 50)));
        p.input_high = p.input_low + static_cast<float>(std::round(any(1, 200)));
        p.output_low = static_cast<float>(std::round(any(-20, 20)));
        p.output_high = p.output_low + static_cast<float>(std::round(any(1, 300)));
        p.digits = digits[index(digits.size())];
        p.resolution = p.digits.toFloat();
        p.input_units = units[index(units.size())];
        p.output_units = units[index(units.size())];
        p.pos.span = static_cast<float>(any(0, 2));
        p.neg.span = static_cast<float>(any(0, 2));
        p.pos.lsd = static_cast<float>(std::round(any(0, 2)));
        p.input = any(p.input_low, p.input_high);
        const auto nominal =
            (p.input - p.input_low) / (p.input_high - p.input_low) * (p.output_high - p.output_low) +
            p.output_low;
        p.output = nominal + any(-0.06, 0.06) * (p.output_high - p.output_low);
        lastDigit = p.resolution;
        return calculate(session, p, static_cast<qint16>(1 + index(40)));
    }
    /// As they were before they were laid out, which has put blanks in front.
    static QStringList textsOf(const ErrorResult& result) {
        QStringList texts{result.nominal_text,   result.input_text, result.output_text,
                          result.tolerance_text, result.error_text, result.advice,
                          result.lower_text,     result.upper_text, result.verdict};
        for (auto& text : texts)
            text = text.trimmed();
        return texts;
    }
    static QStringList textsOf(const StoredLine& line) {
        using F = LineField;
        QStringList texts;
        for (const auto field : {F::nominal, F::applied, F::reading, F::tolerance, F::deviation, F::comment,
                                 F::lowLimit, F::highLimit, F::verdict})
            texts << line.field(field);
        return texts;
    }

    /// The resolution of the last point.
    double lastDigit = 0;

  private:
    std::mt19937 random_{20261123};
};

class StoredLinesInOtherTemplates : public StoredLines, public ::testing::WithParamInterface<QString> {};

} // namespace

TEST_F(StoredLines, ThatTheWorkstationHasJudgedAreReadAsItWroteThem) {
    int readable = 0;
    int percentages = 0;
    constexpr int count = 3000;
    for (int i = 0; i < count; ++i) {
        const auto result = point();
        const auto line = readStoredLine(session, result.result_line);
        EXPECT_EQ(line.text, result.result_line);
        ASSERT_EQ(line.reading, Reading::readable) << result.result_line.toStdString();
        ++readable;
        EXPECT_EQ(textsOf(line), textsOf(result));
        if (!result.upper_text.trimmed().isEmpty()) {
            EXPECT_EQ(line.number(LineField::reading), numericValue(result.output_text));
            EXPECT_EQ(line.number(LineField::deviation), numericValue(result.error_text));
            EXPECT_EQ(line.number(LineField::lowLimit), numericValue(result.lower_text));
        }
        if (const auto percent = line.number(LineField::percent)) {
            EXPECT_EQ(*percent, numericValue(result.percent_text));
            ++percentages;
        }
    }
    EXPECT_EQ(readable, count);
    EXPECT_GT(percentages, count / 2);
}

TEST_F(StoredLines, WithNothingInThemAreBlank) {
    EXPECT_EQ(readStoredLine(session, {}).reading, Reading::blank);
    EXPECT_EQ(readStoredLine(session, QString(120, u' ')).reading, Reading::blank);
}

TEST_F(StoredLines, WithoutATemplateAreTexts) {
    const auto text = point().result_line;
    session.ResultTemplateLine.clear();
    const auto line = readStoredLine(session, text);
    EXPECT_EQ(line.reading, Reading::withoutTemplate);
    EXPECT_EQ(line.text, text);
    EXPECT_EQ(line.field(LineField::reading), QString());
    EXPECT_FALSE(line.number(LineField::reading));
}

TEST_F(StoredLines, OfOtherProgramsAreTexts) {
    for (const auto& text :
         {u"  1  12.00mA       50.0psi"_s, u"As found: out of tolerance, adjusted."_s, u"PASS"_s,
          u"1;12.00;50.0;12.01;0.10;0.01;10;PASS"_s, u"  1 "_s, QString(300, u'x')}) {
        const auto line = readStoredLine(session, text);
        EXPECT_EQ(line.reading, Reading::unreadable) << text.toStdString();
        EXPECT_EQ(line.text, text);
        EXPECT_EQ(line.numbers, LineNumbers());
    }
}

/// A line that another template has written is a text, or gives the numbers that were written, within the
/// rounding by which they confirm each other.
TEST_P(StoredLinesInOtherTemplates, GiveNoWrongNumber) {
    for (int i = 0; i < 500; ++i) {
        session.ResultTemplateLine = usual;
        const auto result = point();
        const auto written = readStoredLine(session, result.result_line);
        session.ResultTemplateLine = GetParam();
        const auto line = readStoredLine(session, result.result_line);
        if (line.reading != Reading::readable)
            continue;
        for (std::size_t field = 0; field < resultFields.size(); ++field) {
            if (!line.numbers[field])
                continue;
            ASSERT_TRUE(written.numbers[field]) << result.result_line.toStdString();
            const bool isCount =
                field == std::size_t(LineField::number) || field == std::size_t(LineField::percent);
            EXPECT_NEAR(*line.numbers[field], *written.numbers[field], isCount ? 0 : 3.01 * lastDigit)
                << resultFields[field].code.toString().toStdString() << " of "
                << result.result_line.toStdString();
        }
    }
}

INSTANTIATE_TEST_SUITE_P(
    Changed, StoredLinesInOtherTemplates,
    ::testing::Values(
        // Columns a place to the left or right.
        u" TN$ FN$           FVA$          FRE$          TT$         DE$          ET$  TU$ CO$         FLL$        FUL$        TR$"_s,
        u"TN$ FN$           FVA$          FRE$         TT$         DE$          ET$  TU$ CO$         FLL$        FUL$        TR$"_s,
        // The limits in each other's columns; tolerance and error; nominal value and reading.
        u"TN$ FN$           FVA$          FRE$          TT$         DE$          ET$  TU$ CO$         FUL$        FLL$        TR$"_s,
        u"TN$ FN$           FVA$          FRE$          DE$         TT$          ET$  TU$ CO$         FLL$        FUL$        TR$"_s,
        u"TN$ FRE$          FVA$          FN$           TT$         DE$          ET$  TU$ CO$         FLL$        FUL$        TR$"_s,
        // Number and percentage.
        u"ET$ FN$           FVA$          FRE$          TT$         DE$          TN$  TU$ CO$         FLL$        FUL$        TR$"_s,
        // Without the tolerance: the reading would go on into its column.
        u"TN$ FN$           FVA$          FRE$                      DE$          ET$  TU$ CO$         FLL$        FUL$        TR$"_s));

} // namespace kelvane::testing
