#include "drivers/fluke702/driver.h"
#include "drivers/fluke_acceptance.h"
#include "drivers/fluke_combinations.h"
#include "drivers/fluke_quantity.h"

namespace kelvane::Module702Interface {

namespace {

constexpr auto unlimited = FlukeLimits::unlimited;
constexpr auto never = FlukeLimits::never;

/// "Hz" is measured up to 20000 only, although the words of the refusal, and the other two rows, say 50 kHz.
constexpr FlukeLimits::Unit units[] = {
    {u"V", {-300, 300}, {-11, 11}},
    {u"mV", {-300000, 300000}, {-11000, 11000}},
    {u"uV", {-300000000, 300000000}, {-11000000, 11000000}},
    {u"VAC", {-300, 300}, never},
    {u"mVAC", {-300000, 300000}, never},
    {u"mA", {-110, 110}, {-22, 22}},
    {u"uA", {-110000, 110000}, {-22000, 22000}},
    {u"A", {-0.11F, 0.11F}, {-0.022F, 0.022F}},
    {u"Hz", {1, 20000}, {2, 50000}},
    {u"KHz", {0.001F, 50}, {0.002F, 50}},
    {u"MHz", {0.000001F, 0.05F}, {0.000002F, 0.05F}},
    {u"Ohms", {0, 11000}, {-unlimited, 11000}},
    {u"KOhms", {0, 11}, {-unlimited, 11}},
    {u"Mohms", {0, 0.011F}, {-unlimited, 0.011F}},
};

constexpr FlukeLimits::Sensor sensors[] = {
    {u"RTD PT100 3926", {-200, 630}, {-328, 1166}},
    {u"RTD PT100 385", {-200, 800}, {-328, 1472}},
    {u"RTD PT200 385", {-200, 630}, {-328, 1166}},
    {u"RTD PT500 385", {-200, 630}, {-328, 1166}},
    {u"RTD PT1000 385", {-200, 630}, {-328, 1166}},
    {u"RTD PT100 3916", {-200, 630}, {-328, 1166}},
    {u"RTD NI120 672", {-80, 260}, {-112, 500}},
    {u"RTD CU10 427", {-100, 260}, {-148, 500}},
    {u"TC E", {-250, 1000}, {-418, 1832}},
    {u"TC N", {-200, 1300}, {-328, 2372}},
    {u"TC J", {-210, 1200}, {-346, 2192}},
    {u"TC K", {-200, 1372}, {-328, 2501.6F}},
    {u"TC T", {-250, 400}, {-418, 752}},
    {u"TC B", {600, 1820}, {1112, 3308}},
    {u"TC R", {0, 1767}, {32, 3212.6F}},
    {u"TC S", {0, 1767}, {32, 3212.6F}},
    {u"TC C", {0, 2316}, {32, 4200.8F}},
    {u"TC L", {-200, 900}, {-328, 1652}},
    {u"TC U", {-200, 600}, {-328, 1112}},
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
