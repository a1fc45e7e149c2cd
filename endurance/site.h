#pragma once

#include <QString>
#include <QStringList>

#include <memory>
#include <random>

namespace kelvane::endure {

struct StressOptions {
    /// "embedded" or "shared".
    QString engine;
    /// The folder of the database that is copied; or the address of a database on a server.
    QString database;
    /// A folder of the run, made anew; kept when something was found.
    QString work;
    int seconds = 60;
    quint64 seed = 0;
    int stations = 8;
    /// Of a private server that is stopped and started meanwhile: its folder, and that of the scripts.
    QString server;
    QString scripts;
};

/// The database that the stations share, and what can happen to it.
class Site {
  public:
    virtual ~Site() = default;
    /// Makes data source and calibrators. Empty, or what is wrong.
    virtual QString prepare() = 0;
    /// Something that stations have to stand, at random: a connection that ends, a server that stops. Gives
    /// what it was; empty for nothing.
    virtual QString disturb(std::mt19937_64& generator) = 0;
    /// True when a disturbance ends connections.
    virtual bool endsConnections() const = 0;
    /// What is wrong with the database's files; none when they are whole.
    virtual QStringList faultsOfFiles() = 0;
    /// Keeps a copy of the database in a folder, where it does not stand there already.
    virtual void keep(const QString& folder) = 0;

    static constexpr const char* dataSource = "Calibration Data";
};

std::unique_ptr<Site> siteOf(const StressOptions& options);

/// Runs a command; gives its standard output, or nothing and the reason when it fails.
struct CommandResult {
    bool isGood = false;
    QString output;
    QString errors;
};
CommandResult runCommand(const QString& program, const QStringList& arguments, int milliseconds = 60000);

} // namespace kelvane::endure
