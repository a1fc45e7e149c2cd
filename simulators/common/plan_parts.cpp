#include "simulators/common/plan_parts.h"

#include "simulators/common/failure.h"

#include <QFile>

#include <cmath>

using namespace Qt::StringLiterals;

namespace kelvane::simulators {

std::vector<double> numbersOf(const QString& text, const QString& what) {
    std::vector<double> numbers;
    for (const QString& part : text.split(u',')) {
        bool read = false;
        const double number = part.trimmed().toDouble(&read);
        if (!read || !std::isfinite(number))
            throw Failure(u"%1: \"%2\" is no number"_s.arg(what, part.trimmed()));
        numbers.push_back(number);
    }
    return numbers;
}

std::vector<double> deviationsFor(std::size_t readings, std::vector<double> deviations) {
    if (deviations.size() == readings)
        return deviations;
    if (deviations.size() > 1)
        throw Failure(u"%1 deviations for %2 readings"_s.arg(deviations.size()).arg(readings));
    return std::vector<double>(readings, deviations.empty() ? 0.0 : deviations.front());
}

QDateTime momentOf(const QString& text) {
    for (const QString& form : {u"yyyy-MM-dd H:mm:ss"_s, u"yyyy-MM-dd H:mm"_s}) {
        QDateTime moment = QDateTime::fromString(text.simplified(), form);
        // Wall-clock time is counted on as it is written; a change to summer time is none of the
        // calibrator's.
        moment.setTimeSpec(Qt::UTC);
        if (moment.isValid())
            return moment;
    }
    throw Failure(u"\"%1\" is no moment such as 2026-11-21 09:30:00"_s.arg(text));
}

bool isAsLeft(const QString& round) {
    if (!round.isEmpty() && round != "as-found"_L1 && round != "as-left"_L1)
        throw Failure(u"\"%1\" is no round: it is as-found or as-left"_s.arg(round));
    return round == "as-left"_L1;
}

PlanLine::PlanLine(const QString& line, const QString& form) : parts_(line.split(u';')) {
    if (parts_.size() > form.split(u';').size())
        throw Failure(u"a line is %1, all but the tag may be missing"_s.arg(form));
}

std::vector<double> PlanLine::numbers(qsizetype place, const QString& what) const {
    return text(place).isEmpty() ? std::vector<double>{} : numbersOf(text(place), what);
}

std::optional<QDateTime> PlanLine::moment(qsizetype place) const {
    return text(place).isEmpty() ? std::nullopt : std::optional(momentOf(text(place)));
}

QString PlanLine::tag(qsizetype longest) const {
    QString first = text(0).left(longest);
    if (first.isEmpty())
        throw Failure(u"the tag is missing"_s);
    return first;
}

QString planAt(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw Failure(u"The plan %1 can't be read: %2"_s.arg(path, file.errorString()));
    return QString::fromUtf8(file.readAll());
}

void readPlan(const QString& plan, const std::function<void(const QString& line)>& take) {
    const QStringList lines = plan.split(u'\n');
    for (qsizetype number = 0; number < lines.size(); ++number) {
        const QString line = lines[number].trimmed();
        if (line.isEmpty() || line.startsWith(u'#'))
            continue;
        try {
            take(line);
        } catch (const Failure& failure) {
            throw Failure(u"line %1 of the plan: %2"_s.arg(number + 1).arg(failure.text()));
        }
    }
}

} // namespace kelvane::simulators
