#include "data/parameters/prompt_macros.h"

#include "data/parameters/cal_params.h"
#include "data/records/due_date.h"
#include "data/records/field_dictionary.h"
#include "data/routine.h"
#include "data/tolerances/tolerances.h"
#include "platform/values/numbers.h"
#include "platform/values/texts.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <span>

using namespace Qt::StringLiterals;

namespace kelvane::ModuleGlobals {

namespace {

/// What a macro's value may depend on.
struct Context {
    Session& session;
    const QString& asset;
    const CalParamRecord& params;
    /// The same for all macros of a text, whatever the clock does meanwhile.
    Moment present;

    QDate today() const { return present.date; }
    QDate firstOfMonth() const { return {today().year(), today().month(), 1}; }
    QString dateText(const QDate& date) const {
        return formatMoment({date, QTime(0, 0)}, session.SessionDateFormat);
    }
};

struct Macro {
    QStringView name;
    QString (*value)(const Context& context);
};

QString written(const QString& text) {
    return text;
}
QString written(float number) {
    return plainText(number);
}
QString written(qint16 number) {
    return plainText(int{number});
}

template <auto Field>
QString field(const Context& context) {
    return written(context.params.*Field);
}

template <auto Field>
QString percent(const Context& context) {
    return written(context.params.*Field) + u'%';
}

template <auto Field>
QString yesOrNo(const Context& context) {
    return text(context.params.*Field ? TextId::yes : TextId::no);
}

/// The cold junction of one side, with the temperature when its reference is outside.
template <auto Type, auto Temperature, auto Units>
QString coldJunction(const Context& context) {
    const auto& params = context.params;
    if (params.*Type != u"EXT")
        return text(TextId::referenceInternal);
    return text(TextId::referenceExternal) + u' ' + written(params.*Temperature) + params.*Units;
}

/// The next month's number with this year: in December that is January of the year that ends.
QDate firstOfNextMonth(const Context& context) {
    const auto next = context.firstOfMonth().addMonths(1);
    return {context.today().year(), next.month(), 1};
}

QString passCalDate(const Context& context) {
    Moment today{context.today(), QTime(0, 0)};
    float interval = 0;
    QString unit = u"N"_s;
    const auto due = calcDueDate(context.session, context.asset, today, interval, unit);
    return formatMoment(due, context.session.SessionDateFormat);
}

constexpr Macro generalMacros[] = {
    {u"U_NAM", [](const Context& c) { return c.session.SessionUser; }},
    {u"U_SEG", [](const Context& c) { return c.session.SessionOwner; }},
    {u"NOW", [](const Context& c) { return formatMoment(c.present, u"HH:NN:SS"); }},
    {u"TODAY", [](const Context& c) { return c.dateText(c.today()); }},
    {u"FIRSTDAYTHISMONTH", [](const Context& c) { return c.dateText(c.firstOfMonth()); }},
    {u"LASTDAYTHISMONTH",
     [](const Context& c) { return c.dateText(c.firstOfMonth().addMonths(1).addDays(-1)); }},
    {u"FIRSTDAYNEXTMONTH", [](const Context& c) { return c.dateText(firstOfNextMonth(c)); }},
    {u"LASTDAYNEXTMONTH",
     [](const Context& c) { return c.dateText(c.firstOfMonth().addMonths(2).addDays(-1)); }},
    {u"FIRSTDAYLASTMONTH", [](const Context& c) { return c.dateText(c.firstOfMonth().addMonths(-1)); }},
    {u"LASTDAYLASTMONTH", [](const Context& c) { return c.dateText(c.firstOfMonth().addDays(-1)); }},
    {u"PASSCALDATE", passCalDate},
};

using R = CalParamRecord;

constexpr Macro assetMacros[] = {
    {u"STRATEGYNAME", field<&R::tp_name>},
    {u"INPUTLOW", field<&R::input_low>},
    {u"INPUTHIGH", field<&R::input_high>},
    {u"INPUTUNITS", field<&R::input_type>},
    {u"OUTPUTLOW", field<&R::output_low>},
    {u"OUTPUTHIGH", field<&R::output_high>},
    {u"OUTPUTUNITS", field<&R::output_type>},
    {u"RESOLUTION", field<&R::resolution>},
    {u"REPETITIONS", field<&R::repetitions>},
    {u"STRATEGYPOINTS", field<&R::test_point_count>},
    {u"INPUTINDICATED", yesOrNo<&R::input_indicated>},
    {u"OUTPUTINDICATED", yesOrNo<&R::output_indicated>},
    {u"FSPOS", percent<&R::pos_fs_range_pct>},
    {u"FSNEG", percent<&R::neg_fs_range_pct>},
    {u"SPANPOS", percent<&R::pos_span_pct>},
    {u"SPANNEG", percent<&R::neg_span_pct>},
    {u"READINGPOS", percent<&R::pos_reading_pct>},
    {u"READINGNEG", percent<&R::neg_reading_pct>},
    {u"LSDPOS", field<&R::pos_lsd_counts>},
    {u"LSDNEG", field<&R::neg_lsd_counts>},
    {u"UNITSPOS", field<&R::pos_units>},
    {u"UNITSNEG", field<&R::neg_units>},
    {u"INPUTTEMPSCALE", field<&R::temp_scale_in>},
    {u"OUTPUTTEMPSCALE", field<&R::temp_scale_out>},
    {u"INPUTCJ", coldJunction<&R::cj_ref_type_in, &R::cj_ref_temp_in, &R::input_type>},
    {u"OUTPUTCJ", coldJunction<&R::cj_ref_type_out, &R::cj_ref_temp_out, &R::output_type>},
    {u"INPUTTEMPSENS", field<&R::temp_sens_type_in>},
    {u"OUTPUTTEMPSENS", field<&R::temp_sens_type_out>},
    {u"INPUTTEMPWIRES", field<&R::temp_sens_wires_in>},
    {u"OUTPUTTEMPWIRES", field<&R::temp_sens_wires_out>},
    {u"OUTPUTLOOPPWR", field<&R::loop_pwr>},
    {u"OUTPUTTRANSDUCER", field<&R::transducer_type_out>},
    {u"OUTPUTTHRESTORQ", field<&R::threshold_torque_out>},
    {u"OUTPUTTORQMEASMODE", field<&R::measurement_mode_out>},
    {u"OUTPUTTORQCYCEND", field<&R::cycle_end_time_out>},
    {u"OUTPUTTORQDIRECTION", field<&R::measurement_direction_out>},
    {u"OUTPUTTORQFREQ", field<&R::frequency_response_out>},
    {u"TRANSLATEDFSTOL",
     [](const Context& c) { return plainText(TranslateFSTestTolSingle(c.session, c.asset)) + u'%'; }},
    {u"TRANSLATEDSPANTOL",
     [](const Context& c) { return plainText(TranslateSpanTestTolSingle(c.session, c.asset)) + u'%'; }},
};

std::optional<QString> valueFrom(std::span<const Macro> macros, QStringView name, const Context& context) {
    for (const auto& macro : macros) {
        if (macro.name == name)
            return macro.value(context);
    }
    return {};
}

/// The value of a macro; nothing for one that isn't known, or needs an asset and has none.
std::optional<QString> valueOf(const QString& macro, const Context& context) {
    const auto name = upperCased(macro);
    if (const auto value = valueFrom(generalMacros, name, context))
        return value;
    if (context.asset.isEmpty())
        return {};
    if (const auto value = valueFrom(assetMacros, name, context))
        return value;
    if (name.startsWith(u"CHR:")) {
        if (const auto code = numberOf(QStringView(name).mid(4)))
            return characterOf(roundedToLong(*code));
    }
    if (name.startsWith(u"DB:"))
        return SourceColumn(context.session, macro.right(5), context.asset);
    return {};
}

QString expanded(const QString& text, const Context& context) {
    QString result;
    qsizetype at = 0;
    while (true) {
        const auto opening = text.indexOf(u'$', at);
        const auto closing = opening < 0 ? -1 : text.indexOf(u'$', opening + 1);
        if (closing < 0)
            return result + text.mid(at).remove(u'$'); // a lone "$" is dropped
        result += QStringView(text).mid(at, opening - at);
        const auto macro = text.mid(opening + 1, closing - opening - 1);
        result += valueOf(macro, context).value_or(macro);
        at = closing + 1;
    }
}

} // namespace

QString UUTPromptTextPrepare(Session& session, const QString& text, const QString& asset) {
    if (!text.contains(u'$'))
        return text;
    QString result;
    Routine routine(session, u"ModuleGlobals,UUTPromptTextPrepare"_s);
    routine.run([&] {
        const auto params = asset.isEmpty() ? CalParamRecord{} : GetCalParams(session, asset);
        result = expanded(text, {session, asset, params, session.clock.moment()});
    });
    return result;
}

} // namespace kelvane::ModuleGlobals
