#pragma once

#include "data/session.h"

namespace kelvane {

struct CalParamRecord;

/// One evaluated test point: values, limits, verdict, and the texts of a report line.
struct ErrorResult {
    double nominal = 0;
    QString nominal_text;
    QString output_text;
    QString input_text;
    double upper_limit = 0;
    QString upper_text;
    double lower_limit = 0;
    QString lower_text;
    double error = 0;
    QString error_text;
    QString tolerance_text;
    QString percent_text;
    /// "PASS" or "FAIL".
    QString verdict;
    QString result_line;
    /// "MARGINAL", "NOTIFY USER" or empty.
    QString advice;
    double percent = 0;
    float upper_rounded = 0;
    float lower_rounded = 0;
    float error_rounded = 0;
    float nominal_rounded = 0;
};

namespace ModuleGlobals {

/// `value` in the format that the exact text of `digits` (a resolution) picks; empty for any other text.
QString DecimalFormat(Session& session, double value, const QString& digits);

/// Judges one test point: `input` applied, `output` measured, against the instrument's ranges and tolerance
/// terms. Mind the order: `input_low` before `input_high`, but `output_high` before `output_low`. `digits` is
/// `resolution` as plain text. After an error (reported) the record keeps what was filled up to there.
ErrorResult ErrorCalculation(Session& session, double input, double output, float input_low, float input_high,
                             float output_high, float output_low, const QString& digits,
                             const QString& input_units, const QString& output_units, float pos_fs,
                             float pos_span, float pos_reading, float pos_lsd, float pos_units, float neg_fs,
                             float neg_span, float neg_reading, float neg_lsd, float neg_units,
                             float resolution, qint16 line);

/// The input of an instrument, in its units, at a fraction of its range.
double inputAt(const CalParamRecord& instrument, double fraction);

/// What a test point asks for before it is read: nominal output, limits and the texts of input and tolerance,
/// each as `ErrorCalculation` has it. The tolerance is that of a reading on the nominal. After an error
/// (reported) the record keeps what was filled up to there.
ErrorResult expectedResult(Session& session, const CalParamRecord& instrument, double input);

/// The tightest tolerance of an instrument in percent of full scale; 0 after an error.
double TranslateFSTestTolSingle(Session& session, const QString& asset);
/// The tightest tolerance of an instrument in percent of span; 0 after an error.
double TranslateSpanTestTolSingle(Session& session, const QString& asset);

} // namespace ModuleGlobals
} // namespace kelvane
