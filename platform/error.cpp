#include "platform/error.h"

using namespace Qt::StringLiterals;

namespace kelvane {

Error makeError(ErrorNumber number) {
    static constexpr struct {
        ErrorNumber number;
        QStringView description;
    } descriptions[] = {
        {ErrorNumber::invalidArgument, u"Invalid procedure call or argument"},
        {ErrorNumber::overflow, u"Overflow"},
        {ErrorNumber::subscriptOutOfRange, u"Subscript out of range"},
        {ErrorNumber::divisionByZero, u"Division by zero"},
        {ErrorNumber::typeMismatch, u"Type mismatch"},
        {ErrorNumber::fileNotFound, u"File not found"},
        {ErrorNumber::pathFileAccess, u"Path/File access error"},
        {ErrorNumber::invalidUseOfNull, u"Invalid use of Null"},
        {ErrorNumber::noCurrentRow, u"Either BOF or EOF is True, or the current record has been deleted."},
        {ErrorNumber::connectionOpen, u"The connection to the database is open already."},
        {ErrorNumber::connectionClosed, u"The database connection is closed."},
    };
    for (const auto& one : descriptions) {
        if (one.number == number)
            return {static_cast<double>(number), one.description.toString()};
    }
    return {static_cast<double>(number), {}};
}

Error syntaxError() {
    return {1, u"Syntax error: a value in the statement ends its own quotes, name or parenthesis."_s,
            u"42000"_s};
}

} // namespace kelvane
