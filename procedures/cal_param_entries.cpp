#include "procedures/cal_param_entries.h"

#include "platform/values/numbers.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

using R = CalParamRecord;

qsizetype indexOf(CalParamMember member) {
    return &calParamColumn(member) - calParamColumns().data();
}

} // namespace

CalParamEntries::CalParamEntries() : texts_(static_cast<qsizetype>(calParamColumns().size())) {}

CalParamEntries::CalParamEntries(const CalParamRecord& record) {
    for (const auto& column : calParamColumns())
        texts_ << calParamText(record, column.member);
}

QString& CalParamEntries::operator[](CalParamMember member) {
    return texts_[indexOf(member)];
}

const QString& CalParamEntries::operator[](CalParamMember member) const {
    return texts_[indexOf(member)];
}

double CalParamEntries::number(CalParamMember member) const {
    return numberOf((*this)[member]).value_or(0);
}

QList<CalParamMember> makeAlternatingScalesPositive(CalParamEntries& entries) {
    const auto alternates = [&](CalParamMember unit) {
        return entries[unit] == u"VAC" || entries[unit] == u"mVAC";
    };
    QList<CalParamMember> changed;
    if (alternates(&R::input_type))
        changed << &R::input_low << &R::input_high;
    if (alternates(&R::output_type))
        changed << &R::output_low << &R::output_high;
    for (const auto limit : changed)
        entries[limit] = plainText(std::abs(entries.number(limit)));
    return changed;
}

} // namespace kelvane
