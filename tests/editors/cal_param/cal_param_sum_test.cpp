#include "data/small_routines.h"
#include "testkit/fixtures.h"
#include "tests/editors/cal_param/cal_param_entry.h"

#include <QComboBox>
#include <QTabWidget>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

/// The pages with a text in each control that stands for it alone, as far as its rows allow.
class CalParamSum : public CalParamPages {
  protected:
    CalParamSum() {
        addRows(*fields.list(&CalParamRecord::tp_name), {u"FIVE"_s, u"THREE"_s});
        for (const auto& control : givenControls()) {
            const auto& param = *std::ranges::find(givenParams, control.column, &GivenParam::column);
            if (control.name.startsWith(u"Text"))
                put(control, u'<' + control.column.toString() + u'>');
            else if (const auto value = shownFor(control, param.shown); value != u"off")
                put(control, value);
        }
        show(*body, u"ListPostDisplay"_s, u"AFTER 1,AFTER 2"_s);
        show(*body, u"ListPreDisplay"_s, u"BEFORE 1,BEFORE 2"_s);
    }
    /// Lets a control show a value, and keeps what the sum has to say of it.
    void put(const GivenControl& control, const QString& value) {
        show(*body, control.name.toString(), value);
        parts[control.column] = control.name.startsWith(u"Option")  ? control.summed.toString()
                                : control.name.startsWith(u"Check") ? (value == u"on" ? u"Y"_s : u"N"_s)
                                                                    : value;
    }
    /// What the sum is to be taken of.
    QString expected() const {
        QString text;
        for (const auto column : givenSummedColumns.tokenize(u','))
            text += parts.value(column, u"N"_s); // a check box that is off
        return text + u"AFTER 1AFTER 2BEFORE 1BEFORE 2"_s;
    }
    /// The option that is on in the group of another.
    QString onBeside(const QString& name) const {
        const auto controls = givenControls();
        const auto other = std::ranges::find(controls, name, &GivenControl::name);
        for (const auto& control : controls) {
            if (control.column == other->column && shownBy(*body, control.name.toString()) == u"on")
                return control.name.toString();
        }
        return {};
    }
    double sum() { return ModuleGlobals::CheckSum(session(), checkSumText(fields, c)); }

    QHash<QStringView, QString> parts;

  private:
    struct Host : RecordedSession {
        void TestBody() override {}
        using RecordedSession::session;
    };
    Session& session() { return host_.session; }
    Host host_;
};

TEST_F(CalParamSum, IsTakenOfAllPartsInTheirOrder) {
    EXPECT_EQ(checkSumText(fields, c), expected());
}

TEST_F(CalParamSum, OfTheOtherOptions) {
    for (const auto& control : givenControls()) {
        SCOPED_TRACE(control.name.toString().toStdString());
        if (control.name.startsWith(u"Option"))
            put(control, u"on"_s);
        else if (control.name.startsWith(u"Check"))
            put(control, shownBy(*body, control.name.toString()) == u"on" ? u"off"_s : u"on"_s);
        EXPECT_EQ(checkSumText(fields, c), expected());
    }
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
            const auto wasOn = onBeside(name);
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
    show(*body, u"TextFSPos"_s, u"<neg_fs_range_pct>"_s);
    show(*body, u"TextFSNeg"_s, u"<pos_fs_range_pct>"_s);
    EXPECT_EQ(sum(), before);
}

TEST_F(CalParamSum, SeesHiddenControlsAndNotWhatIsShown) {
    const double before = sum();
    c.SSTab1->setCurrentIndex(3);
    c.SSTabTorqueOut->show();
    c.SSTabTorqueOut->setTabEnabled(1, false);
    EXPECT_EQ(sum(), before);
    show(*body, u"TextPTPAmplitudeOut"_s, u"<freq_ptpamp_out>!"_s);
    EXPECT_NE(sum(), before);
}

} // namespace kelvane::testing
