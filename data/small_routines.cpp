#include "data/small_routines.h"

#include "data/routine.h"
#include "platform/values/texts.h"

#include <chrono>
#include <random>

using namespace Qt::StringLiterals;

namespace kelvane::ModuleGlobals {

namespace {

/// The clock in its finest step: a whole second would give two packages of one second the same tag.
std::uint_fast64_t clockSeed() {
    const auto sinceEpoch = std::chrono::system_clock::now().time_since_epoch();
    return static_cast<std::uint_fast64_t>(
        std::chrono::duration_cast<std::chrono::nanoseconds>(sinceEpoch).count());
}

bool isDigitOrCapital(char16_t code) {
    return (code >= u'0' && code <= u'9') || (code >= u'A' && code <= u'Z');
}

} // namespace

QString SQLSafe(const QString& text) {
    return QString(text).replace(u'\'', u"''"_s);
}

QString CleanDLLString(const QString& text) {
    const auto end = text.indexOf(QChar(u'\0'));
    return trimBlanks(end < 0 ? QStringView(text) : QStringView(text).left(end));
}

QString DPCsafePrompt(const QString& text) {
    return text;
}

QString RandomString(Session& session, qint16 length) {
    QString result;
    Routine routine(session, u"ModuleGlobals,RandomString"_s);
    routine.run([&] {
        std::mt19937_64 generator(clockSeed());
        std::uniform_real_distribution<double> fraction(0, 1);
        while (result.size() < length) {
            const auto code = static_cast<char16_t>(static_cast<int>(fraction(generator) * 43) + 48);
            if (isDigitOrCapital(code))
                result += QChar(code);
        }
    });
    return result;
}

double CheckSum(Session& session, const QString& text) {
    double sum = 0;
    Routine routine(session, u"ModuleGlobals,CheckSum"_s);
    routine.run([&] {
        const BusyPointer busy(session.ui);
        double position = 0;
        for (const auto code : text.toUcs4())
            sum += code + ++position;
    });
    return sum;
}

} // namespace kelvane::ModuleGlobals
