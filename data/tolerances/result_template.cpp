#include "data/tolerances/result_template.h"

#include "platform/values/texts.h"

namespace kelvane {

ResultTemplate::ResultTemplate(const QString& line) : line_(line) {
    for (std::size_t field = 0; field < columns_.size(); ++field) {
        const auto tag = line.indexOf(resultFields[field].code.toString() + u'$');
        columns_[field] = tag < 0 ? -1 : characterCount(QStringView(line).left(tag));
    }
}

} // namespace kelvane
