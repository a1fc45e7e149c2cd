#include "tests/editors/cal_param/cal_param_fixture.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

QStringList toleranceBoxes() {
    return {u"TextFSPos"_s,   u"TextFSNeg"_s,  u"TextSpanPos"_s, u"TextSpanNeg"_s,  u"TextReadPos"_s,
            u"TextReadNeg"_s, u"TextLSDPos"_s, u"TextLSDNeg"_s,  u"TextUnitsPos"_s, u"TextUnitsNeg"_s};
}

CalParamFixture::CalParamFixture() {
    for (const auto& asset : {u"PT-1"_s, u"PT-2"_s, u"PT-3"_s})
        script.answers.insert(selectKey(asset), {Row{u"17"_s}});
    script.answers.insert(u"select distinct(tp_name) from mt.hvm_kv_proc_points order by tp_name asc"_s,
                          {Row{u"FIVE"_s}, Row{u"THREE"_s}});
    screen.open(u"PT-1"_s);
    script.statements.clear();
}

void CalParamFixture::makeReady() {
    const QPair<QString, QString> ready[] = {
        {u"ComboTSName"_s, u"FIVE"_s},
        {u"TextInputLow"_s, u"0.0"_s},
        {u"TextInputHigh"_s, u"100.0"_s},
        {u"ComboInputUnits"_s, u"psi"_s},
        {u"TextRepetitions"_s, u"1"_s},
        {u"TextOutputLow"_s, u"4"_s},
        {u"TextOutputHigh"_s, u"20"_s},
        {u"ComboOutputUnits"_s, u"mA"_s},
        {u"ComboTempScaleIn"_s, u"ITS-90"_s},
        {u"ComboTempScaleOut"_s, u"ITS-90"_s},
        {u"ComboSensTypeIn"_s, u"RTD PT100 3926"_s},
        {u"ComboSensTypeOut"_s, u"RTD PT100 3926"_s},
        {u"OptionCJRefIntIn"_s, u"on"_s},
        {u"OptionCJRefIntOut"_s, u"on"_s},
        {u"TextCJRefTempIn"_s, u"0.0"_s},
        {u"TextCJRefTempOut"_s, u"0.0"_s},
        {u"ComboMeasurementModeOut"_s, u"Peak"_s},
        {u"TextThresholdOut"_s, u"0.0"_s},
        {u"TextDipOut"_s, u"0.0"_s},
        {u"TextPTPAmplitudeIn"_s, u"100.0"_s},
        {u"TextPTPAmplitudeOut"_s, u"100.0"_s},
    };
    for (const auto& [name, value] : ready)
        screen.set(name, value);
    for (const auto& box : toleranceBoxes())
        screen.set(box, u"0.0"_s);
}

QStringList CalParamFixture::writes() const {
    QStringList found;
    for (const auto& statement : script.statements) {
        if (!statement.startsWith(u"select"))
            found << statement;
    }
    return found;
}

QString CalParamFixture::key(const QString& asset) {
    return u"(select mtag from MT.inventory where i4201 = '"_s + asset + u"')"_s;
}

QString CalParamFixture::selectKey(const QString& asset) {
    return u"select mtag from MT.inventory where i4201 = '"_s + asset + u"'"_s;
}

QString CalParamFixture::selectStored(const QString& asset) {
    return u"select mtag from mt.hvm_kv_tag_config where mtag = "_s + key(asset);
}

} // namespace kelvane::testing
