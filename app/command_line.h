#pragma once

#include "platform/program_options.h"
#include "platform/settings_store.h"

#include <QHash>

namespace kelvane {

/// The workstation's command line. Besides its own options it takes those of the toolkit, and any word with
/// "KFDJ" in it.
const Program& workstationCommandLine();

/// Reads the words behind the program's name; throws `ProgramAnswer` as `readCommandLine` does, also for a
/// port without a device and for one that is none of COM1 to COM4.
GivenOptions workstationOptions(const QStringList& words);

/// The devices that `--port` names, by port in capital letters.
QHash<QString, QString> portsOf(const GivenOptions& options);

/// Lays the files that `--texts` names over the table of texts. Without the option no file is. Returns what
/// can't be read, for the log; an empty text otherwise.
QString overlayTextsOf(const GivenOptions& options);

/// True with `--worksheets`: a login shows the entries of paper worksheets.
bool wantsWorksheets(const GivenOptions& options);

/// True with `--user-folders`: the program works in the user's own folder (`app/user_folder.h`).
bool wantsUserFolder(const GivenOptions& options);

/// True with `--log`: the communication with every calibrator is logged.
bool wantsLogs(const GivenOptions& options);

/// A settings store whose sections "Ports" and "Log" are answered by the command line first. Its options hold
/// for this start only: nothing of them is stored.
class SettingsWithOptions final : public SettingsStore {
  public:
    SettingsWithOptions(SettingsStore& store, const GivenOptions& options);
    QString value(const QString& section, const QString& key) const override;
    void setValue(const QString& section, const QString& key, const QString& value) override;

  private:
    SettingsStore& store_;
    QHash<QString, QString> ports_;
    bool logs_;
};

} // namespace kelvane
