#pragma once

#include "resources/strings.h"

#include <QStringList>

#include <span>

namespace kelvane {

/// The caption of a command as the title of what the command opens: without the dots that announce it.
QString titleOf(TextId caption);
/// The captions of columns or rows, in their order.
QStringList captionsOf(std::span<const TextId> ids);

} // namespace kelvane
