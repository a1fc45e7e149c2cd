#pragma once

#include <QByteArray>
#include <QString>

namespace kelvane {

// A database with demonstration data that the first start offers, and what belongs to it.

/// Where it is made: a folder of the user's own data.
QString databaseToTry();

/// The user's own list of data sources: what ODBCINI names, otherwise ~/.odbc.ini.
QString userDataSources();

/// Adds a section to a list of data sources, which is made when there is none. What it holds already stays,
/// also when writing fails. Throws `FileError`.
void addDataSource(const QString& list, const QByteArray& section);

/// Copies the result template and the layout of worksheets into a folder, each when the folder has none.
/// Throws `FileError`.
void provideWorkFiles(const QString& folder);

} // namespace kelvane
