#pragma once

#include <QString>

namespace kelvane::admin {

/// Why a command was not carried out, in words for the administrator. They never hold a password.
struct Failure {
    QString text;
    /// The exit status of the program: 1, or 2 for a command line that can't be understood.
    int status = 1;
};

/// A command line that can't be understood.
inline Failure usageFailure(const QString& text) {
    return {text, 2};
}

} // namespace kelvane::admin
