#include "tests/platform/database/failing_odbc.h"

#include <sql.h>
#include <sqlext.h>

#include <dlfcn.h>

namespace {

int failing = -1;
bool failingOn = false;
int calls = 0;

bool shouldFail() {
    const int call = calls++;
    return call == failing || (failingOn && failing >= 0 && call > failing);
}

/// The driver manager's own routine of that name.
template <class Routine>
Routine* real(Routine*, const char* name) {
    return reinterpret_cast<Routine*>(dlsym(RTLD_NEXT, name));
}

} // namespace

namespace kelvane::testing {

void failCall(int n) {
    failing = n;
    failingOn = false;
    calls = 0;
}

void failFrom(int n) {
    failCall(n);
    failingOn = true;
}

int callCount() {
    return calls;
}

} // namespace kelvane::testing

// The program's own definitions stand before those of the driver manager's library.
#define KELVANE_FAILING(name, parameters, arguments)                                                         \
    extern "C" SQLRETURN name parameters {                                                                   \
        static auto* const routine = real(&name, #name);                                                     \
        return shouldFail() ? SQL_ERROR : routine arguments;                                                 \
    }

KELVANE_FAILING(SQLAllocHandle, (SQLSMALLINT type, SQLHANDLE in, SQLHANDLE* out), (type, in, out))
KELVANE_FAILING(SQLDriverConnectW,
                (SQLHDBC connection, SQLHWND window, SQLWCHAR* in, SQLSMALLINT inLength, SQLWCHAR* out,
                 SQLSMALLINT outRoom, SQLSMALLINT* outLength, SQLUSMALLINT completion),
                (connection, window, in, inLength, out, outRoom, outLength, completion))
KELVANE_FAILING(SQLGetInfoW,
                (SQLHDBC connection, SQLUSMALLINT type, SQLPOINTER value, SQLSMALLINT space,
                 SQLSMALLINT* length),
                (connection, type, value, space, length))
KELVANE_FAILING(SQLNativeSqlW,
                (SQLHDBC connection, SQLWCHAR* in, SQLINTEGER inLength, SQLWCHAR* out, SQLINTEGER space,
                 SQLINTEGER* length),
                (connection, in, inLength, out, space, length))
KELVANE_FAILING(SQLExecDirect, (SQLHSTMT statement, SQLCHAR* text, SQLINTEGER length),
                (statement, text, length))
KELVANE_FAILING(SQLNumResultCols, (SQLHSTMT statement, SQLSMALLINT* columns), (statement, columns))
KELVANE_FAILING(SQLFetch, (SQLHSTMT statement), (statement))
KELVANE_FAILING(SQLGetData,
                (SQLHSTMT statement, SQLUSMALLINT column, SQLSMALLINT type, SQLPOINTER value, SQLLEN space,
                 SQLLEN* length),
                (statement, column, type, value, space, length))
KELVANE_FAILING(SQLFreeStmt, (SQLHSTMT statement, SQLUSMALLINT option), (statement, option))
