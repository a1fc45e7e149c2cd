#include "drivers/judgement.h"

#include "platform/values/numbers.h"

namespace kelvane {

ErrorResult judgePoint(Session& session, const CalParamRecord& instrument, double applied, double reading,
                       int point) {
    return ModuleGlobals::ErrorCalculation(
        session, applied, reading, instrument.input_low, instrument.input_high, instrument.output_high,
        instrument.output_low, plainText(instrument.resolution), instrument.input_type,
        instrument.output_type, instrument.pos_fs_range_pct, instrument.pos_span_pct,
        instrument.pos_reading_pct, instrument.pos_lsd_counts, instrument.pos_units,
        instrument.neg_fs_range_pct, instrument.neg_span_pct, instrument.neg_reading_pct,
        instrument.neg_lsd_counts, instrument.neg_units, instrument.resolution, static_cast<qint16>(point));
}

void takePoint(CalRecord& record, PointCounts& counts, const ErrorResult& result, int point) {
    if (result.verdict == u"FAIL")
        ++counts.failures;
    if (result.advice == u"MARGINAL")
        ++counts.marginals;
    record.RecordResults[point - 1] = result.result_line;
}

} // namespace kelvane
