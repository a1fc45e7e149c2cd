#include "drivers/fluke702/download_item.h"

#include "drivers/fluke702/mode.h"

namespace kelvane::Module702Interface {

namespace {

constexpr FlukeTaskWords::Word pressureWords[] = {
    {u"psi", u"psi"},    {u"psig", u"psi"}, {u"inHg", u"in_hg"}, {u"inH2O", u"in_h2o"},
    {u"mmHg", u"mm_hg"}, {u"kPa", u"kpa"},  {u"bar", u"bar"},    {u"mbar", u"bar"},
};

constexpr FlukeTaskWords::Word loopWords[] = {{u"OFF", u"off"}, {u"24V", u"24v"}, {u"28V", u"28v"}};

constexpr FlukeTaskWords words{.mode = get702mode,
                               .strategyNameLength = 13,
                               .measuredJunction = u"measure",
                               .givenJunction = u"user",
                               .ipts68 = u"ipts68",
                               .its90 = u"its90",
                               .temperatureScale = &CalParamRecord::temp_scale_in,
                               .pressures = pressureWords,
                               .loops = loopWords,
                               .loopOff = u"off"};

} // namespace

Download702Item gatherItem(Session& session, const AssetEntry& entry) {
    return {flukeDownloadItem(words, entry, ModuleGlobals::GetCalParams(session, entry.asset))};
}

} // namespace kelvane::Module702Interface
