#include "drivers/fluke_judgement.h"

#include "data/tolerances/checked_arithmetic.h"
#include "resources/strings.h"
#include "resources/text_id.h"

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// The title and the words of a box.
struct DisagreementText {
    TextId title;
    TextId words;
};

constexpr DisagreementText instrumentFailed{TextId::instrumentFailed, TextId::calibratorReportedPass};
constexpr DisagreementText instrumentPassed{TextId::instrumentPassed, TextId::calibratorReportedFail};

void showDisagreement(Session& session, const QString& asset, const DisagreementText& disagreement) {
    session.ui.messageBox(text(TextId::judgedInstrument) + u' ' + asset + u"\r\n\r\n"_s +
                              text(disagreement.words),
                          text(disagreement.title), box::warning);
}

} // namespace

void RunJudgement::take(int entry, double applied, double reading, double calibratorError) {
    // A reading that is no number can't be judged, and what has no verdict must not pass.
    readingSum_ = finite(readingSum_ + reading);
    appliedSum_ = finite(appliedSum_ + applied);
    compare(judgePoint(session_, instrument_, applied, reading, entry + 1), reading, calibratorError);
    ++taken_;
    if (taken_ >= instrument_.repetitions)
        closePoint(entry);
}

void RunJudgement::compare(const ErrorResult& result, double reading, double calibratorError) {
    const double error = std::abs(calibratorError);
    const bool within = reading <= result.upper_limit && reading >= result.lower_limit;
    if (error <= tolerance_ && !within)
        calibratorSaysPass_ = true;
    if (error > tolerance_ && within)
        calibratorSaysFail_ = true;
}

void RunJudgement::closePoint(int entry) {
    const double repetitions = instrument_.repetitions;
    const double applied = divide(appliedSum_, repetitions);
    const double reading = divide(readingSum_, repetitions);
    const int point = (entry + 1) / instrument_.repetitions;
    takePoint(record_, counts_, judgePoint(session_, instrument_, applied, reading, point), point);
    taken_ = 0;
    appliedSum_ = 0;
    readingSum_ = 0;
}

void RunJudgement::showDisagreements(const QString& asset) const {
    if (calibratorSaysPass_)
        showDisagreement(session_, asset, instrumentFailed);
    if (calibratorSaysFail_)
        showDisagreement(session_, asset, instrumentPassed);
}

} // namespace kelvane
