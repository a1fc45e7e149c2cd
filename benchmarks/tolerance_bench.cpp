// One judged test point with all its texts and its report line, against a bare loop that formats the same
// nine numbers with std::snprintf, the standard library's ordinary way; std::to_chars, which only copies
// digits into a buffer, is shown beside it.

#include "data/tolerances/tolerances.h"
#include "testkit/fixtures.h"
#include "testkit/quiet_operator.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <limits>
#include <vector>

using namespace Qt::StringLiterals;

namespace kelvane::bench {

namespace {

constexpr int readings = 1000;
constexpr int sweeps = 20;
constexpr int rounds = 15;
constexpr int decimals = 2;

/// The numbers of one point as they appear in its texts.
struct Numbers {
    std::array<double, 7> values;
    double percent;
    int line;
};

/// Adds up what the loops produce, so that none of it is left out.
std::size_t produced = 0;

/// A loop temperature transmitter, 0 to 150 C on 4 to 20 mA, read once at each of many points.
class Points {
  public:
    Points() : session_({ui_, clock_, settings_}, [] { return std::unique_ptr<Connection>(); }) {
        session_.ResultTemplateLine =
            u"TN$ FN$           FVA$          FRE$          TT$         DE$          "
            "ET$  TU$ CO$         FLL$        FUL$        TR$"_s;
    }

    ErrorResult judge(int reading) {
        const double input = 150.0 * reading / readings;
        const double output = 4 + 16 * input / 150 + 0.0007 * (reading % 100) - 0.035;
        return ModuleGlobals::ErrorCalculation(session_, input, output, 0, 150, 20, 4, digits_, inputUnits_,
                                               outputUnits_, 0.1F, 0.2F, 0.05F, 1, 0.01F, 0.1F, 0.2F, 0.05F,
                                               1, 0.01F, 0.01F, static_cast<qint16>(reading));
    }

    Numbers numbersOf(int reading) {
        const auto result = judge(reading);
        const double input = 150.0 * reading / readings;
        const double output = result.nominal + result.error;
        return {{result.nominal, output, input, result.upper_limit, result.lower_limit, result.error,
                 result.upper_limit - result.nominal},
                result.percent,
                reading};
    }

  private:
    testing::QuietOperator ui_;
    testing::SetClock clock_;
    testing::MemorySettings settings_;
    Session session_;
    QString digits_ = u"0.01"_s;
    QString inputUnits_ = u" C"_s;
    QString outputUnits_ = u" mA"_s;
};

void formatWithPrintf(const Numbers& numbers) {
    std::array<char, 64> text;
    for (const double value : numbers.values)
        produced +=
            static_cast<std::size_t>(std::snprintf(text.data(), text.size(), "%.*f", decimals, value));
    produced += static_cast<std::size_t>(std::snprintf(text.data(), text.size(), "%.0f", numbers.percent));
    produced += static_cast<std::size_t>(std::snprintf(text.data(), text.size(), "%d", numbers.line));
}

void formatWithToChars(const Numbers& numbers) {
    std::array<char, 64> text;
    char* const end = text.data() + text.size();
    for (const double value : numbers.values)
        produced += static_cast<std::size_t>(
            std::to_chars(text.data(), end, value, std::chars_format::fixed, decimals).ptr - text.data());
    produced += static_cast<std::size_t>(
        std::to_chars(text.data(), end, numbers.percent, std::chars_format::fixed, 0).ptr - text.data());
    produced += static_cast<std::size_t>(std::to_chars(text.data(), end, numbers.line).ptr - text.data());
}

/// Seconds for one point, taken over all readings.
template <class Work>
double seconds(Work&& work) {
    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    for (int sweep = 0; sweep < sweeps; ++sweep) {
        for (int reading = 0; reading < readings; ++reading)
            work(reading);
    }
    return std::chrono::duration<double>(Clock::now() - start).count() / (sweeps * readings);
}

int run() {
    Points points;
    std::vector<Numbers> numbers;
    for (int reading = 0; reading < readings; ++reading)
        numbers.push_back(points.numbersOf(reading));

    // The best of several rounds taken in turn: what else the machine does falls on all three alike.
    double judged = std::numeric_limits<double>::max();
    double printed = judged;
    double copied = judged;
    for (int round = 0; round < rounds; ++round) {
        judged = std::min(judged, seconds([&](int reading) {
                              produced += static_cast<std::size_t>(points.judge(reading).result_line.size());
                          }));
        printed =
            std::min(printed, seconds([&](int reading) { formatWithPrintf(numbers[std::size_t(reading)]); }));
        copied =
            std::min(copied, seconds([&](int reading) { formatWithToChars(numbers[std::size_t(reading)]); }));
    }
    std::printf(
        "tolerance: %.2f times nine numbers with snprintf (aim 0.8 or less), %.2f times with to_chars\n",
        judged / printed, judged / copied);
    std::printf("tolerance: %.0f points a second, %.2f us each; snprintf %.2f us, to_chars %.2f us\n",
                1 / judged, judged * 1E6, printed * 1E6, copied * 1E6);
    return produced > 0 ? 0 : 1;
}

} // namespace

} // namespace kelvane::bench

int main() {
    return kelvane::bench::run();
}
