#include "editors/cal_param/cal_param_fields.h"

#include "ui/controls.h"

#include <QGridLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// The name of what stands beside a field: that of the field with another kind, and without its options.
QString nameBeside(const QString& kind, const CalParamField& field) {
    const auto subject =
        std::find_if(field.name.begin() + 1, field.name.end(), [](QChar letter) { return letter.isUpper(); });
    return kind + QString(subject, field.name.end() - subject).remove(u"%1"_s);
}

/// The label beside a field: it leads to the control, or says what a line of options is about.
QLabel* makeLabel(const CalParamField& field, QWidget* control) {
    if (field.label == CalParamLabel::no)
        return nullptr;
    const auto name = nameBeside(u"Label"_s, field);
    return std::holds_alternative<CalParamOptions>(field.control) ? label(name, field.caption)
                                                                  : labelFor(control, name, field.caption);
}

} // namespace

void addRows(QComboBox& list, const QStringList& rows) {
    const int selected = list.currentIndex();
    list.addItems(rows);
    list.setCurrentIndex(selected);
}

CalParamFields::CalParamFields() {
    for (const auto& given : calParamFieldTable()) {
        auto control = makeCalParamControl(given);
        auto* label = makeLabel(given, control->widget());
        fields_.push_back({given, std::move(control), label});
    }
}

void CalParamFields::fill(QGridLayout& grid, CalParamPanel panel) const {
    constexpr int betweenSides = 3;
    for (const auto& field : fields_) {
        const auto& place = field.given.place;
        if (place.panel != panel)
            continue;
        const int column = place.side * (betweenSides + 1);
        if (field.label)
            grid.addWidget(field.label, place.row, column);
        field.control->put(grid, place.row, column);
        if (place.unit)
            grid.addWidget(kelvane::label(nameBeside(u"Unit"_s, field.given), *place.unit), place.row,
                           column + 2);
        if (place.side == 1)
            grid.setColumnMinimumWidth(betweenSides, 12);
    }
}

void CalParamFields::show(const CalParamRecord& record) const {
    for (const auto& field : fields_)
        field.control->show(calParamText(record, field.given.member));
}

CalParamEntries CalParamFields::entries() const {
    CalParamEntries entries;
    for (const auto& field : fields_)
        entries[field.given.member] = field.control->entry();
    return entries;
}

QString CalParamFields::checkSumText() const {
    QString sum;
    for (const auto* column : summedCalParams())
        sum += control(column->member)->sumText();
    return sum;
}

CalParamControl* CalParamFields::control(CalParamMember parameter) const {
    const auto* field = find(parameter);
    return field ? field->control.get() : nullptr;
}

QComboBox* CalParamFields::list(CalParamMember parameter) const {
    return qobject_cast<QComboBox*>(control(parameter)->widget());
}

QLabel* CalParamFields::label(CalParamMember parameter) const {
    return find(parameter)->label;
}

const CalParamFields::Field* CalParamFields::find(CalParamMember parameter) const {
    const auto found =
        std::ranges::find_if(fields_, [&](const Field& field) { return field.given.member == parameter; });
    return found == fields_.end() ? nullptr : &*found;
}

} // namespace kelvane
