#include "data/small_routines.h"
#include "editors/cal_param/cal_param_load.h"
#include "testkit/fixtures.h"
#include "tests/editors/cal_param/cal_param_entry.h"

#include <QComboBox>
#include <QTabWidget>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

/// The pages with a text in each control that stands for it alone, as far as its rows allow.
class CalParamSum : public CalParamPages {
  protected:
    CalParamSum() {
        addRows(*c.ComboTSName, {u"FIVE"_s, u"THREE"_s});
        const QPair<QString, QString> values[] = {
            {u"ComboMeasRes"_s, u"0.001"_s},
            {u"ComboInputUnits"_s, u"psi"_s},
            {u"ComboOutputUnits"_s, u"mA"_s},
            {u"TextInputLow"_s, u"<il>"_s},
            {u"TextInputHigh"_s, u"<ih>"_s},
            {u"TextOutputLow"_s, u"<ol>"_s},
            {u"TextOutputHigh"_s, u"<oh>"_s},
            {u"ComboTempScaleIn"_s, u"ITS-90"_s},
            {u"ComboTempScaleOut"_s, u"IPTS-68"_s},
            {u"OptionCJRefExtIn"_s, u"on"_s},
            {u"OptionCJRefIntOut"_s, u"on"_s},
            {u"TextCJRefTempIn"_s, u"<ri>"_s},
            {u"TextCJRefTempOut"_s, u"<ro>"_s},
            {u"ComboSensTypeIn"_s, u"TC K"_s},
            {u"ComboSensTypeOut"_s, u"TC S"_s},
            {u"OptionSensWires2In"_s, u"on"_s},
            {u"OptionSensWires3Out"_s, u"on"_s},
            {u"TextFSNeg"_s, u"<f->"_s},
            {u"TextFSPos"_s, u"<f+>"_s},
            {u"TextSpanNeg"_s, u"<s->"_s},
            {u"TextSpanPos"_s, u"<s+>"_s},
            {u"TextReadNeg"_s, u"<r->"_s},
            {u"TextReadPos"_s, u"<r+>"_s},
            {u"TextLSDNeg"_s, u"<l->"_s},
            {u"TextLSDPos"_s, u"<l+>"_s},
            {u"TextUnitsNeg"_s, u"<u->"_s},
            {u"TextUnitsPos"_s, u"<u+>"_s},
            {u"ComboTSName"_s, u"FIVE"_s},
            {u"ComboTransTypeOut"_s, u"UTA"_s},
            {u"TextThresholdOut"_s, u"<t>"_s},
            {u"TextDipOut"_s, u"<d>"_s},
            {u"ComboCycleEndTimeOut"_s, u"2.0"_s},
            {u"ComboFreqRespOut"_s, u"302"_s},
            {u"ComboMeasurementModeOut"_s, u"Peak"_s},
            {u"ComboMeasDirOut"_s, u"Left"_s},
            {u"ComboBaudRateOut"_s, u"1200"_s},
            {u"ComboDataBitsOut"_s, u"7"_s},
            {u"ComboStopBitsOut"_s, u"2"_s},
            {u"ComboParityOut"_s, u"Odd"_s},
            {u"TextRepetitions"_s, u"<n>"_s},
            {u"OptionCalLoopPWROut24VDC"_s, u"on"_s},
            {u"TextPTPAmplitudeIn"_s, u"<pi>"_s},
            {u"TextPTPAmplitudeOut"_s, u"<po>"_s},
            {u"CheckIndicatedOutput"_s, u"on"_s},
            {u"ListPostDisplay"_s, u"AFTER 1,AFTER 2"_s},
            {u"ListPreDisplay"_s, u"BEFORE 1,BEFORE 2"_s},
        };
        for (const auto& [name, value] : values)
            show(*body, name, value);
    }
    double sum() { return ModuleGlobals::CheckSum(session(), summedText(c)); }

  private:
    struct Host : RecordedSession {
        void TestBody() override {}
        using RecordedSession::session;
    };
    Session& session() { return host_.session; }
    Host host_;
};

TEST_F(CalParamSum, IsTakenOfAllPartsInTheirOrder) {
    EXPECT_EQ(summedText(c), u"0.001"
                             "psi"
                             "mA"
                             "<il>"
                             "<ih>"
                             "<ol>"
                             "<oh>"
                             "ITS-90"
                             "IPTS-68"
                             "E"
                             "I"
                             "<ri>"
                             "<ro>"
                             "TC K"
                             "TC S"
                             "2"
                             "3"
                             "<f->"
                             "<f+>"
                             "<s->"
                             "<s+>"
                             "<r->"
                             "<r+>"
                             "<l->"
                             "<l+>"
                             "<u->"
                             "<u+>"
                             "FIVE"
                             "UTA"
                             "<t>"
                             "<d>"
                             "2.0"
                             "302"
                             "Peak"
                             "Left"
                             "1200"
                             "7"
                             "2"
                             "Odd"
                             "<n>"
                             "24"
                             "<pi>"
                             "<po>"
                             "Y"
                             "N"
                             "AFTER 1"
                             "AFTER 2"
                             "BEFORE 1"
                             "BEFORE 2"_s);
}

TEST_F(CalParamSum, OfTheOtherOptions) {
    const auto before = summedText(c);
    show(*body, u"OptionCJRefIntIn"_s, u"on"_s);
    show(*body, u"OptionCJRefExtOut"_s, u"on"_s);
    show(*body, u"OptionSensWires4In"_s, u"on"_s);
    show(*body, u"OptionSensWires2Out"_s, u"on"_s);
    show(*body, u"OptionCalLoopPWROut28VDC"_s, u"on"_s);
    show(*body, u"CheckIndicatedOutput"_s, u"off"_s);
    show(*body, u"CheckIndicatedInput"_s, u"on"_s);
    auto expected = before;
    expected.replace(u"IPTS-68EI<ri>"_s, u"IPTS-68IE<ri>"_s)
        .replace(u"TC S23<f->"_s, u"TC S42<f->"_s)
        .replace(u"<n>24<pi>"_s, u"<n>28<pi>"_s)
        .replace(u"<po>YNAFTER"_s, u"<po>NYAFTER"_s);
    EXPECT_EQ(summedText(c), expected);
    show(*body, u"OptionSensWires3In"_s, u"on"_s);
    show(*body, u"OptionSensWires4Out"_s, u"on"_s);
    show(*body, u"OptionCalLoopPWROutOff"_s, u"on"_s);
    expected.replace(u"TC S42<f->"_s, u"TC S34<f->"_s).replace(u"<n>28<pi>"_s, u"<n>O<pi>"_s);
    EXPECT_EQ(summedText(c), expected);
}

TEST_F(CalParamSum, ChangesWithEachControlAndComesBackWithItsValue) {
    const QStringList unseen{u"ListPreAvail"_s, u"ListPostAvail"_s};
    const double before = sum();
    for (const auto& name : valueControls(*body)) {
        SCOPED_TRACE(name.toStdString());
        const auto value = shownBy(*body, name);
        if (name.startsWith(u"Option")) {
            // Its group has another one on then.
            if (value == u"on")
                continue;
            const auto wasOn = [&] {
                for (const auto& [group, on] : {std::pair{u"CJRef.*In$"_s, u"OptionCJRefExtIn"_s},
                                                {u"CJRef.*Out$"_s, u"OptionCJRefIntOut"_s},
                                                {u"Wires.In$"_s, u"OptionSensWires2In"_s},
                                                {u"Wires.Out$"_s, u"OptionSensWires3Out"_s},
                                                {u"LoopPWR"_s, u"OptionCalLoopPWROut24VDC"_s}}) {
                    if (name.contains(QRegularExpression(group)))
                        return on;
                }
                return QString();
            }();
            show(*body, name, u"on"_s);
            EXPECT_NE(sum(), before);
            show(*body, wasOn, u"on"_s);
        } else {
            show(*body, name,
                 name.startsWith(u"Check")   ? (value == u"on" ? u"off"_s : u"on"_s)
                 : name.startsWith(u"Combo") ? QString()
                                             : value + u'x');
            EXPECT_EQ(sum() != before, !unseen.contains(name));
            show(*body, name, value);
        }
        EXPECT_EQ(sum(), before);
    }
}

TEST_F(CalParamSum, DoesNotSeeTheOrderOfMessages) {
    const double before = sum();
    show(*body, u"ListPreDisplay"_s, u"BEFORE 2,BEFORE 1"_s);
    show(*body, u"ListPostDisplay"_s, u"AFTER 2,AFTER 1"_s);
    EXPECT_EQ(sum(), before);
    show(*body, u"ListPreDisplay"_s, u"AFTER 1,AFTER 2"_s);
    show(*body, u"ListPostDisplay"_s, u"BEFORE 1,BEFORE 2"_s);
    EXPECT_EQ(sum(), before) << "nor which of the two lists they stand in";
    show(*body, u"ListPostDisplay"_s, u"BEFORE 1"_s);
    EXPECT_NE(sum(), before);
}

TEST_F(CalParamSum, DoesNotSeeValuesThatChangePlaces) {
    const double before = sum();
    show(*body, u"TextFSPos"_s, u"<f->"_s);
    show(*body, u"TextFSNeg"_s, u"<f+>"_s);
    EXPECT_EQ(sum(), before);
}

TEST_F(CalParamSum, SeesHiddenControlsAndNotWhatIsShown) {
    const double before = sum();
    c.SSTab1->setCurrentIndex(3);
    c.SSTabTorqueOut->show();
    c.SSTabTorqueOut->setTabEnabled(1, false);
    EXPECT_EQ(sum(), before);
    show(*body, u"TextPTPAmplitudeOut"_s, u"<po>!"_s);
    EXPECT_NE(sum(), before);
}

} // namespace kelvane::testing
