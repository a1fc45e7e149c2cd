#pragma once

#include "data/session.h"

#include <QList>

namespace kelvane {

class Routine;
class Sql;

/// All calibration parameters of one instrument: a row of `mt.hvm_kv_tag_config` and a few derived values.
/// The zeroed record is that of an instrument without configuration.
struct CalParamRecord {
    float resolution = 0;
    QString input_type;
    QString output_type;
    float input_high = 0;
    float input_low = 0;
    qint16 test_point_count = 0;
    float output_high = 0;
    float output_low = 0;
    float neg_fs_range_pct = 0;
    float pos_fs_range_pct = 0;
    float neg_span_pct = 0;
    float pos_span_pct = 0;
    float neg_reading_pct = 0;
    float pos_reading_pct = 0;
    float neg_lsd_counts = 0;
    float pos_lsd_counts = 0;
    float neg_units = 0;
    float pos_units = 0;
    qint16 repetitions = 0;
    QString mtag;
    QString baud_rate_out;
    float cj_ref_temp_in = 0;
    float cj_ref_temp_out = 0;
    QString cj_ref_type_in;
    QString cj_ref_type_out;
    float click_dip_torque_out = 0;
    QString cycle_end_time_out;
    QString data_bits_out;
    QString data_parity_out;
    QString frequency_response_out;
    QString measurement_direction_out;
    QString measurement_mode_out;
    QString stop_bits_out;
    QString temp_scale_in;
    QString temp_scale_out;
    QString temp_sens_type_in;
    QString temp_sens_type_out;
    qint16 temp_sens_wires_in = 0;
    qint16 temp_sens_wires_out = 0;
    float threshold_torque_out = 0;
    QString tp_name;
    QString transducer_type_out;
    float max_test_point_pct = 0;
    QString loop_pwr;
    float freq_ptpamp_in = 0;
    float freq_ptpamp_out = 0;
    bool output_indicated = false;
    bool input_indicated = false;
};

/// A test message of an instrument.
struct PromptEntry {
    QString pname;
    QString prompt;
    /// "PRE" before the test, "PST" after it.
    QString prompt_type;
};

namespace ModuleGlobals {

/// The parameters of an asset, read anew at each call; the zeroed record when it has none.
CalParamRecord GetCalParams(Session& session, const QString& asset);

/// True when the asset has parameters and its strategy still exists with at least one point.
bool HasConfigData(Session& session, const QString& asset);
/// True when the asset has parameters, whatever its strategy; quotes in its number are doubled. Runs under
/// the routine that is given, and throws what fails.
bool hasParameters(const Session& session, Routine& routine, const QString& asset);

/// The test points as fractions of span, each as often as `repetitions` says; none after an error. More than
/// 201 are error 9.
QList<float> GetTestPointList(Session& session, const QString& asset);

/// The test messages of an asset; `kind` 0: those before the test, 1: after it, else both. With an empty
/// `asset`: every message of the task package with the tag `task`, each once. None after an error; more than
/// 251 are error 9.
QList<PromptEntry> GetPrompts(Session& session, const QString& asset, qint16 kind, const QString& task);

/// The statement that gives the percentages of an asset's strategy, without an order; the asset goes through
/// `SQLSafe`.
Sql selectTestPointPct(const Session& session, const QString& asset);

} // namespace ModuleGlobals
} // namespace kelvane
