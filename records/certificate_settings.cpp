#include "records/certificate_settings.h"

#include "platform/error_report.h"

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

using Settings = CertificateSettings;

const auto section = u"Certificate"_s;
const auto ruleKey = u"DecisionRule"_s;
const auto guardBandKey = u"GuardBand"_s;
const auto paperKey = u"Paper"_s;
const auto usualFileName = u"{asset} {date}"_s;

struct TextSetting {
    QStringView key;
    QString Settings::*member;
};

constexpr TextSetting textSettings[] = {
    {u"Laboratory", &Settings::laboratory},
    {u"Address", &Settings::address},
    {u"Accreditation", &Settings::accreditation},
    {u"Customer", &Settings::customer},
    {u"Method", &Settings::method},
    {u"Traceability", &Settings::traceability},
    {u"Uncertainty", &Settings::uncertainty},
    {u"AuthorizedBy", &Settings::authorizedBy},
    {u"FileName", &Settings::fileName},
};

struct RuleName {
    QStringView name;
    DecisionRule rule;
};

constexpr RuleName ruleNames[] = {
    {u"None", DecisionRule::none},
    {u"SimpleAcceptance", DecisionRule::simpleAcceptance},
    {u"GuardBand", DecisionRule::guardBand},
};

std::optional<double> percentOf(const QString& text) {
    bool isNumber = false;
    const double percent = text.toDouble(&isNumber);
    return isNumber && percent >= 0 && percent <= 100 ? std::optional(percent) : std::nullopt;
}

void takeRule(Settings& settings, const QString& name, const QString& guardBand) {
    const auto* found = std::ranges::find(ruleNames, name, &RuleName::name);
    const auto rule = found == std::end(ruleNames) ? DecisionRule::none : found->rule;
    const auto percent = percentOf(guardBand);
    settings.guardBand = percent.value_or(0);
    settings.rule = rule == DecisionRule::guardBand && !percent ? DecisionRule::none : rule;
}

} // namespace

CertificateSettings certificateSettings(const Workstation& workstation) {
    const auto stored = [&](const QString& key) {
        return ModuleGlobals::GetRegSetting(workstation, section, key).trimmed();
    };
    Settings settings;
    for (const auto& setting : textSettings)
        settings.*setting.member = stored(setting.key.toString());
    if (settings.fileName.isEmpty())
        settings.fileName = usualFileName;
    takeRule(settings, stored(ruleKey), stored(guardBandKey));
    const auto paper = stored(paperKey);
    if (paper == u"A4" || paper == u"Letter")
        settings.paper = paper;
    return settings;
}

void storeCertificateSettings(const Workstation& workstation, const Settings& settings) {
    const auto store = [&](const QString& key, const QString& value) {
        ModuleGlobals::SaveRegSetting(workstation, section, key, value.trimmed());
    };
    for (const auto& setting : textSettings)
        store(setting.key.toString(), settings.*setting.member);
    store(ruleKey, std::ranges::find(ruleNames, settings.rule, &RuleName::rule)->name.toString());
    store(guardBandKey, QString::number(settings.guardBand));
    store(paperKey, settings.paper);
}

} // namespace kelvane
