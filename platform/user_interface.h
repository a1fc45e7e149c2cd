#pragma once

#include <QString>
#include <QStringList>

namespace kelvane {

enum class BoxIcon { none, information, question, warning, stop };
enum class BoxButtons { ok, okCancel, yesNo, retryCancel, abortRetryIgnore };
enum class BoxAnswer { ok, cancel, yes, no, retry, abort, ignore };

/// How a message box looks: its icon, its buttons, and which of them, counted from 1, is the default one.
struct BoxStyle {
    BoxIcon icon = BoxIcon::warning;
    BoxButtons buttons = BoxButtons::ok;
    int defaultButton = 1;
    friend bool operator==(const BoxStyle&, const BoxStyle&) = default;
};

namespace box {
inline constexpr BoxStyle warning{};
inline constexpr BoxStyle stop{BoxIcon::stop};
inline constexpr BoxStyle information{BoxIcon::information};
/// Question with Yes and No, No being the default.
inline constexpr BoxStyle question{BoxIcon::question, BoxButtons::yesNo, 2};
/// Warning with Yes and No, No being the default.
inline constexpr BoxStyle warningYesNo{BoxIcon::warning, BoxButtons::yesNo, 2};
inline constexpr BoxStyle warningOkCancel{BoxIcon::warning, BoxButtons::okCancel, 1};
inline constexpr BoxStyle warningRetryCancel{BoxIcon::warning, BoxButtons::retryCancel, 1};
} // namespace box

/// What an answer to the one-field dialog has to be.
enum class FieldKind : qint16 { free = 0, date = 1, number = 2, time = 3 };

/// One question of the one-field dialog.
struct DialogQuestion {
    QString caption;
    QString prompt;
    bool required = false;
    /// True: one of `choices` is picked. False: a text is typed.
    bool fromList = false;
    QStringList choices = {};
    /// Maximum length of a typed text, 0 for no limit.
    qint16 maxLength = 0;
    /// The `FieldKind` as a number, as it is carried through the tables.
    qint16 fieldType = 0;
    /// Starting text, or the beginning that selects a row of the list.
    QString defaultText = {};
};

/// The answer of a cancelled dialog.
inline const QString cancelled = QStringLiteral("*CANCEL*");

/// The operator interface for routines without windows: boxes, the one-field dialog, the progress window, the
/// pointer. Every message and question of the core goes through it.
class UserInterface {
  public:
    virtual ~UserInterface() = default;

    virtual BoxAnswer messageBox(const QString& text, const QString& title, BoxStyle style) = 0;

    /// Shows the one-field dialog and returns when it has closed: the trimmed entry, or `cancelled`. While
    /// one is open a second call brings that one to the front and returns `cancelled` at once.
    virtual QString askOneField(const DialogQuestion& question) = 0;

    /// Brings the one-field dialog that is open to the front; false when none is. A command that has a
    /// question to ask calls this before it begins, and does not begin when it answers true.
    virtual bool bringQuestionForward() = 0;

    /// The progress window of a long action. It disables the other windows until `hideProgress`.
    virtual void showProgress(const QString& caption) = 0;
    virtual void setProgressText(const QString& text) = 0;
    /// Percentage, 0 to 100.
    virtual void setProgressValue(int percent) = 0;
    virtual void hideProgress() = 0;

    /// What runs without a window of its own, for the status line of the main window; empty: nothing does.
    virtual void setActivity(const QString& text) = 0;

    /// The hourglass, and the normal pointer. Not counted: one normal pointer ends any number of hourglasses.
    virtual void setBusyPointer() = 0;
    virtual void setNormalPointer() = 0;

    /// Lets pending window events run.
    virtual void processEvents() = 0;

    /// Lets the rest of the program live until no window with this title is on the screen any more.
    virtual void waitForWindow(const QString& title) = 0;

    /// Lets the windows paint what has to be painted. No key, click or request to close is handled meanwhile:
    /// long work that no command may interrupt calls this while it waits.
    virtual void repaint() = 0;
};

/// The hourglass for the time of a block; the normal pointer comes back however the block ends.
class BusyPointer {
  public:
    explicit BusyPointer(UserInterface& ui) : ui_(ui) { ui_.setBusyPointer(); }
    ~BusyPointer() { ui_.setNormalPointer(); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;

  private:
    UserInterface& ui_;
};

/// The progress window for the time of a block; it closes however the block ends.
class ProgressWindow {
  public:
    ProgressWindow(UserInterface& ui, const QString& caption) : ui_(ui) { ui_.showProgress(caption); }
    ~ProgressWindow() { ui_.hideProgress(); }
    ProgressWindow(const ProgressWindow&) = delete;
    ProgressWindow& operator=(const ProgressWindow&) = delete;
    /// Percentage, 0 to 100.
    void reach(int percent) { ui_.setProgressValue(percent); }

  private:
    UserInterface& ui_;
};

} // namespace kelvane
