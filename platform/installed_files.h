#pragma once

#include <QString>

namespace kelvane {

/// Where the files stand that are installed with the programs. They are found from the program's own folder,
/// so that an installed tree can stand anywhere; the build makes links of the same names beside its programs.
class InstalledFiles {
  public:
    /// `programs` is the folder of the programs; by default the one of the program that runs.
    explicit InstalledFiles(QString programs = programFolder());

    /// The scripts of the databases, with the demonstration data and the result template in "demo".
    QString databaseScripts() const;
    /// The layouts of reports.
    QString layouts() const;
    /// The pages for users and administrators. A site may leave them out: the folder need not be there.
    QString documents() const;
    /// The folder of the simulated calibrators' link libraries; empty when they are not installed.
    QString simulatorLibraries() const;

    static QString programFolder();

  private:
    QString beside(const QString& path) const;

    QString programs_;
};

} // namespace kelvane
