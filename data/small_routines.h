#pragma once

#include "data/session.h"

namespace kelvane::ModuleGlobals {

/// Each single quote doubled, everything else as it is.
QString SQLSafe(const QString& text);
/// A text out of a calibrator library's buffer: cut at the first character of code 0, blanks trimmed.
QString CleanDLLString(const QString& text);
/// Marks the place where a prompt goes to a calibrator; the text stays unchanged.
QString DPCsafePrompt(const QString& text);
/// `length` random digits and capital letters, the tag of a task package. The generator is seeded from the
/// machine's clock in its finest step, so that two tags of one second differ.
QString RandomString(Session& session, qint16 length);
/// The sum of all code points and their positions, from 1. It does not depend on the order of the characters:
/// an editor notices changes of content.
double CheckSum(Session& session, const QString& text);

} // namespace kelvane::ModuleGlobals
