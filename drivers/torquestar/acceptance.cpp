#include "data/parameters/cal_params.h"
#include "data/routine.h"
#include "drivers/torquestar/codes.h"
#include "drivers/torquestar/driver.h"
#include "resources/strings.h"
#include "resources/text_id.h"

using namespace Qt::StringLiterals;

namespace kelvane::ModuleTSInterface {

namespace {

QString objection(const CalParamRecord& instrument) {
    if (instrument.input_indicated)
        return text(TextId::indicatedInputUnsupported);
    if (instrument.output_indicated)
        return text(TextId::indicatedOutputUnsupported);
    if (instrument.transducer_type_out == u"Serial")
        return {};
    if (!codeOf(unitCodes, instrument.input_type))
        return text(TextId::inputUnitsNotAccepted);
    if (!codeOf(unitCodes, instrument.output_type))
        return text(TextId::outputUnitsNotAccepted);
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
