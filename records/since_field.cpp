#include "records/since_field.h"

#include "resources/text_id.h"
#include "ui/controls.h"

#include <QDateEdit>

using namespace Qt::StringLiterals;

namespace kelvane {

QDateEdit* sinceField(const Session& session, TextId toolTip) {
    auto* field = nameControl(new QDateEdit, u"DateSince"_s, text(TextId::recordsSince), toolTip);
    // As all dates of the lists.
    field->setDisplayFormat(u"yyyy-MM-dd"_s);
    field->setCalendarPopup(true);
    field->setMinimumDate(QDate(1900, 1, 1));
    field->setDate(session.clock.moment().date.addYears(-1));
    return field;
}

} // namespace kelvane
