#include "data/parameters/prompt_macros.h"

#include "data/parameters/cal_param_columns.h"
#include "data/records/due_date.h"
#include "data/records/record_columns.h"
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

/// The cold junction of one side, with the temperature when its reference is external.
template <auto Type, auto Temperature, auto Units>
QString coldJunction(const Context& context) {
    const auto& params = context.params;
    if (params.*Type != u"EXT")
        return text(TextId::referenceInternal);
    return text(TextId::referenceExternal) + u' ' + plainText(params.*Temperature) + params.*Units;
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
    {u"INPUTCJ", coldJunction<&R::cj_ref_type_in, &R::cj_ref_temp_in, &R::input_type>},
    {u"OUTPUTCJ", coldJunction<&R::cj_ref_type_out, &R::cj_ref_temp_out, &R::output_type>},
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

/// The value of the parameter that a macro stands for.
std::optional<QString> parameterValue(QStringView name, const CalParamRecord& params) {
    if (name.isEmpty())
        return {};
    for (const auto& column : calParamColumns()) {
        if (column.rules.macro != name)
            continue;
        if (const auto* flag = std::get_if<bool R::*>(&column.member))
            return text(params.**flag ? TextId::yes : TextId::no);
        return calParamText(params, column.member).append(column.rules.unit);
    }
    return {};
}

/// The value of a macro; nothing for one that isn't known, or needs an asset and has none.
std::optional<QString> valueOf(const QString& macro, const Context& context) {
    const auto name = toUpperCase(macro);
    if (const auto value = valueFrom(generalMacros, name, context))
        return value;
    if (context.asset.isEmpty())
        return {};
    if (const auto value = parameterValue(name, context.params))
        return value;
    if (const auto value = valueFrom(assetMacros, name, context))
        return value;
    if (name.startsWith(u"CHR:")) {
        if (const auto code = numberOf(QStringView(name).mid(4)))
            return characterOf(roundToLong(*code));
    }
    if (name.startsWith(u"DB:"))
        return SourceColumn(context.session, macro.right(5), context.asset);
    return {};
}

QString expand(const QString& text, const Context& context) {
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
        result = expand(text, {session, asset, params, session.clock.moment()});
    });
    return result;
}

} // namespace kelvane::ModuleGlobals
