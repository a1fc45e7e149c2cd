#pragma once

#include "testkit/status_words.h"

namespace kelvane::testing {

/// The exact words of every status that the library knows, and of some that it doesn't know.
inline QList<StatusWords> statusWords() {
    using namespace Qt::StringLiterals;
    return {
        {0, u"No Error (DPCERR_NONE)"_s},
        {100, u"Turning off loop power (DPCWARN_BAD_LOOP)"_s},
        {101, u"Setting measure function to VDC (DPCWARN_BAD_INPUT)"_s},
        {102, u"Turning off the source (DPCWARN_BAD_OUTPUT)"_s},
        {103, u"Don't forget that you have high voltage applied! (DPCWARN_DANGER_VOLTAGE)"_s},
        {104, u"Turning off loop power and setting measure function to VDC (DPCWARN_BAD_INPUT_LOOP)"_s},
        {105, u"Turning off source and loop power (DPCWARN_BAD_OUTPUT_LOOP)"_s},
        {2000, u"Open Thermocouple (DPCERR_OPEN_TC)"_s},
        {2001, u"Thermocouple Conversion out of Range (DPCERR_TC_RANGE)"_s},
        {2002, u"RTD Conversion out of range (DPCERR_RTD_RANGE)"_s},
        {2003, u"Invalid Combination of Mode and Units (DPCERR_BAD_MDUNIT)"_s},
        {2004, u"Requested Source Value is out of Range (DPCERR_OUTPUT)"_s},
        {2005, u"Downloaded Procedure Incompatible With This Version of Software (DPCERR_INCOMPAT)"_s},
        {2006, u"Range not Available in Present Mode (DPCERR_BAD_RANGE)"_s},
        {2007, u"Measured Value is over Present Range (DPCERR_OVER_RANGE)"_s},
        {2008, u"Measured Value is Unknown (DPCERR_OUT_OF_RANGE)"_s},
        {2009, u"Compliance Voltage Exceeds Limits (DPCERR_OVER_COMPLIANCE)"_s},
        {2010, u"Open Circuit Detected (DPCERR_OPEN_CIRCUIT)"_s},
        {2011, u"Measured Value is Under Range (DPCERR_UNDER_RANGE)"_s},
        {2012, u"Insufficient Memory (DPCERR_MEMORY_SIZE)"_s},
        {2013, u"Illegal or Invalid Argument (DPCERR_BAD_ARG)"_s},
        {2014, u"MEMlist id out of range or invalid (DPCERR_MEMID)"_s},
        {2015, u"Prompt Definition was too long (DPCERR_PROMPT_LENGTH)"_s},
        {2016, u"Strategy Name invalid or definition invalid (DPCERR_STRATEGY)"_s},
        {2017, u"A Call To A DPCx Function Was Made Without A Successful DPCxopen() (DPCERR_OPEN_FAILED)"_s},
        {2018, u"Invalid Response From 74x (DPCERR_COMPLIANCE_ERROR)"_s},
        {2019, u"Communications with calibrator failed! (DPCERR_COMM_NOT_CONNECTED)"_s},
        {2020, u"Communication Write Error (DPCERR_SEND_FAILED)"_s},
        {2021, u"Communication Read Error (DPCERR_RECV_FAILED)"_s},
        {2022, u"Unexpected Data From 74x (DPCERR_RECV_UNEXPECTED_DATA)"_s},
        {2023, u"Internal Heap out of sync (DPCERR_HEAP_ERROR)"_s},
        {2024, u"Argument Length Too Long (DPCERR_ARGLEN)"_s},
        {2025,
         u"State was already used by another template (it's not unique to this template) (DPCERR_BAD_STATE)"_s},
        {2026, u"No tag id saved (returned by MEMtagidInfo) (DPCERR_NOTAG)"_s},
    };
}

inline QList<StatusWords> unknownStatuses() {
    QList<StatusWords> unknown;
    for (const auto code :
         std::initializer_list<qint16>{-32768, -2001, -1, 1, 99, 106, 1000, 1999, 2027, 32767})
        unknown << StatusWords{code, QStringLiteral("Unknown Error")};
    return unknown;
}

} // namespace kelvane::testing
