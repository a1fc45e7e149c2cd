#include "drivers/download_note.h"
#include "drivers/fluke702/link.h"
#include "drivers/link_status.h"
#include "resources/strings.h"

namespace kelvane::Module702Interface {

namespace {

constexpr LinkStatus statuses[] = {
    {0, 1440, u"DPCERR_NONE"},
    {100, 1441, u"DPCWARN_BAD_LOOP"},
    {101, 1442, u"DPCWARN_BAD_INPUT"},
    {102, 1443, u"DPCWARN_BAD_OUTPUT"},
    {103, 1444, u"DPCWARN_DANGER_VOLTAGE"},
    {104, 1445, u"DPCWARN_BAD_INPUT_LOOP"},
    {105, 1446, u"DPCWARN_BAD_OUTPUT_LOOP"},
    {2000, 1447, u"DPCERR_OPEN_TC"},
    {2001, 1448, u"DPCERR_TC_RANGE"},
    {2002, 1449, u"DPCERR_RTD_RANGE"},
    {2003, 1450, u"DPCERR_BAD_MDUNIT"},
    {2004, 1451, u"DPCERR_OUTPUT"},
    {2005, 1452, u"DPCERR_INCOMPAT"},
    {2006, 1453, u"DPCERR_BAD_RANGE"},
    {2007, 1454, u"DPCERR_OVER_RANGE"},
    {2008, 1455, u"DPCERR_OUT_OF_RANGE"},
    {2009, 1456, u"DPCERR_OVER_COMPLIANCE"},
    {2010, 1457, u"DPCERR_OPEN_CIRCUIT"},
    {2011, 1458, u"DPCERR_UNDER_RANGE"},
    {2012, 1459, u"DPCERR_MEMORY_SIZE"},
    {2013, 1460, u"DPCERR_BAD_ARG"},
    {2014, 1461, u"DPCERR_MEMID"},
    {2015, 1462, u"DPCERR_PROMPT_LENGTH"},
    {2016, 1463, u"DPCERR_STRATEGY"},
    {2017, 1464, u"DPCERR_OPEN_FAILED"},
    {2018, 1465, u"DPCERR_COMPLIANCE_ERROR"},
    {2019, 1466, u"DPCERR_COMM_NOT_CONNECTED"},
    {2020, 1467, u"DPCERR_SEND_FAILED"},
    {2021, 1468, u"DPCERR_RECV_FAILED"},
    {2022, 1469, u"DPCERR_RECV_UNEXPECTED_DATA"},
    {2023, 1470, u"DPCERR_HEAP_ERROR"},
    {2024, 1471, u"DPCERR_ARGLEN"},
    {2025, 1472, u"DPCERR_BAD_STATE"},
    {2026, 1473, u"DPCERR_NOTAG"},
};
constexpr int textUnknown = 1474;

/// From here on a status is told to the caller; below, to the operator. So 2000 is only shown, although it
/// is an error.
constexpr qint16 firstTold = 2001;

} // namespace

QString DPCStatusText(Session& session, qint16 code, const QString& name) {
    const auto words = linkStatusText(statuses, code).value_or(text(textUnknown));
    if (code >= firstTold)
        return words;
    tellDownloadNote(session.ui, name, words);
    return {};
}

} // namespace kelvane::Module702Interface
