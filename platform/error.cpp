#include "platform/error.h"

#include "resources/strings.h"
#include "resources/text_id.h"

using namespace Qt::StringLiterals;

namespace kelvane {

Error makeError(ErrorNumber number) {
    static constexpr struct {
        ErrorNumber number;
        TextId description;
    } descriptions[] = {
        {ErrorNumber::invalidArgument, TextId::errorInvalidArgument},
        {ErrorNumber::overflow, TextId::errorOverflow},
        {ErrorNumber::subscriptOutOfRange, TextId::errorSubscript},
        {ErrorNumber::divisionByZero, TextId::errorDivisionByZero},
        {ErrorNumber::typeMismatch, TextId::errorTypeMismatch},
        {ErrorNumber::fileNotFound, TextId::errorFileNotFound},
        {ErrorNumber::pathFileAccess, TextId::errorPathFileAccess},
        {ErrorNumber::invalidUseOfNull, TextId::errorInvalidUseOfNull},
        {ErrorNumber::noCurrentRow, TextId::errorNoCurrentRow},
        {ErrorNumber::databaseReadOnly, TextId::databaseReadOnly},
        {ErrorNumber::connectionOpen, TextId::errorConnectionOpen},
        {ErrorNumber::connectionClosed, TextId::errorConnectionClosed},
    };
    for (const auto& row : descriptions) {
        if (row.number == number)
            return {static_cast<double>(number), text(row.description)};
    }
    return {static_cast<double>(number), {}};
}

Error lockHeldElsewhere(const QString& name) {
    return {70, text(TextId::lockHeldElsewhere).arg(name)};
}

Error syntaxError() {
    return {1, text(TextId::errorSyntax), u"42000"_s};
}

} // namespace kelvane
