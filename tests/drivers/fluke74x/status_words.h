#pragma once

#include "testkit/status_words.h"

namespace kelvane::testing {

/// The exact words of every status that the library knows.
inline QList<StatusWords> statusWords3() {
    using namespace Qt::StringLiterals;
    return {
        {0, u"No Error (DPCERR_NONE)"_s},
        {2001, u"Didn't find the requested object/item (DPC3ERR_NOT_FOUND)"_s},
        {2002, u"Insufficient Memory (DPC3ERR_MEMORY_SIZE)"_s},
        {2003, u"Argument Length Too Long (DPC3ERR_ARGLEN)"_s},
        {2004, u"Internal Memlist Error (DPC3ERR_MEMLIST_ERROR)"_s},
        {2005, u"DPC3validate() detected an invalid memlist atom (DPC3ERR_ATOM_INVALID)"_s},
        {2006, u"Illegal or Invalid Argument (DPC3ERR_BAD_ARG)"_s},
        {2007, u"DPC3open() failed (DPC3ERR_OPEN_FAILED)"_s},
        {2008, u"Unexpected Data From 74x (DPC3ERR_RECV_UNEXPECTED_DATA)"_s},
        {2009, u"Invalid Response From 74x (DPC3ERR_COMPLIANCE_ERROR)"_s},
        {2010, u"Communications with calibrator failed! (DPC3ERR_COMM_NOT_CONNECTED)"_s},
        {2011, u"Communication Write Error (DPC3ERR_SEND_FAILED)"_s},
        {2012, u"Communication Read Error (DPC3ERR_RECV_FAILED)"_s},
        {2013, u"Maps Weren't Uploaded First (DPC3ERR_MAPS_UNAVAILABLE)"_s},
        {2014, u"The Requested Object/Item Has No Data (DPC3ERR_NO_DATA)"_s},
        {2015, u"A Call To A DPCx Function Was Made Without A Successful DPCxopen() (DPC3ERR_NOT_OPEN)"_s},
        {2016,
         u"Unable to open communications channel to calibrator! Please check communications settings and try again. (DPC3ERR_SETCOMMSTATE_FAILED)"_s},
    };
}

/// Statuses that it doesn't know: they have no words.
inline QList<StatusWords> unknownStatuses3() {
    QList<StatusWords> unknown;
    for (const auto code : std::initializer_list<qint16>{-32768, -2001, -100, -1, 1, 99, 100, 101, 105, 1000,
                                                         1998, 1999, 2000, 2017, 2026, 32767})
        unknown << StatusWords{code, {}};
    return unknown;
}

/// Every status but 0.
inline QList<StatusWords> statusesOfTrouble3() {
    return statusWords3().sliced(1) + unknownStatuses3();
}

/// The statuses that the operator sees at once.
inline bool isShown3(qint16 status) {
    return status >= 100 && status <= 1999;
}

} // namespace kelvane::testing
