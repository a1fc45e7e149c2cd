#include "admin/past_instruments.h"

namespace kelvane::admin {

namespace {

constexpr QStringView ownLaboratory = u"IN-HOUSE";

constexpr WayOfCalibration certificate{{}, u"NATIONAL LABORATORY", u"CERTIFICATE", u"VENDOR", 0, u"rvargas"};
constexpr WayOfCalibration steam{
    {u"F744-01", u"PM-P500"}, ownLaboratory, u"KP-PRESSURE-01", u"IN PLACE", 0.002};
constexpr WayOfCalibration water{
    {u"F744-02", u"PM-P500"}, ownLaboratory, u"KP-PRESSURE-01", u"IN PLACE", 0.002};
constexpr WayOfCalibration flow{
    {u"F744-01", u"PM-P005"}, ownLaboratory, u"KP-PRESSURE-02", u"IN PLACE", 0.002};
constexpr WayOfCalibration boilerTemperature{{u"F744-01"}, ownLaboratory, u"KP-TEMPERATURE-01", u"IN PLACE"};
constexpr WayOfCalibration waterTemperature{{u"F744-02"}, ownLaboratory, u"KP-TEMPERATURE-01", u"IN PLACE"};
constexpr WayOfCalibration valve{{u"F744-02", u"PM-P030"}, ownLaboratory, u"KP-LOOP-01", u"LAB"};
constexpr WayOfCalibration panel{{u"DMM-P01"}, ownLaboratory, u"KP-LOOP-02", u"IN PLACE"};
constexpr WayOfCalibration gauge{{u"PM-P500"}, ownLaboratory, u"KP-PRESSURE-03", u"LAB", 0.002};

constexpr Behaviour steady{};
constexpr Behaviour noisy{.noise = 0.55};
/// In limits for all the years, though not for ever.
constexpr Behaviour slowlyUp{.driftPerYear = 0.1, .noise = 0.04};
constexpr Behaviour slowlyDown{.driftPerYear = -0.1, .noise = 0.04};
/// Out of limits every few years, and adjusted then.
constexpr Behaviour up{.driftPerYear = 0.5};
constexpr Behaviour down{.driftPerYear = -0.5};
constexpr Behaviour quicklyUp{.driftPerYear = 0.9};
constexpr Behaviour quicklyDown{.driftPerYear = -0.9};
constexpr Behaviour jumping{.jump = 1.7, .yearsSinceJump = 2.4};
constexpr Behaviour neverIn{.lasting = 1.9};

constexpr PastInstrument instruments[] = {
    {u"B1-PT-01", &steam, steady},
    {u"B1-PT-02", &steam, slowlyUp},
    {u"B1-PT-03", &steam, steady},
    {u"B2-PT-01", &steam, down},
    {u"B2-PT-02", &steam, steady},
    {u"B2-PT-03", &steam, jumping},
    {u"B1-FT-01", &flow, steady},
    {u"B1-FT-02", &flow, up},
    {u"B2-FT-01", &flow, noisy},
    {u"B2-FT-02", &flow, steady, true},
    {u"WT-FT-01", &flow, slowlyDown},
    {u"WT-FT-02", &flow, steady},
    {u"B1-LT-01", &flow, quicklyUp},
    {u"B1-LT-02", &flow, steady},
    {u"B2-LT-01", &flow, noisy},
    {u"B2-LT-02", &flow, quicklyDown},
    {u"B1-TT-01", &boilerTemperature, steady},
    {u"B2-TT-01", &boilerTemperature, steady},
    {u"CT-TT-01", &waterTemperature, slowlyUp},
    {u"CT-TT-02", &waterTemperature, steady},
    {u"CT-TT-03", &waterTemperature, steady, true},
    {u"CT-TT-04", &waterTemperature, up},
    {u"B1-TT-11", &boilerTemperature, quicklyDown},
    {u"B1-TT-12", &boilerTemperature, steady},
    {u"B2-TT-11", &boilerTemperature, down},
    {u"B2-TT-12", &boilerTemperature, noisy},
    {u"B1-FY-01", &valve, steady},
    {u"B2-FY-01", &valve, up},
    {u"WT-FY-01", &valve, steady},
    {u"WT-FY-02", &valve, slowlyDown},
    {u"B1-LI-01", &panel, steady},
    {u"B2-LI-01", &panel, steady},
    {u"CT-TI-01", &panel, noisy},
    {u"WT-FI-01", &panel, steady},
    {u"WT-PT-01", &water, steady},
    {u"WT-PT-02", &water, down},
    {u"WT-PT-03", &water, steady},
    {u"CT-PT-01", &water, slowlyUp},
    {u"WT-PG-01", &gauge, neverIn},
    {u"CT-PG-01", &gauge, steady, true},
};

/// One of the modules leaves its limits within the years: everything calibrated with it is in question then.
constexpr PastInstrument standards[] = {
    {u"F744-01", &certificate, steady}, {u"F744-02", &certificate, steady},
    {u"PM-P500", &certificate, up},     {u"PM-P005", &certificate, steady},
    {u"PM-P030", &certificate, steady}, {u"DMM-P01", &certificate, slowlyUp},
};

} // namespace

std::span<const PastInstrument> pastInstruments() {
    return instruments;
}

std::span<const PastInstrument> pastStandards() {
    return standards;
}

} // namespace kelvane::admin
