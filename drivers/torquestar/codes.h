#pragma once

#include <QString>

#include <optional>
#include <span>

namespace kelvane::ModuleTSInterface {

/// The byte in a TorqueStar message for a word of the calibration parameters.
struct Code {
    QStringView word;
    quint8 code;
};

inline constexpr Code unitCodes[] = {
    {u"in/oz", 1}, {u"in/lb", 2}, {u"ft/lb", 3},  {u"N/cm", 4}, {u"N/m", 5},
    {u"Kg/cm", 6}, {u"Kg/m", 7},  {u"Klb/ft", 8}, {u"KN/m", 9},
};
/// A Serial transducer is handled before this table is searched.
inline constexpr Code transducerTypes[] = {{u"High Output", 1}, {u"Industry Standard", 2}, {u"UTA", 4}};
inline constexpr Code baudRates[] = {
    {u"300", 1}, {u"600", 2}, {u"1200", 3}, {u"2400", 4}, {u"4800", 5}, {u"9600", 6}, {u"19200", 7},
};
inline constexpr Code parities[] = {{u"Even", 1}, {u"Odd", 2}, {u"None", 3}};
inline constexpr Code directions[] = {{u"Right", 1}, {u"Left", 2}};
inline constexpr Code measurementModes[] = {{u"Click Dip", 0}, {u"Peak", 1}, {u"Impulse", 2}};
/// In seconds.
inline constexpr Code cycleEndTimes[] = {
    {u"0.1", 1}, {u"0.2", 2}, {u"0.5", 3}, {u"1.0", 4}, {u"2.0", 5}, {u"5.0", 6}, {u"10.0", 7},
};
/// In hertz.
inline constexpr Code frequencyResponses[] = {
    {u"6144", 0}, {u"3686", 1}, {u"2304", 2}, {u"1676", 3}, {u"1317", 4}, {u"1024", 5},
    {u"996", 6},  {u"737", 7},  {u"527", 8},  {u"376", 9},  {u"302", 10}, {u"252", 11},
    {u"200", 12}, {u"150", 13}, {u"100", 14}, {u"75", 15},  {u"72", 16},
};
/// The resolutions of a Serial transducer.
inline constexpr struct {
    float resolution;
    quint8 code;
} serialFormats[] = {{1.0F, 1}, {0.1F, 2}, {0.01F, 3}, {0.001F, 4}};

/// The code of a word, compared exactly; nothing for a word that the table doesn't hold.
std::optional<quint8> codeOf(std::span<const Code> table, QStringView word);
std::optional<quint8> serialFormatOf(float resolution);

/// The text of an error code in the calibrator's answer to a new round, or to a new characteristic; nothing
/// for a code that it doesn't define.
std::optional<QString> roundError(quint8 code);
std::optional<QString> characteristicError(quint8 code);

} // namespace kelvane::ModuleTSInterface
