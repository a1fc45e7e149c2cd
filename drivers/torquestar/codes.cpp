#include "drivers/torquestar/codes.h"

#include "resources/strings.h"

namespace kelvane::ModuleTSInterface {

namespace {

/// Error codes `first` to `last` have consecutive texts, code 0 being that of `base`.
std::optional<QString> errorText(quint8 code, int first, int last, int base) {
    if (code < first || code > last)
        return {};
    return text(base + code);
}

} // namespace

std::optional<quint8> codeOf(std::span<const Code> table, QStringView word) {
    for (const auto& one : table) {
        if (one.word == word)
            return one.code;
    }
    return {};
}

std::optional<quint8> serialFormatOf(float resolution) {
    for (const auto& one : serialFormats) {
        if (one.resolution == resolution)
            return one.code;
    }
    return {};
}

std::optional<QString> roundError(quint8 code) {
    return errorText(code, 1, 4, 1012);
}

std::optional<QString> characteristicError(quint8 code) {
    return errorText(code, 0, 28, 1017);
}

} // namespace kelvane::ModuleTSInterface
