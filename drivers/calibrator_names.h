#pragma once

#include <QString>

/// What the calibrators are called where that is stored or compared: in the settings and between screens and
/// drivers. What a user reads is a text of its own (`calibratorCaption`).
namespace kelvane::calibratorName {

inline const QString fluke702 = QStringLiteral("Fluke 702");
inline const QString torqueStar = QStringLiteral("Crane TorqueStar IVc");
inline const QString fluke74x = QStringLiteral("Fluke 743/744");

} // namespace kelvane::calibratorName

/// The stored words of a parity.
namespace kelvane::parityWord {

inline const QString even = QStringLiteral("Even");
inline const QString odd = QStringLiteral("Odd");
inline const QString none = QStringLiteral("None");

} // namespace kelvane::parityWord
