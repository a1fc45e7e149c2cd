#include "testkit/fixtures.h"
#include "tests/data/tolerances/tolerance_points.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// What has to come out of a point.
struct JudgedPoint {
    const char* name;
    Point point;
    Terms pos;
    Terms neg;
    struct {
        double nominal;
        double upper_limit;
        double lower_limit;
        double error;
        double percent;
    } figures;
    struct {
        float nominal;
        float upper;
        float lower;
        float error;
    } rounded;
    /// nominal, input, output, upper limit, lower limit, error, tolerance, percentage, verdict, advice
    QString texts;
};

// The figures were worked out apart from the program, step by step in the widths of the rule.
const JudgedPoint judgedPoints[] = {
    {"a transmitter well inside its tolerance",
     {50, 12.03, 0, 100, 20, 4, u"0.01"_s, u" psi"_s, u" mA"_s, 0.01F},
     {0.5F, 0, 0, 0, 0},
     {0.5F, 0, 0, 0, 0},
     {12, 12.1, 11.9, 0.02999999999999936, 29.999999999999467},
     {12, 12.1F, 11.9F, 0.03F},
     u"12.00 mA|50.00 psi|12.03 mA|12.10|11.90|0.03 mA|0.10 mA|30|PASS|"_s},
    {"a reading exactly on the nominal counts as low and is without advice",
     {50, 50, 0, 100, 100, 0, u"0.1"_s, u"V"_s, u"V"_s, 0.1F},
     {0, 0, 0, 0, 2},
     {0, 0, 0, 0, 2},
     {50, 52, 48, 0, 0},
     {50, 52, 48, 0},
     u"50.0V|50.0V|50.0V|52.0|48.0|0.0V|2.0V|0|PASS|"_s},
    {"a reading exactly on the upper limit passes and is marginal",
     {50, 52, 0, 100, 100, 0, u"0.1"_s, u"V"_s, u"V"_s, 0.1F},
     {0, 0, 0, 0, 2},
     {0, 0, 0, 0, 2},
     {50, 52, 48, 2, 100},
     {50, 52, 48, 2},
     u"50.0V|50.0V|52.0V|52.0|48.0|2.0V|2.0V|100|PASS|MARGINAL"_s},
    {"a reading exactly on the lower limit passes without advice",
     {50, 48, 0, 100, 100, 0, u"0.1"_s, u"V"_s, u"V"_s, 0.1F},
     {0, 0, 0, 0, 2},
     {0, 0, 0, 0, 2},
     {50, 52, 48, -2, -100},
     {50, 52, 48, -2},
     u"50.0V|50.0V|48.0V|52.0|48.0|-2.0V|2.0V|100|PASS|"_s},
    {"the least reading above the upper limit fails though it prints as the limit",
     {50, 52.00000000000001, 0, 100, 100, 0, u"0.1"_s, u"V"_s, u"V"_s, 0.1F},
     {0, 0, 0, 0, 2},
     {0, 0, 0, 0, 2},
     {50, 52, 48, 2.000000000000007, 100.00000000000036},
     {50, 52, 48, 2},
     u"50.0V|50.0V|52.0V|52.0|48.0|2.0V|2.0V|100|FAIL|NOTIFY USER"_s},
    {"half a width above the upper limit fails and notifies",
     {50, 53, 0, 100, 100, 0, u"0.1"_s, u"V"_s, u"V"_s, 0.1F},
     {0, 0, 0, 0, 2},
     {0, 0, 0, 0, 2},
     {50, 52, 48, 3, 150},
     {50, 52, 48, 3},
     u"50.0V|50.0V|53.0V|52.0|48.0|3.0V|2.0V|150|FAIL|NOTIFY USER"_s},
    {"half a width below the lower limit fails without advice",
     {50, 47, 0, 100, 100, 0, u"0.1"_s, u"V"_s, u"V"_s, 0.1F},
     {0, 0, 0, 0, 2},
     {0, 0, 0, 0, 2},
     {50, 52, 48, -3, -150},
     {50, 52, 48, -3},
     u"50.0V|50.0V|47.0V|52.0|48.0|-3.0V|2.0V|150|FAIL|"_s},
    {"seventy percent is marginal",
     {0, 0.7, 0, 100, 100, 0, u"0.01"_s, u"V"_s, u"V"_s, 0.01F},
     {0, 0, 0, 0, 1},
     {0, 0, 0, 0, 1},
     {0, 1, -1, 0.7, 70},
     {0, 1, -1, 0.7F},
     u"0.00V|0.00V|0.70V|1.00|-1.00|0.70V|1.00V|70|PASS|MARGINAL"_s},
    {"just below seventy percent is without advice though seventy is shown",
     {0, 0.6999, 0, 100, 100, 0, u"0.01"_s, u"V"_s, u"V"_s, 0.01F},
     {0, 0, 0, 0, 1},
     {0, 0, 0, 0, 1},
     {0, 1, -1, 0.6999, 69.99},
     {0, 1, -1, 0.7F},
     u"0.00V|0.00V|0.70V|1.00|-1.00|0.70V|1.00V|70|PASS|"_s},
    {"minus seventy percent never gets an advice",
     {0, -0.7, 0, 100, 100, 0, u"0.01"_s, u"V"_s, u"V"_s, 0.01F},
     {0, 0, 0, 0, 1},
     {0, 0, 0, 0, 1},
     {0, 1, -1, -0.7, -70},
     {0, 1, -1, -0.7F},
     u"0.00V|0.00V|-0.70V|1.00|-1.00|-0.70V|1.00V|70|PASS|"_s},
    {"500.9 percent still gets a number",
     {0, 5.009, 0, 100, 100, 0, u"0.001"_s, u"V"_s, u"V"_s, 0.001F},
     {0, 0, 0, 0, 1},
     {0, 0, 0, 0, 1},
     {0, 1, -1, 5.009, 500.90000000000003},
     {0, 1, -1, 5.009F},
     u"0.000V|0.000V|5.009V|1.000|-1.000|5.009V|1.000V|501|FAIL|NOTIFY USER"_s},
    {"501 percent does not",
     {0, 5.01, 0, 100, 100, 0, u"0.001"_s, u"V"_s, u"V"_s, 0.001F},
     {0, 0, 0, 0, 1},
     {0, 0, 0, 0, 1},
     {0, 1, -1, 5.01, 501},
     {0, 1, -1, 5.01F},
     u"0.000V|0.000V|5.010V|1.000|-1.000|5.010V|1.000V|>500|FAIL|NOTIFY USER"_s},
    {"minus 500.9 percent still gets a number",
     {0, -5.009, 0, 100, 100, 0, u"0.001"_s, u"V"_s, u"V"_s, 0.001F},
     {0, 0, 0, 0, 1},
     {0, 0, 0, 0, 1},
     {0, 1, -1, -5.009, -500.90000000000003},
     {0, 1, -1, -5.009F},
     u"0.000V|0.000V|-5.009V|1.000|-1.000|-5.009V|1.000V|501|FAIL|"_s},
    {"minus 501 percent does not",
     {0, -5.01, 0, 100, 100, 0, u"0.001"_s, u"V"_s, u"V"_s, 0.001F},
     {0, 0, 0, 0, 1},
     {0, 0, 0, 0, 1},
     {0, 1, -1, -5.01, -501},
     {0, 1, -1, -5.01F},
     u"0.000V|0.000V|-5.010V|1.000|-1.000|-5.010V|1.000V|>500|FAIL|"_s},
    {"the percentage is that of the printed figures, not of the exact ones",
     {50, 50.14, 0, 100, 100, 0, u"0.1"_s, u"V"_s, u"V"_s, 0.1F},
     {0, 0, 0, 0, 0.26F},
     {0, 0, 0, 0, 0.26F},
     {50, 50.25999999046326, 49.74000000953674, 0.14000000000000057, 53.84615582121929},
     {50, 50.3F, 49.7F, 0.1F},
     u"50.0V|50.0V|50.1V|50.3|49.7|0.1V|0.3V|33|PASS|"_s},
    {"the same on the low side",
     {50, 49.86, 0, 100, 100, 0, u"0.1"_s, u"V"_s, u"V"_s, 0.1F},
     {0, 0, 0, 0, 0.26F},
     {0, 0, 0, 0, 0.26F},
     {50, 50.25999999046326, 49.74000000953674, -0.14000000000000057, -53.84615582121929},
     {50, 50.3F, 49.7F, -0.1F},
     u"50.0V|50.0V|49.9V|50.3|49.7|-0.1V|0.3V|33|PASS|"_s},
    {"printed figures are divided in 32 bits",
     {50, 50.01, 0, 100, 100, 0, u"0.01"_s, u"V"_s, u"V"_s, 0.01F},
     {0, 0, 0, 0, 2},
     {0, 0, 0, 0, 2},
     {50, 52, 48, 0.00999999999999801, 0.4999999999999005},
     {50, 52, 48, 0.01F},
     u"50.00V|50.00V|50.01V|52.00|48.00|0.01V|2.00V|1|PASS|"_s},
    {"the same on the low side in 32 bits",
     {50, 49.99, 0, 100, 100, 0, u"0.01"_s, u"V"_s, u"V"_s, 0.01F},
     {0, 0, 0, 0, 2},
     {0, 0, 0, 0, 2},
     {50, 52, 48, -0.00999999999999801, -0.4999999999999005},
     {50, 52, 48, -0.01F},
     u"50.00V|50.00V|49.99V|52.00|48.00|-0.01V|2.00V|1|PASS|"_s},
    {"a half width below the resolution is taken exactly, high",
     {50, 50.02, 0, 100, 100, 0, u"0.1"_s, u"V"_s, u"V"_s, 0.1F},
     {0, 0, 0, 0, 0.04F},
     {0, 0, 0, 0, 0.04F},
     {50, 50.03999999910593, 49.96000000089407, 0.020000000000003126, 50.00000111759493},
     {50, 50, 50, 0},
     u"50.0V|50.0V|50.0V|50.0|50.0|0.0V|0.0V|50|PASS|"_s},
    {"a half width below the resolution is taken exactly, low",
     {50, 49.98, 0, 100, 100, 0, u"0.1"_s, u"V"_s, u"V"_s, 0.1F},
     {0, 0, 0, 0, 0.04F},
     {0, 0, 0, 0, 0.04F},
     {50, 50.03999999910593, 49.96000000089407, -0.020000000000003126, -50.00000111759493},
     {50, 50, 50, 0},
     u"50.0V|50.0V|50.0V|50.0|50.0|0.0V|0.0V|50|PASS|"_s},
    {"no tolerance and zero everywhere shows 0 percent",
     {0, 0, 0, 100, 100, 0, u"0.1"_s, u"V"_s, u"V"_s, 0.1F},
     {0, 0, 0, 0, 0},
     {0, 0, 0, 0, 0},
     {0, 0, 0, 0, 0},
     {0, 0, 0, 0},
     u"0.0V|0.0V|0.0V|0.0|0.0|0.0V|0.0V|0|PASS|"_s},
    {"no tolerance at zero, a reading below it shows 0 percent and fails",
     {0, -0.5, 0, 100, 100, 0, u"0.1"_s, u"V"_s, u"V"_s, 0.1F},
     {0, 0, 0, 0, 0},
     {0, 0, 0, 0, 0},
     {0, 0, 0, -0.5, 0},
     {0, 0, 0, -0.5F},
     u"0.0V|0.0V|-0.5V|0.0|0.0|-0.5V|0.0V|0|FAIL|"_s},
    {"no tolerance at zero, a reading above it shows 0 percent and fails",
     {0, 0.5, 0, 100, 100, 0, u"0.1"_s, u"V"_s, u"V"_s, 0.1F},
     {0, 0, 0, 0, 0},
     {0, 0, 0, 0, 0},
     {0, 0, 0, 0.5, 0},
     {0, 0, 0, 0.5F},
     u"0.0V|0.0V|0.5V|0.0|0.0|0.5V|0.0V|0|FAIL|"_s},
    {"an upper limit of zero over a nominal that prints as zero shows 0 percent and notifies",
     {-50, 0.5, -100, 100, 0.5F, -0.5F, u"1"_s, u"V"_s, u"V"_s, 1},
     {0, 0, 0, 0, 0.25F},
     {0, 0, 0, 0, 1},
     {-0.25, 0, -1.25, 0.75, 300},
     {0, 0, -1, 1},
     u"0V|-50V|1V|0|-1|1V|0V|0|FAIL|NOTIFY USER"_s},
    {"equal input ends make the input the nominal, the tolerance terms still use the output range",
     {7.25, 7.5, 5, 5, 20, 4, u"0.01"_s, u"V"_s, u"mA"_s, 0.01F},
     {1, 1, 0, 0, 0},
     {1, 1, 0, 0, 0},
     {7.25, 7.61, 6.89, 0.25, 69.44444444444439},
     {7.25F, 7.61F, 6.89F, 0.25F},
     u"7.25mA|7.25V|7.50mA|7.61|6.89|0.25mA|0.36mA|69|PASS|"_s},
    {"a falling output",
     {25, 17, 0, 100, 0, 20, u"0.1"_s, u"psi"_s, u"V"_s, 0.1F},
     {0, -1, 0, 0, 0.5F},
     {0, -1, 0, 0, 0.5F},
     {15, 15.7, 14.3, 2, 285.714285714286},
     {15, 15.7F, 14.3F, 2},
     u"15.0V|25.0psi|17.0V|15.7|14.3|2.0V|0.7V|286|FAIL|NOTIFY USER"_s},
    {"the share of full scale is divided before it is multiplied",
     {3.7, 3.6, 0, 100, 100, 0, u"0.001"_s, u" C"_s, u" mV"_s, 0.001F},
     {3.24F, 0, 0, 0, 0},
     {3.24F, 0, 0, 0, 0},
     {3.7000000000000006, 6.940000009536744, 0.459999990463257, -0.10000000000000053, -3.0864197440017467},
     {3.7F, 6.94F, 0.46F, -0.1F},
     u"3.700 mV|3.700 C|3.600 mV|6.940|0.460|-0.100 mV|3.240 mV|3|PASS|"_s},
    {"the share of span is multiplied before it is divided",
     {3.7, 3.6, 0, 100, 100, 0, u"0.001"_s, u" C"_s, u" mV"_s, 0.001F},
     {0, 3.24F, 0, 0, 0},
     {0, 3.24F, 0, 0, 0},
     {3.7000000000000006, 6.940000009536744, 0.45999999046325746, -0.10000000000000053, -3.086419744001747},
     {3.7F, 6.94F, 0.46F, -0.1F},
     u"3.700 mV|3.700 C|3.600 mV|6.940|0.460|-0.100 mV|3.240 mV|3|PASS|"_s},
    {"the share of reading is divided before it is multiplied",
     {33.3, 33, 0, 100, 100, 0, u"0.001"_s, u" C"_s, u" mV"_s, 0.001F},
     {0, 0, 1.46F, 0, 0},
     {0, 0, 1.46F, 0, 0},
     {33.3, 33.786180012702935, 32.81381998729706, -0.29999999999999716, -61.705539545349566},
     {33.3F, 33.786F, 32.814F, -0.3F},
     u"33.300 mV|33.300 C|33.000 mV|33.786|32.814|-0.300 mV|0.486 mV|62|PASS|"_s},
    {"a reading as far from one limit as from the other shows the lower half width",
     {50, 51, 0, 100, 100, 0, u"0.1"_s, u"V"_s, u"V"_s, 0.1F},
     {0, 0, 0, 0, 3},
     {0, 0, 0, 0, 1},
     {50, 53, 49, 1, 33.33333333333333},
     {50, 53, 49, 1},
     u"50.0V|50.0V|51.0V|53.0|49.0|1.0V|1.0V|33|PASS|"_s},
    {"a share of a negative reading puts the upper limit below the nominal",
     {-10, -10, -100, 100, 100, -100, u"0.1"_s, u"V"_s, u"V"_s, 0.1F},
     {0, 0, 1, 0, 0},
     {0, 0, 1, 0, 0},
     {-10, -10.1, -9.9, 0, 0},
     {-10, -10.1F, -9.9F, 0},
     u"-10.0V|-10.0V|-10.0V|-10.1|-9.9|0.0V|-0.1V|0|FAIL|"_s},
    {"a reading above it there keeps the minus of its percentage",
     {-10, -9.95, -100, 100, 100, -100, u"0.01"_s, u"V"_s, u"V"_s, 0.01F},
     {0, 0, 1, 0, 0},
     {0, 0, 1, 0, 0},
     {-10, -10.1, -9.9, 0.05000000000000071, -50.00000000000089},
     {-10, -10.1F, -9.9F, 0.05F},
     u"-10.00V|-10.00V|-9.95V|-10.10|-9.90|0.05V|-0.10V|-50|FAIL|"_s},
    {"counts of the last digit take the resolution by way of its text",
     {50, 50.3, 0, 100, 100, 0, u"0.1"_s, u"V"_s, u"V"_s, 0.1F},
     {0, 0, 0, 3, 0},
     {0, 0, 0, 3, 0},
     {50, 50.3, 49.7, 0.29999999999999716, 100},
     {50, 50.3F, 49.7F, 0.3F},
     u"50.0V|50.0V|50.3V|50.3|49.7|0.3V|0.3V|100|PASS|MARGINAL"_s},
    {"the sides have their own terms",
     {75, 99.5, 0, 100, 200, -200, u"0.01"_s, u"A"_s, u"A"_s, 0.01F},
     {0.1F, 0.2F, 0.3F, 4, 0.5F},
     {0.05F, 0.04F, 0.3F, 2, 0.1F},
     {100, 101.8400000268221, 99.31999998867512, -0.5, -73.52941054012993},
     {100, 101.84F, 99.32F, -0.5F},
     u"100.00A|75.00A|99.50A|101.84|99.32|-0.50A|0.68A|74|PASS|"_s},
    {"a resolution of ten rounds halves to the even ten",
     {125, 135, 0, 1000, 1000, 0, u"10"_s, {}, u"rpm"_s, 10},
     {0, 0, 0, 1, 5},
     {0, 0, 0, 1, 5},
     {125, 140, 110, 10, 66.66666666666666},
     {120, 140, 110, 10},
     u"120rpm|120|140rpm|140|110|10rpm|20rpm|50|PASS|"_s},
    {"a resolution of a thousand",
     {12500, 14501, 0, 100000, 100000, 0, u"1000"_s, u"Hz"_s, u"Hz"_s, 1000},
     {2, 0, 0, 0, 0},
     {2, 0, 0, 0, 0},
     {12500, 14500, 10500, 2001, 100.05},
     {12000, 14000, 10000, 2000},
     u"12000Hz|12000Hz|15000Hz|14000|10000|2000Hz|2000Hz|100|FAIL|NOTIFY USER"_s},
    {"a resolution of 0.5 has no texts but units, and the percentage is the exact one",
     {50, 50.5, 0, 100, 100, 0, u"0.5"_s, u"V"_s, u"V"_s, 0.5F},
     {0, 0, 0, 0, 2},
     {0, 0, 0, 0, 2},
     {50, 52, 48, 0.5, 25},
     {0, 0, 0, 0},
     u"V|V|V|||V|V|25|PASS|"_s},
    {"a resolution of 0.5 with a lower limit of zero shows 0 percent",
     {50, 25, 0, 100, 100, 0, u"0.5"_s, u"V"_s, u"V"_s, 0.5F},
     {0, 0, 0, 0, 50},
     {0, 0, 0, 0, 50},
     {50, 100, 0, -25, -50},
     {0, 0, 0, 0},
     u"V|V|V|||V|V|0|PASS|"_s},
    {"nine decimals",
     {0.5, 0.500000001, 0, 1, 1, 0, u"0.000000001"_s, u"V"_s, u"V"_s, 1E-09F},
     {0, 0, 0, 2, 0},
     {0, 0, 0, 2, 0},
     {0.5, 0.500000002, 0.499999998, 9.999999717180685E-10, 49.99999722444252},
     {0.5F, 0.5F, 0.5F, 1E-09F},
     u"0.500000000V|0.500000000V|0.500000001V|0.500000002|0.499999998|0.000000001V|0.000000002V|50|PASS|"_s},
    {"the terms are added to the nominal one after the other",
     {12.5, 2.53, 0, 100, 20, 0, u"0.01"_s, u"psi"_s, u"mA"_s, 0.01F},
     {0.25F, 0.25F, 0.2F, 7, 1.3F},
     {0.25F, 0.25F, 0.2F, 7, 1.3F},
     {2.5, 3.9749999523907893, 1.0250000476092107, 0.029999999999999805, 2.0338983707337466},
     {2.5F, 3.97F, 1.03F, 0.03F},
     u"2.50mA|12.50psi|2.53mA|3.97|1.03|0.03mA|1.47mA|2|PASS|"_s},
    {"a lower limit of zero alone does not show 0 percent",
     {50, 25, 0, 100, 100, 0, u"0.1"_s, u"V"_s, u"V"_s, 0.1F},
     {0, 0, 0, 0, 50},
     {0, 0, 0, 0, 50},
     {50, 100, 0, -25, -50},
     {50, 100, 0, -25},
     u"50.0V|50.0V|25.0V|100.0|0.0|-25.0V|50.0V|50|PASS|"_s},
    {"large but fitting numbers",
     {1E+30, 1E+30, 0, 1E+32F, 1E+32F, 0, u"1"_s, u"V"_s, u"V"_s, 1},
     {1, 0, 0, 0, 0},
     {1, 0, 0, 0, 0},
     {1E+30, 2.0000000331813534E+30, -3.31813535111E+22, 0, 0},
     {1E+30F, 2E+30F, -3.3181353E+22F, 0},
     u"1000000000000000000000000000000V|1000000000000000000000000000000V|1000000000000000000000000000000V|2000000033181350000000000000000|-33181353511100000000000|0V|1000000033181350000000000000000V|0|PASS|"_s},
    {"an error that prints as minus zero prints as zero",
     {50, 49.996, 0, 100, 100, 0, u"0.01"_s, u"V"_s, u"V"_s, 0.01F},
     {0, 0, 0, 0, 1},
     {0, 0, 0, 0, 1},
     {50, 51, 49, -0.003999999999997783, -0.3999999999997783},
     {50, 51, 49, 0},
     u"50.00V|50.00V|50.00V|51.00|49.00|0.00V|1.00V|0|PASS|"_s},
};

Point withTerms(const JudgedPoint& judgedPoint) {
    auto point = judgedPoint.point;
    point.pos = judgedPoint.pos;
    point.neg = judgedPoint.neg;
    return point;
}

} // namespace

class Tolerance : public RecordedSession {};

TEST_F(Tolerance, JudgesEachPointAsCalculatedManually) {
    for (const auto& judged : judgedPoints) {
        SCOPED_TRACE(judged.name);
        const auto result = calculate(session, withTerms(judged));
        EXPECT_EQ(result.nominal, judged.figures.nominal);
        EXPECT_EQ(result.upper_limit, judged.figures.upper_limit);
        EXPECT_EQ(result.lower_limit, judged.figures.lower_limit);
        EXPECT_EQ(result.error, judged.figures.error);
        EXPECT_EQ(result.percent, judged.figures.percent);
        EXPECT_EQ(result.nominal_rounded, judged.rounded.nominal);
        EXPECT_EQ(result.upper_rounded, judged.rounded.upper);
        EXPECT_EQ(result.lower_rounded, judged.rounded.lower);
        EXPECT_EQ(result.error_rounded, judged.rounded.error);
        const QStringList texts{result.nominal_text,   result.input_text,   result.output_text,
                                result.upper_text,     result.lower_text,   result.error_text,
                                result.tolerance_text, result.percent_text, result.verdict,
                                result.advice};
        EXPECT_EQ(texts.join(u'|'), judged.texts);
        EXPECT_EQ(result.result_line, QString(120, u' '));
    }
}

TEST_F(Tolerance, ReportLineShowsThePointAndTheTextsComeBackPadded) {
    session.ResultTemplateLine =
        u"TN$ FN$     FVA$     FRE$      TT$     DE$    ET$ TU$CO$        FLL$    FUL$   TR$"_s;
    const Point point{
        50, 53, 0, 100, 100, 0, u"0.1"_s, u"psi"_s, u"V"_s, 0.1F, {0, 0, 0, 0, 2}, {0, 0, 0, 0, 2}};

    const auto result = calculate(session, point, 7);

    EXPECT_EQ(result.result_line.trimmed(),
              u"7  50.0V   50.0psi  53.0V    2.0V    3.0V   150    NOTIFY USER 48.0    52.0  FAIL"_s);
    EXPECT_EQ(result.result_line.size(), 120);
    EXPECT_EQ(result.nominal_text, u" 50.0V"_s);
    EXPECT_EQ(result.input_text, u" 50.0psi"_s);
    EXPECT_EQ(result.output_text, u" 53.0V"_s);
    EXPECT_EQ(result.lower_text, u" 48.0"_s);
    EXPECT_EQ(result.upper_text, u" 52.0"_s);
    EXPECT_EQ(result.tolerance_text, u"2.0V"_s);
    EXPECT_EQ(result.error_text, u"3.0V"_s);
    EXPECT_EQ(result.percent_text, u"150"_s);
}

TEST_F(Tolerance, ShortPercentageComesBackPaddedToThree) {
    session.ResultTemplateLine = u"ET$"_s;
    EXPECT_EQ(calculate(session, withTerms(judgedPoints[0])).percent_text, u" 30"_s);
}

TEST_F(Tolerance, PointNumberMayHaveAnySize) {
    session.ResultTemplateLine = u"TN$"_s;
    EXPECT_EQ(calculate(session, withTerms(judgedPoints[0]), 1).result_line.left(6), u"  1   "_s);
    EXPECT_EQ(calculate(session, withTerms(judgedPoints[0]), 32767).result_line.left(6), u"32767 "_s);
    EXPECT_EQ(calculate(session, withTerms(judgedPoints[0]), -12).result_line.left(6), u"-12   "_s);
}

} // namespace kelvane::testing
