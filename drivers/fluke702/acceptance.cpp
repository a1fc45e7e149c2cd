#include "drivers/fluke702/driver.h"
#include "drivers/fluke_acceptance.h"
#include "drivers/fluke_combinations.h"
#include "drivers/fluke_quantity.h"

namespace kelvane::Module702Interface {

namespace {

/// "Hz" is measured up to 20000 only, although the words of the refusal, and the rows of the other two units,
/// say 50 kHz.
constexpr FlukeLimits::Unit units[] = {
    {u"V", {-300, 300}, {-11, 11}},
    {u"mV", {-300000, 300000}, {-11000, 11000}},
    {u"uV", {-300000000, 300000000}, {-11000000, 11000000}},
    {u"Hz", {1, 20000}, {2, 50000}},
    {u"Mohms", {0, 0.011F}, {-FlukeLimits::unlimited, 0.011F}},
};

constexpr FlukeLimits::Sensor sensors[] = {
    {u"TC K", {-200, 1372}, {-328, 2501.6F}},
    {u"TC R", {0, 1767}, {32, 3212.6F}},
    {u"TC S", {0, 1767}, {32, 3212.6F}},
};

constexpr FlukeAcceptance acceptance{.routine = u"Module702Interface,Fluke702_acceptable",
                                     .limits = {units, sensors},
                                     .refusesIndicatedInput = true,
                                     .unknownInput = TextId::cannotSourceUnits,
                                     .refusesUnknownInput = true};

} // namespace

QString Fluke702_acceptable(Fluke702& driver, const QString& asset) {
    return flukeAcceptable(driver.session, acceptance, asset);
}

bool Fluke702_requires_standard(Fluke702& driver, const QString& asset) {
    const auto instrument = ModuleGlobals::GetCalParams(driver.session, asset);
    return !instrument.output_indicated &&
           (!isFlukeUnit(instrument.output_type) || flukeCannotCombine(instrument));
}

} // namespace kelvane::Module702Interface
