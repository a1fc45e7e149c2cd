#include "testkit/fluke702_runs.h"

#include "testkit/fluke_runs.h"

using namespace Qt::StringLiterals;

namespace kelvane::demo {

namespace {

const QString asset = u"F702-01"_s;

} // namespace

// In the order in which they are carried out. The readings make points that pass, that are marginal, that
// fail above (with an advice) and below (without one).
const CalibratorRuns& fluke702Runs() {
    static const CalibratorRuns runs{
        .asset = asset,
        .serial = u"6841207"_s,
        .measured =
            {
                pressureTransmitterAsFound(asset),
                pressureTransmitterAsLeft(asset),
                {.deviations = u"-0.05, 0.05, 0.1875, 0.1, -0.1"_s,
                 .module = u"71204"_s,
                 .record =
                     {.asset = u"PT-106"_s,
                      .time = u"09:20:00"_s,
                      .marginal = 1,
                      .strategy = u"5 POINT UP"_s,
                      .weeks = 26,
                      .standards = {asset, u"PM-100"_s},
                      .lines =
                          {
                              u"  1  4.000mA      -15.000psig    3.992mA      0.040mA     -0.008mA      20                   3.960       4.040      PASS"_s,
                              u"  2  8.000mA       3.750psig     8.008mA      0.040mA     0.008mA       20                   7.960       8.040      PASS"_s,
                              u"  3  12.000mA      22.500psig    12.030mA     0.040mA     0.030mA       75      MARGINAL     11.960      12.040     PASS"_s,
                              u"  4  16.000mA      41.250psig    16.016mA     0.040mA     0.016mA       40                   15.960      16.040     PASS"_s,
                              u"  5  20.000mA      60.000psig    19.984mA     0.040mA     -0.016mA      40                   19.960      20.040     PASS"_s,
                          }}},
                {.deviations = u"0.075, -0.15, 0.2, 0.225, -0.075"_s,
                 .record =
                     {.asset = u"TIT-201"_s,
                      .time = u"09:50:00"_s,
                      .marginal = 1,
                      .technician = u"L. Okafor"_s,
                      .strategy = u"5 POINT UP"_s,
                      .standards = {asset},
                      .lines =
                          {
                              u"  1  4.000mA       0.000C        4.012mA      0.048mA     0.012mA       25                   3.952       4.048      PASS"_s,
                              u"  2  8.000mA       37.500C       7.976mA      0.048mA     -0.024mA      50                   7.952       8.048      PASS"_s,
                              u"  3  12.000mA      75.000C       12.032mA     0.048mA     0.032mA       67                   11.952      12.048     PASS"_s,
                              u"  4  16.000mA      112.500C      16.036mA     0.048mA     0.036mA       75      MARGINAL     15.952      16.048     PASS"_s,
                              u"  5  20.000mA      150.000C      19.988mA     0.048mA     -0.012mA      25                   19.952      20.048     PASS"_s,
                          }}},
                thermometerReadThrice(asset),
                {.deviations = u"0.05, 0.1, -0.625, 0.25, 0.4"_s,
                 .record =
                     {.asset = u"TIT-205"_s,
                      .time = u"10:45:00"_s,
                      .passes = false,
                      .failed = 1,
                      .marginal = 1,
                      .state = u"AS-FOUND"_s,
                      .strategy = u"5 POINT UP"_s,
                      .standards = {asset},
                      .lines =
                          {
                              u"  1  4.000mA       0.000C        4.008mA      0.080mA     0.008mA       10                   3.920       4.080      PASS"_s,
                              u"  2  8.000mA       200.000C      8.016mA      0.080mA     0.016mA       20                   7.920       8.080      PASS"_s,
                              u"  3  12.000mA      400.000C      11.900mA     0.080mA     -0.100mA     125                   11.920      12.080     FAIL"_s,
                              u"  4  16.000mA      600.000C      16.040mA     0.080mA     0.040mA       50                   15.920      16.080     PASS"_s,
                              u"  5  20.000mA      800.000C      20.064mA     0.080mA     0.064mA       80      MARGINAL     19.920      20.080     PASS"_s,
                          }}},
                {.deviations = u"0.025, -0.05, 0.075"_s,
                 .record =
                     {.asset = u"FT-501"_s,
                      .time = u"11:10:00"_s,
                      .strategy = u"3 POINT UP"_s,
                      .standards = {asset},
                      .lines =
                          {
                              u"  1  4.000mA       10.000Hz      4.004mA      0.040mA     0.004mA       10                   3.960       4.040      PASS"_s,
                              u"  2  12.000mA      505.000Hz     11.992mA     0.040mA     -0.008mA      20                   11.960      12.040     PASS"_s,
                              u"  3  20.000mA      1000.000Hz    20.012mA     0.040mA     0.012mA       30                   19.960      20.040     PASS"_s,
                          }}},
                resistanceTransmitter(asset),
            },
        .manual = {{
            loopIndicator(asset),
            {.deviations = u"0.1, -0.1, 0.3, 0.16, -0.04"_s,
             .standard = u"DMM-87V"_s,
             .record =
                 {.asset = u"TCS-802"_s,
                  .time = u"13:40:00"_s,
                  .marginal = 1,
                  .strategy = u"5 POINT UP"_s,
                  .standards = {u"DMM-87V"_s, asset},
                  .lines =
                      {
                          u"  1  0.0C          0.0C          0.5C         2.0C        0.5C          25                  -2.0         2.0        PASS"_s,
                          u"  2  125.0C        125.0C        124.5C       2.0C        -0.5C         25                   123.0       127.0      PASS"_s,
                          u"  3  250.0C        250.0C        251.5C       2.0C        1.5C          75      MARGINAL     248.0       252.0      PASS"_s,
                          u"  4  375.0C        375.0C        375.8C       2.0C        0.8C          40                   373.0       377.0      PASS"_s,
                          u"  5  500.0C        500.0C        499.8C       2.0C        -0.2C         10                   498.0       502.0      PASS"_s,
                      }}},
        }},
    };
    return runs;
}

} // namespace kelvane::demo
