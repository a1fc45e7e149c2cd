#include "testkit/fluke_runs.h"

using namespace Qt::StringLiterals;

namespace kelvane::demo {

FieldRun pressureTransmitterAsFound(const QString& calibrator) {
    return {
        .deviations = u"0.05, 0.1, 0.2, 0.3, -0.1"_s,
        .module = u"71204"_s,
        .record = {
            .asset = u"PT-101"_s,
            .time = u"08:10:00"_s,
            .passes = false,
            .failed = 1,
            .marginal = 1,
            .state = u"AS-FOUND"_s,
            .technician = u"L. Okafor"_s,
            .strategy = u"5 POINT UP"_s,
            .standards = {calibrator, u"PM-100"_s},
            .lines = {
                u"  1  4.000mA       0.000psig     4.008mA      0.040mA     0.008mA       20                   3.960       4.040      PASS"_s,
                u"  2  8.000mA       25.000psig    8.016mA      0.040mA     0.016mA       40                   7.960       8.040      PASS"_s,
                u"  3  12.000mA      50.000psig    12.032mA     0.040mA     0.032mA       80      MARGINAL     11.960      12.040     PASS"_s,
                u"  4  16.000mA      75.000psig    16.048mA     0.040mA     0.048mA      120      OUT OF TOL.  15.960      16.040     FAIL"_s,
                u"  5  20.000mA      100.000psig   19.984mA     0.040mA     -0.016mA      40                   19.960      20.040     PASS"_s,
            }}};
}

FieldRun pressureTransmitterAsLeft(const QString& calibrator) {
    return {
        .deviations = u"0.025, -0.025, 0.05, 0.05, -0.05"_s,
        .module = u"71204"_s,
        .record = {
            .asset = u"PT-101"_s,
            .time = u"08:55:30"_s,
            .state = u"AS-LEFT"_s,
            .technician = u"L. Okafor"_s,
            .strategy = u"5 POINT UP"_s,
            .standards = {calibrator, u"PM-100"_s},
            .lines = {
                u"  1  4.000mA       0.000psig     4.004mA      0.040mA     0.004mA       10                   3.960       4.040      PASS"_s,
                u"  2  8.000mA       25.000psig    7.996mA      0.040mA     -0.004mA      10                   7.960       8.040      PASS"_s,
                u"  3  12.000mA      50.000psig    12.008mA     0.040mA     0.008mA       20                   11.960      12.040     PASS"_s,
                u"  4  16.000mA      75.000psig    16.008mA     0.040mA     0.008mA       20                   15.960      16.040     PASS"_s,
                u"  5  20.000mA      100.000psig   19.992mA     0.040mA     -0.008mA      20                   19.960      20.040     PASS"_s,
            }}};
}

FieldRun thermometerReadThrice(const QString& calibrator) {
    return {
        .deviations = u"0.0625, 0.075, 0.0875, 0.25, 0.3125, 0.24375, -0.125, -0.1375, -0.1125"_s,
        .record = {
            .asset = u"TIT-203"_s,
            .time = u"10:15:00"_s,
            .marginal = 1,
            .strategy = u"3 POINT UP"_s,
            .standards = {calibrator},
            .lines = {
                u"  1  4.000mA       0.000C        4.012mA      0.048mA     0.012mA       25                   3.952       4.048      PASS"_s,
                u"  2  12.000mA      50.000C       12.043mA     0.048mA     0.043mA       90      MARGINAL     11.952      12.048     PASS"_s,
                u"  3  20.000mA      100.000C      19.980mA     0.048mA     -0.020mA      42                   19.952      20.048     PASS"_s,
            }}};
}

FieldRun resistanceTransmitter(const QString& calibrator) {
    return {
        .deviations = u"0.075, 0.1, 0.1875, 0.375, 0.4375"_s,
        .disagreement = Disagreement::calibratorFailedIt,
        .record = {
            .asset = u"RI-803"_s,
            .time = u"11:40:00"_s,
            .strategy = u"5 POINT UP"_s,
            .standards = {calibrator},
            .lines = {
                u"  1  4.000mA       0.000Ohms     4.012mA      0.060mA     0.012mA       20                   3.940       4.060      PASS"_s,
                u"  2  8.000mA       100.000Ohms   8.016mA      0.080mA     0.016mA       20                   7.920       8.080      PASS"_s,
                u"  3  12.000mA      200.000Ohms   12.030mA     0.100mA     0.030mA       30                   11.900      12.100     PASS"_s,
                u"  4  16.000mA      300.000Ohms   16.060mA     0.120mA     0.060mA       50                   15.880      16.120     PASS"_s,
                u"  5  20.000mA      400.000Ohms   20.070mA     0.140mA     0.070mA       50                   19.860      20.140     PASS"_s,
            }}};
}

// The indicator's tolerance is the same in units of its output, not in percent of its input; the calibrator
// sees the latter.
FieldRun loopIndicator(const QString& calibrator) {
    return {
        .deviations = u"0.066667, -0.266667, 0.466667, -0.333333, 0.1"_s,
        .disagreement = Disagreement::calibratorPassedIt,
        .record = {
            .asset = u"LI-402"_s,
            .time = u"13:05:00"_s,
            .passes = false,
            .failed = 1,
            .state = u"AS-FOUND"_s,
            .strategy = u"5 POINT UP"_s,
            .standards = {calibrator},
            .lines = {
                u"  1  0.0psig       4.0mA         0.2psig      1.0psig     0.2psig       20                  -2.0         1.0        PASS"_s,
                u"  2  75.0psig      8.0mA         74.2psig     2.0psig     -0.8psig      40                   73.0        76.0       PASS"_s,
                u"  3  150.0psig     12.0mA        151.4psig    1.0psig     1.4psig      140      OUT OF TOL.  148.0       151.0      FAIL"_s,
                u"  4  225.0psig     16.0mA        224.0psig    2.0psig     -1.0psig      50                   223.0       226.0      PASS"_s,
                u"  5  300.0psig     20.0mA        300.3psig    1.0psig     0.3psig       30                   298.0       301.0      PASS"_s,
            }}};
}

} // namespace kelvane::demo
