#include "platform/database/odbc_text.h"

#include "resources/strings.h"
#include "resources/text_id.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string>

using namespace Qt::StringLiterals;

namespace kelvane {

static_assert(sizeof(SQLWCHAR) == sizeof(char16_t), "the driver manager must speak UTF-16");

namespace {

QString textOf(const char16_t* text, qsizetype length) {
    return QString(reinterpret_cast<const QChar*>(text), length);
}

QString textOf(const char* text, qsizetype length) {
    return QString::fromUtf8(text, length);
}

template <class Unit>
constexpr SQLSMALLINT cType = sizeof(Unit) == 1 ? SQL_C_CHAR : SQL_C_WCHAR;

/// Appends the next piece of a long text, up to `space` units; `more` says whether there is another one.
template <class Unit>
SQLRETURN readPiece(SQLHSTMT statement, SQLUSMALLINT column, std::basic_string<Unit>& whole,
                    std::size_t space, bool& more) {
    const auto have = whole.size();
    whole.resize(have + space + 1); // the driver adds a terminator
    SQLLEN bytes = 0;
    const auto outcome = SQLGetData(statement, column, cType<Unit>, whole.data() + have,
                                    static_cast<SQLLEN>((space + 1) * sizeof(Unit)), &bytes);
    const auto units = bytes == SQL_NO_TOTAL ? space + 1 : static_cast<std::size_t>(bytes) / sizeof(Unit);
    more = SQL_SUCCEEDED(outcome) && units > space;
    whole.resize(have + (SQL_SUCCEEDED(outcome) ? std::min(units, space) : 0));
    return outcome == SQL_NO_DATA ? SQL_SUCCESS : outcome;
}

template <class Unit>
SQLRETURN read(SQLHSTMT statement, SQLUSMALLINT column, std::optional<QString>& value) {
    // Nearly every value fits here, and then one call and one conversion are all.
    Unit start[512];
    constexpr auto space = std::size(start) - 1;
    SQLLEN bytes = 0;
    const auto outcome = SQLGetData(statement, column, cType<Unit>, start, sizeof(start), &bytes);
    value.reset();
    if (!SQL_SUCCEEDED(outcome) || bytes == SQL_NULL_DATA)
        return outcome;
    const bool known = bytes != SQL_NO_TOTAL;
    const auto units = static_cast<std::size_t>(known ? bytes : 0) / sizeof(Unit);
    if (known && units <= space) {
        value = textOf(start, static_cast<qsizetype>(units));
        return outcome;
    }
    std::basic_string<Unit> whole(start, space);
    bool more = true;
    for (auto missing = known ? units - space : space; more; missing = whole.size()) {
        const auto next = readPiece(statement, column, whole, missing, more);
        if (!SQL_SUCCEEDED(next))
            return next;
    }
    value = textOf(whole.data(), static_cast<qsizetype>(whole.size()));
    return SQL_SUCCESS;
}

SQLRETURN diagnose(SQLSMALLINT handleType, SQLHANDLE handle, SQLSMALLINT record, SQLCHAR* state,
                   SQLINTEGER& native, SQLCHAR* text, SQLSMALLINT space) {
    return SQLGetDiagRec(handleType, handle, record, state, &native, text, space, nullptr);
}

SQLRETURN diagnose(SQLSMALLINT handleType, SQLHANDLE handle, SQLSMALLINT record, SQLWCHAR* state,
                   SQLINTEGER& native, SQLWCHAR* text, SQLSMALLINT space) {
    return SQLGetDiagRecW(handleType, handle, record, state, &native, text, space, nullptr);
}

QString fromTerminated(const SQLCHAR* text) {
    return QString::fromUtf8(reinterpret_cast<const char*>(text));
}

QString fromTerminated(const SQLWCHAR* text) {
    return QString(reinterpret_cast<const QChar*>(text));
}

/// The `record`-th message of a handle; nothing behind the last.
template <class Unit>
std::optional<Error> message(SQLSMALLINT handleType, SQLHANDLE handle, SQLSMALLINT record) {
    std::array<Unit, 6> state{};
    std::array<Unit, 2048> text{};
    SQLINTEGER native = 0;
    if (!SQL_SUCCEEDED(diagnose(handleType, handle, record, state.data(), native, text.data(),
                                static_cast<SQLSMALLINT>(text.size()))))
        return {};
    return Error{static_cast<double>(native), fromTerminated(text.data()), fromTerminated(state.data())};
}

} // namespace

SQLWCHAR* wideText(const QString& text) {
    return const_cast<SQLWCHAR*>(reinterpret_cast<const SQLWCHAR*>(text.utf16()));
}

SQLRETURN connectText(SQLHDBC connection, const QString& dataSource, const QString& login) {
    const auto whole = dataSource + login;
    if (whole.size() > std::numeric_limits<SQLSMALLINT>::max() / 4) // as UTF-8, at the most
        throw makeError(ErrorNumber::invalidArgument);
#ifndef Q_OS_WIN
    // This driver manager finds a data source by the bytes of its name, and cuts the characters of a wide one
    // to their low bytes.
    if (std::any_of(dataSource.begin(), dataSource.end(), [](QChar character) { return character > u'~'; })) {
        auto bytes = whole.toLocal8Bit();
        return SQLDriverConnect(connection, nullptr, reinterpret_cast<SQLCHAR*>(bytes.data()),
                                static_cast<SQLSMALLINT>(bytes.size()), nullptr, 0, nullptr,
                                SQL_DRIVER_NOPROMPT);
    }
#endif
    return SQLDriverConnectW(connection, nullptr, wideText(whole), static_cast<SQLSMALLINT>(whole.size()),
                             nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
}

DriverText driverTextOf(SQLHDBC connection) {
    // An accented letter, one beyond Latin and one beyond 16 bits: only wide functions bring all three back.
    static constexpr QStringView probe = u"'\u00e9\u6e29\U0001F527'";
    // The driver manager may give a narrow driver a buffer of four bytes for each unit that goes in, whatever
    // space it reports to the driver: with more the driver writes past its end, and too little for the text
    // in UTF-8 leaves that without an end.
    constexpr auto space = 3 * probe.size() + 1;
    static_assert(space <= 4 * probe.size());
    std::array<SQLWCHAR, static_cast<std::size_t>(space)> back{};
    const auto question = probe.toString();
    SQLINTEGER length = 0;
    if (!SQL_SUCCEEDED(SQLNativeSqlW(connection, wideText(question), static_cast<SQLINTEGER>(question.size()),
                                     back.data(), static_cast<SQLINTEGER>(back.size()), &length)))
        throw lastError(SQL_HANDLE_DBC, connection, DriverText::wide);
    back.back() = 0;
    return fromTerminated(back.data()) == probe ? DriverText::wide : DriverText::utf8;
}

SQLRETURN executeText(SQLHSTMT statement, const QString& sql, DriverText kind) {
    if (kind == DriverText::wide)
        return SQLExecDirectW(statement, wideText(sql), static_cast<SQLINTEGER>(sql.size()));
    auto bytes = sql.toUtf8();
    return SQLExecDirect(statement, reinterpret_cast<SQLCHAR*>(bytes.data()),
                         static_cast<SQLINTEGER>(bytes.size()));
}

SQLRETURN readText(SQLHSTMT statement, SQLUSMALLINT column, DriverText kind, std::optional<QString>& value) {
    return kind == DriverText::wide ? read<char16_t>(statement, column, value)
                                    : read<char>(statement, column, value);
}

Error lastError(SQLSMALLINT handleType, SQLHANDLE handle, DriverText kind) {
    Error found{0, text(TextId::driverGaveNoReason), u"HY000"_s};
    for (SQLSMALLINT record = 1;; ++record) {
        const auto diagnostic = kind == DriverText::wide ? message<SQLWCHAR>(handleType, handle, record)
                                                         : message<SQLCHAR>(handleType, handle, record);
        const bool remark = diagnostic && diagnostic->sqlState.startsWith("01"_L1);
        if (diagnostic && (record == 1 || !remark))
            found = *diagnostic;
        if (!diagnostic || !remark)
            return found;
    }
}

} // namespace kelvane
