#pragma once

#include "data/history/line_numbers.h"

namespace kelvane {

/// The fields of a result line, in the order of `resultFields`.
enum class LineField : std::size_t {
    number,
    nominal,
    applied,
    reading,
    tolerance,
    deviation,
    percent,
    units,
    comment,
    lowLimit,
    highLimit,
    verdict,
};

/// A result line read back.
struct StoredLine {
    enum class Reading {
        readable,
        /// There is nothing in the line.
        blank,
        /// The session has no template to read it by.
        withoutTemplate,
        /// Another program or another template has laid it out, or it does not tell for certain what it
        /// holds.
        unreadable,
    };

    Reading reading = Reading::unreadable;
    /// The line as it is stored, whatever could be read.
    QString text = {};
    /// Empty unless it is readable.
    LineFields fields = {};
    LineNumbers numbers = {};

    const QString& field(LineField field) const { return fields[static_cast<std::size_t>(field)]; }
    std::optional<double> number(LineField field) const { return numbers[static_cast<std::size_t>(field)]; }
};

/// Reads a stored line through the session's template. What is readable gives the stored line again when it
/// is laid out (`fieldsOfLine`), and its figures confirm each other (`numbersOfLine`).
StoredLine readStoredLine(Session& session, const QString& text);

} // namespace kelvane
