#include "demo/records.h"

using namespace Qt::StringLiterals;

namespace kelvane::demo {

/// In the order in which they are entered; the last four are the members of the package.
const QList<Tool>& tools() {
    static const QList<Tool> all{
        {u"TW-101"_s,
         u"TT-0300F"_s,
         u"50, 150, 250; 0.8, -0.666667, 0.4"_s,
         u"clean"_s,
         true,
         u"08:02"_s,
         0,
         0,
         {}},
        {u"TW-102"_s,
         u"TT-0150F"_s,
         u"20, 60, 100; 0.5, 3.333333, 0.5"_s,
         u"scale worn"_s,
         true,
         u"08:02"_s,
         0,
         1,
         {}},
        {u"TW-103"_s, u"TT-0075F"_s, u"10, 30, 50; 1, 0.666667, 0.6"_s, u""_s, true, u"08:08"_s, 0, 0, {}},
        {u"TW-104"_s,
         u"TT-0300I"_s,
         u"40, 120, 200; 2.5, 8.333333, 1.5"_s,
         u"dropped"_s,
         false,
         u"08:02"_s,
         1,
         0,
         {}},
        {u"TW-105"_s,
         u"TT-0500N"_s,
         u"24, 72, 120; 0.833333, -4.861111, -0.416667"_s,
         u""_s,
         false,
         1,
         0,
         {}},
        {u"TW-106"_s,
         u"TT-0500N"_s,
         u"68, 204, 340; 0.294118, 0.245098, 0.882353"_s,
         u""_s,
         true,
         u"08:02"_s,
         0,
         1,
         {}},
    };
    return all;
}

} // namespace kelvane::demo
