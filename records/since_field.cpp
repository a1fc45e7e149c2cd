#include "records/since_field.h"

#include "resources/text_id.h"
#include "ui/controls.h"
#include "ui/date_field.h"

using namespace Qt::StringLiterals;

namespace kelvane {

QDate usualSince(const Session& session) {
    return session.clock.moment().date.addYears(-1);
}

DateField* sinceField(const Session& session, TextId toolTip) {
    auto* field = nameControl(new DateField, u"DateSince"_s, text(TextId::recordsSince), toolTip);
    field->setDate(usualSince(session));
    return field;
}

} // namespace kelvane
