#include "records/certificate_names.h"

#include "platform/values/texts.h"
#include "records/file_names.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

const auto suffix = u".pdf"_s;

struct Part {
    QStringView name;
    QString CertificateNaming::*member;
};

constexpr Part parts[] = {
    {u"asset", &CertificateNaming::asset},
    {u"date", &CertificateNaming::date},
    {u"number", &CertificateNaming::number},
    {u"serial", &CertificateNaming::serial},
};

/// What stands in a value is no part of the rule.
QString filled(const QString& rule, const CertificateNaming& naming) {
    static const QRegularExpression field(u"\\{(asset|date|number|serial)\\}"_s);
    QString name;
    qsizetype end = 0;
    for (auto matches = field.globalMatch(rule); matches.hasNext();) {
        const auto match = matches.next();
        const auto* part = std::ranges::find(parts, match.capturedView(1), &Part::name);
        name += rule.mid(end, match.capturedStart() - end) + naming.*part->member;
        end = match.capturedEnd();
    }
    return name + rule.mid(end);
}

} // namespace

CertificateNaming certificateNaming(const Session& session, const CertifiedCalibration& calibration) {
    return {.asset = withoutBlanksAtEnd(calibration.instrument.asset),
            .date = certificateDate(calibration),
            .number = certificateNumber(session, calibration),
            .serial = calibration.instrument.serial};
}

QString CertificateNames::next(const CertificateNaming& naming) {
    auto rule = rule_.trimmed();
    if (rule.endsWith(suffix, Qt::CaseInsensitive))
        rule.chop(suffix.size());
    auto name = safeFileName(filled(rule, naming));
    if (name.isEmpty())
        name = safeFileName(naming.number);
    auto numbered = name;
    for (int number = 2; given_.contains(numbered.toLower()); ++number)
        numbered = u"%1 (%2)"_s.arg(name, QString::number(number));
    given_ << numbered.toLower();
    return numbered + suffix;
}

} // namespace kelvane
