#include "testkit/fluke74x_runs.h"

#include "testkit/fluke_runs.h"

using namespace Qt::StringLiterals;

namespace kelvane::demo {

namespace {

const QString asset = u"F743-01"_s;

/// The calibrator has stored it at the time of the record; the second run of an instrument is recorded as
/// many minutes later as it has steps.
FieldRun secondRun(FieldRun run, const QString& recorded) {
    run.storedAt = run.record.time;
    run.record.time = recorded;
    return run;
}

} // namespace

// In the order in which they are carried out.
const CalibratorRuns& fluke74xRuns() {
    static const CalibratorRuns runs{
        .asset = asset,
        .serial = u"7112044"_s,
        .measured =
            {
                pressureTransmitterAsFound(asset),
                secondRun(pressureTransmitterAsLeft(asset), u"09:00:30"_s),
                {.deviations = u"0.05, -0.1, 0.05, 0.15, -0.05"_s,
                 .module = u"71391"_s,
                 .record =
                     {.asset = u"PT-105"_s,
                      .time = u"09:25:00"_s,
                      .marginal = 1,
                      .strategy = u"5 POINT UP"_s,
                      .weeks = 26,
                      .standards = {asset, u"PM-300"_s},
                      .lines =
                          {
                              u"  1  4.000mA       0.000bar      4.008mA      0.032mA     0.008mA       25                   3.968       4.032      PASS"_s,
                              u"  2  8.000mA       2.500bar      7.984mA      0.032mA     -0.016mA      50                   7.968       8.032      PASS"_s,
                              u"  3  12.000mA      5.000bar      12.008mA     0.032mA     0.008mA       25                   11.968      12.032     PASS"_s,
                              u"  4  16.000mA      7.500bar      16.024mA     0.032mA     0.024mA       75      MARGINAL     15.968      16.032     PASS"_s,
                              u"  5  20.000mA      10.000bar     19.992mA     0.032mA     -0.008mA      25                   19.968      20.032     PASS"_s,
                          }}},
                thermometerReadThrice(asset),
                {.deviations = u"0.1, -0.15, 0.25, -0.2, -0.7"_s,
                 .module = u"71204"_s,
                 .record =
                     {.asset = u"IP-301"_s,
                      .time = u"10:40:00"_s,
                      .passes = false,
                      .failed = 1,
                      .state = u"AS-FOUND"_s,
                      .technician = u"L. Okafor"_s,
                      .strategy = u"5 POINT UP"_s,
                      .standards = {asset, u"PM-100"_s},
                      .lines =
                          {
                              u"  1  3.00psi       4.00mA        3.01psi      0.06psi     0.01psi       17                   2.94        3.06       PASS"_s,
                              u"  2  6.00psi       8.00mA        5.98psi      0.06psi     -0.02psi      33                   5.94        6.06       PASS"_s,
                              u"  3  9.00psi       12.00mA       9.03psi      0.06psi     0.03psi       50                   8.94        9.06       PASS"_s,
                              u"  4  12.00psi      16.00mA       11.98psi     0.06psi     -0.02psi      33                   11.94       12.06      PASS"_s,
                              u"  5  15.00psi      20.00mA       14.92psi     0.06psi     -0.08psi     133                   14.94       15.06      FAIL"_s,
                          }}},
                {.deviations = u"0.02002, -0.04004, 0.08008"_s,
                 .record =
                     {.asset = u"VF-503"_s,
                      .time = u"11:05:00"_s,
                      .marginal = 1,
                      .strategy = u"FREQUENCY 10-50-90"_s,
                      .standards = {asset},
                      .lines =
                          {
                              u"  1  1009Hz        1V            1011Hz       10Hz        2Hz           20                   999         1019       PASS"_s,
                              u"  2  5005Hz        5V            5001Hz       10Hz        -4Hz          40                   4995        5015       PASS"_s,
                              u"  3  9001Hz        9V            9009Hz       10Hz        8Hz           80      MARGINAL     8991        9011       PASS"_s,
                          }}},
            },
        .manual =
            {{
                 loopIndicator(asset),
                 {.deviations = u"0.5, -0.5, 0, 0.5, -1.5"_s,
                  .module = u"71391"_s,
                  .standard = u"DWT-01"_s,
                  .record =
                      {.asset = u"PG-801"_s,
                       .time = u"13:40:00"_s,
                       .passes = false,
                       .failed = 1,
                       .state = u"AS-FOUND"_s,
                       .strategy = u"5 POINT UP"_s,
                       .standards = {u"DWT-01"_s, asset, u"PM-300"_s},
                       .lines =
                           {
                               u"  1  0psi          0psi          1psi         2psi        1psi          50                  -2           2          PASS"_s,
                               u"  2  50psi         50psi         49psi        2psi        -1psi         50                   48          52         PASS"_s,
                               u"  3  100psi        100psi        100psi       2psi        0psi           0                   98          102        PASS"_s,
                               u"  4  150psi        150psi        151psi       2psi        1psi          50                   148         152        PASS"_s,
                               u"  5  200psi        200psi        197psi       2psi        -3psi        150                   198         202        FAIL"_s,
                           }}},
             },
             {
                 resistanceTransmitter(asset),
                 {.deviations = u"0.025, -0.05, 0.03125"_s,
                  .standard = u"DMM-87V"_s,
                  .record =
                      {.asset = u"SG-804"_s,
                       .time = u"14:30:00"_s,
                       .strategy = u"3 POINT UP"_s,
                       .standards = {u"DMM-87V"_s, asset},
                       .lines =
                           {
                               u"  1  4.000mA       4.000mA       4.004mA      0.016mA     0.004mA       25                   3.984       4.016      PASS"_s,
                               u"  2  12.000mA      12.000mA      11.992mA     0.016mA     -0.008mA      50                   11.984      12.016     PASS"_s,
                               u"  3  20.000mA      20.000mA      20.005mA     0.016mA     0.005mA       31                   19.984      20.016     PASS"_s,
                           }}},
             }},
    };
    return runs;
}

} // namespace kelvane::demo
