#include "testkit/tools.h"

using namespace Qt::StringLiterals;

namespace kelvane::demo {

// In the order in which they are entered; the last four are the members of the package. The readings make
// points that pass, that are marginal, that fail above (with an advice) and below (without one).
const QList<Tool>& tools() {
    static const QList<Tool> all{
        {.asset = u"TW-101"_s,
         .standard = u"TT-0300F"_s,
         .plan = u"50, 150, 250; 0.8, -0.666667, 0.4"_s,
         .comment = u"clean"_s,
         .passes = true,
         .lastResult = u"08:02"_s,
         .failed = 0,
         .marginal = 0,
         .lines =
             {
                 u"  1  50.0ft/lb     50.0ft/lb     50.4ft/lb    2.0ft/lb    0.4ft/lb      20                   48.0        52.0       PASS"_s,
                 u"  2  150.0ft/lb    150.0ft/lb    149.0ft/lb   6.0ft/lb    -1.0ft/lb     17                   144.0       156.0      PASS"_s,
                 u"  3  250.0ft/lb    250.0ft/lb    251.0ft/lb   10.0ft/lb   1.0ft/lb      10                   240.0       260.0      PASS"_s,
             }},
        {.asset = u"TW-102"_s,
         .standard = u"TT-0150F"_s,
         .plan = u"20, 60, 100; 0.5, 3.333333, 0.5"_s,
         .comment = u"scale worn"_s,
         .passes = true,
         .lastResult = u"08:02"_s,
         .failed = 0,
         .marginal = 1,
         .lines =
             {
                 u"  1  20.0ft/lb     20.0ft/lb     20.1ft/lb    0.8ft/lb    0.1ft/lb      13                   19.2        20.8       PASS"_s,
                 u"  2  60.0ft/lb     60.0ft/lb     62.0ft/lb    2.4ft/lb    2.0ft/lb      83      MARGINAL     57.6        62.4       PASS"_s,
                 u"  3  100.0ft/lb    100.0ft/lb    100.5ft/lb   4.0ft/lb    0.5ft/lb      13                   96.0        104.0      PASS"_s,
             }},
        {.asset = u"TW-103"_s,
         .standard = u"TT-0075F"_s,
         .plan = u"10, 30, 50; 1, 0.666667, 0.6"_s,
         .comment = u""_s,
         .passes = true,
         .lastResult = u"08:08"_s,
         .failed = 0,
         .marginal = 0,
         .lines =
             {
                 u"  1  10.0ft/lb     10.0ft/lb     10.1ft/lb    0.4ft/lb    0.1ft/lb      25                   9.6         10.4       PASS"_s,
                 u"  2  10.0ft/lb     10.0ft/lb     10.1ft/lb    0.4ft/lb    0.1ft/lb      25                   9.6         10.4       PASS"_s,
                 u"  3  10.0ft/lb     10.0ft/lb     10.1ft/lb    0.4ft/lb    0.1ft/lb      25                   9.6         10.4       PASS"_s,
                 u"  4  30.0ft/lb     30.0ft/lb     30.2ft/lb    1.2ft/lb    0.2ft/lb      17                   28.8        31.2       PASS"_s,
                 u"  5  30.0ft/lb     30.0ft/lb     30.2ft/lb    1.2ft/lb    0.2ft/lb      17                   28.8        31.2       PASS"_s,
                 u"  6  30.0ft/lb     30.0ft/lb     30.2ft/lb    1.2ft/lb    0.2ft/lb      17                   28.8        31.2       PASS"_s,
                 u"  7  50.0ft/lb     50.0ft/lb     50.3ft/lb    2.0ft/lb    0.3ft/lb      15                   48.0        52.0       PASS"_s,
                 u"  8  50.0ft/lb     50.0ft/lb     50.3ft/lb    2.0ft/lb    0.3ft/lb      15                   48.0        52.0       PASS"_s,
                 u"  9  50.0ft/lb     50.0ft/lb     50.3ft/lb    2.0ft/lb    0.3ft/lb      15                   48.0        52.0       PASS"_s,
             }},
        {.asset = u"TW-104"_s,
         .standard = u"TT-0300I"_s,
         .plan = u"40, 120, 200; 2.5, 8.333333, 1.5"_s,
         .comment = u"dropped"_s,
         .passes = false,
         .lastResult = u"08:02"_s,
         .failed = 1,
         .marginal = 0,
         .lines =
             {
                 u"  1  40.0in/lb     40.0in/lb     41.0in/lb    2.4in/lb    1.0in/lb      42                   37.6        42.4       PASS"_s,
                 u"  2  120.0in/lb    120.0in/lb    130.0in/lb   7.2in/lb    10.0in/lb    139      OUT OF TOL.  112.8       127.2      FAIL"_s,
                 u"  3  200.0in/lb    200.0in/lb    203.0in/lb   12.0in/lb   3.0in/lb      25                   188.0       212.0      PASS"_s,
             }},
        {.asset = u"TW-105"_s,
         .standard = u"TT-0500N"_s,
         .plan = u"24, 72, 120; 0.833333, -4.861111, -0.416667"_s,
         .comment = u""_s,
         .passes = false,
         .lastResult = u"08:02"_s,
         .failed = 1,
         .marginal = 0,
         .lines =
             {
                 u"  1  24.0N/m       24.0N/m       24.2N/m      1.0N/m      0.2N/m        20                   23.0        25.0       PASS"_s,
                 u"  2  72.0N/m       72.0N/m       68.5N/m      2.9N/m      -3.5N/m      121                   69.1        74.9       FAIL"_s,
                 u"  3  120.0N/m      120.0N/m      119.5N/m     4.8N/m      -0.5N/m       10                   115.2       124.8      PASS"_s,
             }},
        {.asset = u"TW-106"_s,
         .standard = u"TT-0500N"_s,
         .plan = u"68, 204, 340; 0.294118, 0.245098, 0.882353"_s,
         .comment = u""_s,
         .passes = true,
         .lastResult = u"08:02"_s,
         .failed = 0,
         .marginal = 1,
         .lines =
             {
                 u"  1  68.0N/m       68.0N/m       68.2N/m      0.8N/m      0.2N/m        25                   67.2        68.8       PASS"_s,
                 u"  2  204.0N/m      204.0N/m      204.5N/m     2.1N/m      0.5N/m        24                   201.9       206.1      PASS"_s,
                 u"  3  340.0N/m      340.0N/m      343.0N/m     3.5N/m      3.0N/m        86      MARGINAL     336.5       343.5      PASS"_s,
             }},
    };
    return all;
}

ExpectedRecords recordsAfterTools() {
    ExpectedRecords after{.records = {}, .serial = u"48213"_s};
    for (const auto& tool : tools())
        // The calibrator itself counts as a standard.
        after.records << Record{.asset = tool.asset,
                                .time = tool.lastResult,
                                .passes = tool.passes,
                                .failed = tool.failed,
                                .marginal = tool.marginal,
                                .state = tool.passes ? u"FOUND-LEFT"_s : u"AS-FOUND"_s,
                                .strategy = u"TORQUE 20-60-100"_s,
                                .comment = tool.comment,
                                .standards = {u"TS-0001"_s, tool.standard},
                                .lines = tool.lines};
    return after;
}

} // namespace kelvane::demo
