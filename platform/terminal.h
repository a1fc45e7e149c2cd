#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace kelvane {

/// Opens those of the three standard streams that are closed, so that no file of the program's own takes
/// their place. To be called before anything else is opened.
void openStandardStreams();

/// True when the standard input is a terminal.
bool isTerminal();

/// One line of the standard input, without its end; nothing when the input has ended. Of a line of more than
/// `maxBytes` only `maxBytes` + 1 are given. On a terminal `prompt` is shown, on the standard error, and what
/// is typed is not; the terminal is as it was before in the end, also when a signal ends the program.
std::optional<QByteArray> readSecretLine(const QString& prompt, qsizetype maxBytes);

} // namespace kelvane
