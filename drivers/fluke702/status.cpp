#include "drivers/fluke702/link.h"
#include "drivers/link_status.h"

#include <limits>

namespace kelvane::Module702Interface {

namespace {

constexpr LinkStatus table[] = {
    {0, TextId::statusNoError, u"DPCERR_NONE"},
    {100, TextId::statusLoopPowerOff, u"DPCWARN_BAD_LOOP"},
    {101, TextId::statusMeasuringVdc, u"DPCWARN_BAD_INPUT"},
    {102, TextId::statusSourceOff, u"DPCWARN_BAD_OUTPUT"},
    {103, TextId::statusHighVoltage, u"DPCWARN_DANGER_VOLTAGE"},
    {104, TextId::statusLoopOffMeasuringVdc, u"DPCWARN_BAD_INPUT_LOOP"},
    {105, TextId::statusSourceAndLoopOff, u"DPCWARN_BAD_OUTPUT_LOOP"},
    {2000, TextId::statusThermocoupleOpen, u"DPCERR_OPEN_TC"},
    {2001, TextId::statusThermocoupleOutOfRange, u"DPCERR_TC_RANGE"},
    {2002, TextId::statusRtdOutOfRange, u"DPCERR_RTD_RANGE"},
    {2003, TextId::statusModeAndUnitsInvalid, u"DPCERR_BAD_MDUNIT"},
    {2004, TextId::statusSourceOutOfRange, u"DPCERR_OUTPUT"},
    {2005, TextId::statusProcedureIncompatible, u"DPCERR_INCOMPAT"},
    {2006, TextId::statusRangeNotAvailable, u"DPCERR_BAD_RANGE"},
    {2007, TextId::statusMeasuredValueOverRange, u"DPCERR_OVER_RANGE"},
    {2008, TextId::statusMeasuredValueUnknown, u"DPCERR_OUT_OF_RANGE"},
    {2009, TextId::statusComplianceVoltageExceeded, u"DPCERR_OVER_COMPLIANCE"},
    {2010, TextId::statusOpenCircuit, u"DPCERR_OPEN_CIRCUIT"},
    {2011, TextId::statusMeasuredValueUnderRange, u"DPCERR_UNDER_RANGE"},
    {2012, TextId::statusMemoryInsufficient, u"DPCERR_MEMORY_SIZE"},
    {2013, TextId::statusArgumentInvalid, u"DPCERR_BAD_ARG"},
    {2014, TextId::statusListIdInvalid, u"DPCERR_MEMID"},
    {2015, TextId::statusPromptTooLong, u"DPCERR_PROMPT_LENGTH"},
    {2016, TextId::statusStrategyInvalid, u"DPCERR_STRATEGY"},
    {2017, TextId::statusLinkNotOpen, u"DPCERR_OPEN_FAILED"},
    {2018, TextId::statusResponseInvalid, u"DPCERR_COMPLIANCE_ERROR"},
    {2019, TextId::statusCommunicationFailed, u"DPCERR_COMM_NOT_CONNECTED"},
    {2020, TextId::statusWriteError, u"DPCERR_SEND_FAILED"},
    {2021, TextId::statusReadError, u"DPCERR_RECV_FAILED"},
    {2022, TextId::statusUnexpectedData, u"DPCERR_RECV_UNEXPECTED_DATA"},
    {2023, TextId::statusHeapError, u"DPCERR_HEAP_ERROR"},
    {2024, TextId::statusArgumentTooLong, u"DPCERR_ARGLEN"},
    {2025, TextId::statusStateAlreadyUsed, u"DPCERR_BAD_STATE"},
    {2026, TextId::statusNoTagSaved, u"DPCERR_NOTAG"},
};

/// From 2001 on a status is for the caller. So 2000 is only shown, although it is an error.
constexpr LinkStatuses statuses{.table = table,
                                .unknown = TextId::statusUnknownError,
                                .firstShown = std::numeric_limits<qint16>::min(),
                                .lastShown = 2000};

} // namespace

QString DPCStatusText(Session& session, qint16 code, const QString& name) {
    return reportStatus(session, statuses, code, name);
}

QString statusWords(qint16 code) {
    return linkStatusText(table, code).value_or(QString());
}

QString statusName(qint16 code) {
    return linkStatusName(table, code);
}

} // namespace kelvane::Module702Interface
