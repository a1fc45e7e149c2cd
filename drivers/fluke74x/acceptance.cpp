#include "drivers/fluke74x/driver.h"
#include "drivers/fluke_acceptance.h"
#include "drivers/fluke_combinations.h"
#include "drivers/fluke_quantity.h"

namespace kelvane::Module74xInterface {

namespace {

/// The words of the refusals still say 11 V.
constexpr FlukeLimits::Unit units[] = {
    {u"V", {-300, 300}, {-15, 15}},
    {u"mV", {-300000, 300000}, {-15000, 15000}},
    {u"uV", {-300000000, 300000000}, {-15000000, 15000000}},
    {u"Hz", {1, 50000}, {2, 50000}},
    {u"Mohms", {0, 0.011F}, {-FlukeLimits::unlimited, 0.05F}},
};

/// The low ends of "TC K" are two different temperatures: -328 F is -200 C.
constexpr FlukeLimits::Sensor sensors[] = {
    {u"TC K", {-270, 1372}, {-328, 2501.6F}},
    {u"TC R", {-20, 1767}, {-4, 3212.6F}},
    {u"TC S", {-20, 1767}, {-4, 3212.6F}},
};

constexpr FlukeAcceptance acceptance{.routine = u"Module74xInterface,Fluke74x_acceptable",
                                     .limits = {units, sensors},
                                     .refusesIndicatedInput = false,
                                     .unknownInput = TextId::inputNotSourceable,
                                     .refusesUnknownInput = false};

} // namespace

QString Fluke74x_acceptable(Fluke74x& driver, const QString& asset) {
    return flukeAcceptable(driver.session, acceptance, asset);
}

bool Fluke74x_requires_standard(Fluke74x& driver, const QString& asset) {
    const auto instrument = ModuleGlobals::GetCalParams(driver.session, asset);
    const bool isReadByHand = !instrument.output_indicated && !isFlukeUnit(instrument.output_type);
    const bool isSourcedByHand = !instrument.input_indicated && !isFlukeUnit(instrument.input_type);
    const bool isIndicated = instrument.input_indicated && instrument.output_indicated;
    return isReadByHand || isSourcedByHand || (flukeCannotCombine(instrument) && !isIndicated);
}

} // namespace kelvane::Module74xInterface
