#include "data/cal_params.h"
#include "data/routine.h"
#include "drivers/torquestar/codes.h"
#include "drivers/torquestar/torquestar.h"
#include "resources/strings.h"

using namespace Qt::StringLiterals;

namespace kelvane::ModuleTSInterface {

namespace {

QString objection(const CalParamRecord& instrument) {
    if (instrument.input_indicated)
        return text(641);
    if (instrument.output_indicated)
        return text(1053);
    if (instrument.transducer_type_out == u"Serial")
        return {};
    if (!codeOf(unitCodes, instrument.input_type))
        return text(1054);
    if (!codeOf(unitCodes, instrument.output_type))
        return text(1055);
    return {};
}

} // namespace

QString TorqueStar_acceptable(TorqueStar& driver, const QString& asset) {
    QString result;
    const BusyPointer busy(driver.session.ui);
    Routine routine(driver.session, u"ModuleTSInterface,TorqueStar_acceptable"_s);
    routine.run([&] { result = objection(ModuleGlobals::GetCalParams(driver.session, asset)); });
    return result;
}

bool TorqueStar_requires_standard(TorqueStar&, const QString&) {
    return true;
}

} // namespace kelvane::ModuleTSInterface
