#include "procedures/save_failure.h"

#include "platform/database/sql.h"

namespace kelvane {

bool isConfined(const QString& value) {
    return sqlText(value).isIntact();
}

} // namespace kelvane
