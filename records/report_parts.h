#pragma once

#include <QJsonObject>
#include <QStringList>

namespace kelvane {

/// The path of a layout: in the first of these folders that has a file of that name, otherwise among those
/// that are installed.
QString siteLayout(const QString& name, const QStringList& folders);

/// A value, or that it is not stated.
QString stated(const QString& value);

/// Sets "pageBefore", "pageBetween" and "pageBehind": what stands before, between and behind the number of a
/// page and that of all pages.
void addPageWords(QJsonObject& values);

} // namespace kelvane
