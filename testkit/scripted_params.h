#pragma once

#include "testkit/recording_connection.h"

namespace kelvane::testing {

/// The statement that reads the parameters of an asset.
inline QString calParamsStatement(const QString& owner, const QString& asset) {
    return QStringLiteral(u"select repetitions,(select count(test_point_pct) from mt.hvm_kv_proc_points "
                          "where mt.hvm_kv_proc_points.tp_name = mt.hvm_kv_tag_config.tp_name),"
                          "resolution,input_type,output_type,input_high,input_low,output_high,"
                          "output_low,neg_fs_range_pct,pos_fs_range_pct,neg_span_pct,pos_span_pct,"
                          "neg_reading_pct,pos_reading_pct,neg_lsd_counts,pos_lsd_counts,neg_units,"
                          "pos_units,mt.hvm_kv_tag_config.mtag,baud_rate_out,cj_ref_temp_in,"
                          "cj_ref_temp_out,cj_ref_type_in,cj_ref_type_out,click_dip_torque_out,"
                          "cycle_end_time_out,data_bits_out,data_parity_out,frequency_response_out,"
                          "measurement_direction_out,measurement_mode_out,stop_bits_out,temp_scale_in,"
                          "temp_scale_out,temp_sens_type_in,temp_sens_type_out,temp_sens_wires_in,"
                          "temp_sens_wires_out,threshold_torque_out,mt.hvm_kv_tag_config.tp_name,"
                          "transducer_type_out,(select max(test_point_pct) from mt.hvm_kv_proc_points "
                          "where mt.hvm_kv_proc_points.tp_name = mt.hvm_kv_tag_config.tp_name),loop_pwr,"
                          "freq_ptpamp_in,freq_ptpamp_out,input_indicated,output_indicated  from "
                          "mt.hvm_kv_tag_config,mt.hvm_kv_proc_points,") +
           owner + QStringLiteral(u".inventory where i4201='") + asset + QStringLiteral(u"' and ") + owner +
           QStringLiteral(u".inventory.mtag=mt.hvm_kv_tag_config.mtag");
}

/// A row of parameters in the order of the select list. Each text differs from every other, so that none can
/// stand for another.
inline Row calParamsRow() {
    const char16_t* texts[] = {
        u"2",        // 0: repetitions
        u"3",        // 1: points of the strategy
        u"0.01",     // 2: resolution
        u"psi",      // 3: input_type
        u"mA",       // 4: output_type
        u"100",      // 5: input_high
        u"-15.5",    // 6: input_low
        u"20",       // 7: output_high
        u"4",        // 8: output_low
        u"0.1",      // 9: neg_fs_range_pct
        u"0.2",      // 10: pos_fs_range_pct
        u"0.3",      // 11: neg_span_pct
        u"0.4",      // 12: pos_span_pct
        u"0.5",      // 13: neg_reading_pct
        u"0.6",      // 14: pos_reading_pct
        u"7",        // 15: neg_lsd_counts
        u"8",        // 16: pos_lsd_counts
        u"0.9",      // 17: neg_units
        u"1.1",      // 18: pos_units
        u"4711",     // 19: mtag
        u"9600",     // 20: baud_rate_out
        u"21.5",     // 21: cj_ref_temp_in
        u"22.5",     // 22: cj_ref_temp_out
        u"INT",      // 23: cj_ref_type_in
        u"EXT",      // 24: cj_ref_type_out
        u"1.25",     // 25: click_dip_torque_out
        u"0.5 s",    // 26: cycle_end_time_out
        u"8 bits",   // 27: data_bits_out
        u"Even",     // 28: data_parity_out
        u"1676",     // 29: frequency_response_out
        u"Right",    // 30: measurement_direction_out
        u"Peak",     // 31: measurement_mode_out
        u"1 bit",    // 32: stop_bits_out
        u"ITS-90",   // 33: temp_scale_in
        u"IPTS-68",  // 34: temp_scale_out
        u"K",        // 35: temp_sens_type_in
        u"PT100",    // 36: temp_sens_type_out
        u"12",       // 37: temp_sens_wires_in
        u"14",       // 38: temp_sens_wires_out
        u"2.75",     // 39: threshold_torque_out
        u"Three up", // 40: tp_name
        u"Serial",   // 41: transducer_type_out
        u"110",      // 42: largest percentage
        u"24V",      // 43: loop_pwr
        u"5.5",      // 44: freq_ptpamp_in
        u"6.5",      // 45: freq_ptpamp_out
        u"Y",        // 46: input_indicated
        u"N",        // 47: output_indicated
    };
    Row row;
    for (const auto* text : texts)
        row << QString::fromUtf16(text);
    return row;
}

} // namespace kelvane::testing
