#include "procedures/predefined_points.h"

#include "testkit/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane {

TEST(PredefinedPoints, AreTheseFourteenRowsInThisOrder) {
    const struct {
        QString row;
        QStringList points;
    } table[] = {
        {u" "_s, {}},
        {u"1 Point (100%)"_s, {u"100.00"_s}},
        {u"1 Point (0%)"_s, {u"0.00"_s}},
        {u"2 Points Up (0-100%)"_s, {u"0.00"_s, u"100.00"_s}},
        {u"2 Points Down (100-0%)"_s, {u"100.00"_s, u"0.00"_s}},
        {u"3 Points Up (0-50-100%)"_s, {u"0.00"_s, u"50.00"_s, u"100.00"_s}},
        {u"3 Points Down (100-50-0%)"_s, {u"100.00"_s, u"50.00"_s, u"0.00"_s}},
        {u"3 Points Up/Down (0-50-100-50-0%)"_s, {u"0.00"_s, u"50.00"_s, u"100.00"_s, u"50.00"_s, u"0.00"_s}},
        {u"5 Points Up (0-25-50-75-100%)"_s, {u"0.00"_s, u"25"_s, u"50.00"_s, u"75"_s, u"100.00"_s}},
        {u"5 Points Down (100-75-50-25-0%)"_s, {u"100.00"_s, u"75"_s, u"50.00"_s, u"25"_s, u"0.00"_s}},
        {u"5 Points Up/Down (0-25-50...50-25-0%)"_s,
         {u"0.00"_s, u"25"_s, u"50.00"_s, u"75"_s, u"100.00"_s, u"75"_s, u"50.00"_s, u"25"_s, u"0.00"_s}},
        {u"11 Points Up (0-10-20-30-40-50-60...100%)"_s,
         {u"0.00"_s, u"10.00"_s, u"20.00"_s, u"30.00"_s, u"40.00"_s, u"50.00"_s, u"60.00"_s, u"70.00"_s,
          u"80.00"_s, u"90.00"_s, u"100.00"_s}},
        {u"11 Points Down (100-90-80-70-60...0%)"_s,
         {u"100.00"_s, u"90.00"_s, u"80.00"_s, u"70.00"_s, u"60.00"_s, u"50.00"_s, u"40.00"_s, u"30.00"_s,
          u"20.00"_s, u"10.00"_s, u"0.00"_s}},
        {u"11 Points Up/Down (0-10-20-30...20-10-0%)"_s,
         {u"0.00"_s,  u"10.00"_s, u"20.00"_s, u"30.00"_s,  u"40.00"_s, u"50.00"_s, u"60.00"_s,
          u"70.00"_s, u"80.00"_s, u"90.00"_s, u"100.00"_s, u"90.00"_s, u"80.00"_s, u"70.00"_s,
          u"60.00"_s, u"50.00"_s, u"40.00"_s, u"30.00"_s,  u"20.00"_s, u"10.00"_s, u"0.00"_s}},
    };
    QStringList rows;
    for (const auto& row : table) {
        EXPECT_EQ(predefinedPoints(static_cast<int>(rows.size())), row.points) << row.row.toStdString();
        rows << row.row;
    }
    EXPECT_EQ(predefinedRows(), rows);
}

TEST(PredefinedPoints, OfWhatIsNoRowAreNone) {
    for (const int row : {-1, 14, 15, 1000})
        EXPECT_EQ(predefinedPoints(row), QStringList()) << row;
}

} // namespace kelvane
