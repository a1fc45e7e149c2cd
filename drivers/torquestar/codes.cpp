#include "drivers/torquestar/codes.h"

#include "resources/strings.h"
#include "resources/text_id.h"

namespace kelvane::ModuleTSInterface {

namespace {

/// The text of an error code; those of the table belong to the codes from `first` on.
std::optional<QString> errorText(std::span<const TextId> texts, int first, quint8 code) {
    const auto row = code - first;
    if (row < 0 || row >= std::ssize(texts))
        return {};
    return text(texts[static_cast<std::size_t>(row)]);
}

/// The errors of a new round, from 1 on.
constexpr TextId roundErrors[] = {TextId::roundAlreadyExists, TextId::roundNameInvalid,
                                  TextId::sampleModeInvalid, TextId::characteristicCountInvalid};

/// The errors of a new characteristic, from 0 on.
constexpr TextId characteristicErrors[] = {TextId::torqueUnknownError,
                                           TextId::characteristicNameTooLong,
                                           TextId::sampleCountOutOfRange,
                                           TextId::subgroupCountOutOfRange,
                                           TextId::transducerNumberOutOfRange,
                                           TextId::transducerTypeInvalid,
                                           TextId::transducerSerialFormatInvalid,
                                           TextId::transducerBaudRateInvalid,
                                           TextId::transducerSpanUnitsInvalid,
                                           TextId::transducerDataBitsInvalid,
                                           TextId::cycleEndTimeInvalid,
                                           TextId::transducerStopBitsInvalid,
                                           TextId::measurementModeInvalid,
                                           TextId::transducerParityInvalid,
                                           TextId::frequencyResponseInvalid,
                                           TextId::displayUnitsInvalid,
                                           TextId::displayUnitsIncompatible,
                                           TextId::measurementDirectionInvalid,
                                           TextId::maximumTorqueOutOfRange,
                                           TextId::minimumTorqueOutOfRange,
                                           TextId::thresholdTorqueOutOfRange,
                                           TextId::clickDipOutOfRange,
                                           TextId::commentLengthOutOfRange,
                                           TextId::secondaryParameterInvalid,
                                           TextId::maximumSecondaryOutOfRange,
                                           TextId::minimumSecondaryOutOfRange,
                                           TextId::millivoltsPerVoltInvalid,
                                           TextId::torqueDatabaseFull,
                                           TextId::transducerSpanOutOfRange};

} // namespace

std::optional<quint8> codeOf(std::span<const Code> table, QStringView word) {
    for (const auto& row : table) {
        if (row.word == word)
            return row.code;
    }
    return {};
}

std::optional<quint8> serialFormatOf(float resolution) {
    for (const auto& serialFormat : serialFormats) {
        if (serialFormat.resolution == resolution)
            return serialFormat.code;
    }
    return {};
}

std::optional<QString> roundError(quint8 code) {
    return errorText(roundErrors, 1, code);
}

std::optional<QString> characteristicError(quint8 code) {
    return errorText(characteristicErrors, 0, code);
}

} // namespace kelvane::ModuleTSInterface
