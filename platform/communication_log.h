#pragma once

#include "platform/workstation.h"

#include <functional>
#include <optional>

namespace kelvane {

/// Where communication logs stand: "kelvane" in the user's folder for such files ($XDG_STATE_HOME, otherwise
/// ~/.local/state).
QString communicationLogFolder();

/// How an attempt to open a line has ended.
struct LineOpening {
    /// Why it could not be opened, a sentence for the user; empty when it was.
    QString refusal = {};
    /// The port's name and its device at that time; without a port it concerns each of them.
    QString port = {};
    QString device = {};
    friend bool operator==(const LineOpening&, const LineOpening&) = default;
};

/// What goes over the line to one calibrator, in a file: a line for each exchange, with date and time to the
/// millisecond and the calibrator's name. It is written while the setting of that name in the section "Log"
/// is "1". Each line is in the file when `write` returns. A file that has reached its size becomes
/// "<name>.1", that one "<name>.2" and so on; the oldest goes. Only its user may read it.
///
/// A file that can't be written disturbs nothing: "errors.log" says so once until it works again.
class CommunicationLog {
  public:
    /// What becomes of the files: `size` in bytes, and how many there are, the current one included.
    struct Rotation {
        qint64 size = 5'000'000;
        int files = 5;
    };

    /// `calibrator` is the name by which the settings know it.
    CommunicationLog(const Workstation& workstation, QString calibrator, const QString& folder,
                     Rotation rotation);
    CommunicationLog(const Workstation& workstation, QString calibrator, const QString& folder)
        : CommunicationLog(workstation, std::move(calibrator), folder, Rotation()) {}

    const QString& calibrator() const { return calibrator_; }
    const QString& path() const { return path_; }

    /// What the settings say. A setting that can't be read is off.
    bool isSwitchedOn() const;
    /// Takes over what the settings say; what begins an exchange or a command calls it.
    void readSwitch() { on_ = isSwitchedOn(); }
    bool isOn() const { return on_; }
    /// Writes a line, when the log is on; line breaks become blanks.
    void write(const QString& words);

    /// How the line was opened last, whether or not the log is on; nothing before the first attempt.
    void setOpening(const LineOpening& opening);
    const std::optional<LineOpening>& opening() const { return opening_; }

    /// Called when there is something new: a line, or how the line was opened. It must not throw.
    std::function<void()> onChange;

  private:
    void append(const QByteArray& line);
    bool makeRoom();
    void complain(const QString& reason);

    const Workstation& workstation_;
    QString calibrator_;
    QString path_;
    Rotation rotation_;
    bool on_ = false;
    bool complained_ = false;
    std::optional<LineOpening> opening_;
};

/// The section of the settings that switches logs on.
inline const QString logSection = QStringLiteral("Log");

} // namespace kelvane
