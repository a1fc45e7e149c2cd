#include "testkit/recorded_calls.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

QString displayText(const float* points, qsizetype count) {
    QStringList fractions;
    std::for_each(points, points + count, [&](float point) { fractions << displayText(point); });
    return fractions.join(u' ');
}

QStringList RecordedCalls::callsOf(const QString& operation) const {
    return calls.filter(QRegularExpression(u"^%1\\("_s.arg(operation)));
}

QStringList RecordedCalls::argumentsOf(const QString& operation) const {
    QStringList list;
    for (const auto& call : callsOf(operation))
        list << call.sliced(operation.size() + 1).chopped(1);
    return list;
}

QStringList RecordedCalls::operations() const {
    QStringList names;
    for (const auto& call : calls)
        names << call.section(u'(', 0, 0);
    return names;
}

void RecordedCalls::answer(const QString& operation, qint16 status, int occasion) {
    answers_[operation] << Answer{status, occasion};
}

qint16 RecordedCalls::statusOf(const QString& operation) {
    qint16 status = 0;
    for (auto& answer : answers_[operation]) {
        if (answer.occasion == 0 || answer.occasion == 1)
            status = answer.status;
        if (answer.occasion > 0 && --answer.occasion == 0)
            answer.occasion = -1;
    }
    return status;
}

qint16 RecordedCalls::recordLine(const QString& operation, const QStringList& arguments) {
    calls << operation + u'(' + arguments.join(u", "_s) + u')';
    if (onCall)
        onCall(operation);
    return statusOf(operation);
}

/// The text and its zero, over the beginning of the buffer; never more than the buffer holds.
void RecordedCalls::put(QString& buffer, const QString& value) const {
    if (writeText) {
        buffer = writeText(value, buffer);
        return;
    }
    const auto written = (value + QChar(0)).left(buffer.size());
    buffer.replace(0, written.size(), written);
}

QString RecordedCalls::answerQuestion() const {
    if (onQuestion)
        onQuestion();
    return reasonMissing;
}

} // namespace kelvane::testing
