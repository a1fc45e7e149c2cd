#include "editors/refusal.h"

namespace kelvane {

QWidget* refusedField(const Error& error, std::initializer_list<FieldOfColumn> fields) {
    for (const auto& [column, field] : fields) {
        if (namesColumn(error, column))
            return field;
    }
    return nullptr;
}

} // namespace kelvane
