#include "testkit/fluke_lab.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

CalParamRecord FlukeLab::instrument(const QString& inputType, float inputLow, float inputHigh,
                                    const QString& outputType, float outputLow, float outputHigh) {
    CalParamRecord record;
    record.repetitions = 1;
    record.test_point_count = 1;
    record.resolution = 0.01F;
    record.input_type = inputType;
    record.input_low = inputLow;
    record.input_high = inputHigh;
    record.output_type = outputType;
    record.output_low = outputLow;
    record.output_high = outputHigh;
    record.neg_span_pct = record.pos_span_pct = 0.5F;
    record.cj_ref_type_in = record.cj_ref_type_out = u"INT"_s;
    record.tp_name = u"LINEARITY"_s;
    record.max_test_point_pct = 100;
    record.loop_pwr = u"OFF"_s;
    record.freq_ptpamp_in = 10;
    return record;
}

CalParamRecord FlukeLab::transmitter() {
    auto record = instrument(u"psi"_s, 0, 100, u"mA"_s, 4, 20);
    record.loop_pwr = u"24V"_s;
    return record;
}

} // namespace kelvane::testing
