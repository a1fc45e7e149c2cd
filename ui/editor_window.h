#pragma once

#include "data/guard.h"
#include "resources/strings.h"
#include "ui/child_window.h"
#include "ui/guarded.h"

#include <functional>

namespace kelvane {

/// The base of the editors: a screen whose contents have a checksum. It counts as changed when the sum
/// differs from the one that was taken after the last load or save; before changes are lost, the user is
/// asked.
class EditorWindow : public ChildWindow {
    Q_OBJECT
  public:
    using ChildWindow::ChildWindow;

  protected:
    /// The question before unsaved changes are lost.
    struct Question {
        TextId text;
        BoxStyle style;
        TextId title;
    };

    /// While one exists, the handlers of changes made by the program itself do nothing.
    class Loading {
      public:
        explicit Loading(EditorWindow& editor) : editor_(editor), before_(editor.loading_) {
            editor_.loading_ = true;
        }
        ~Loading() { editor_.loading_ = before_; }
        Loading(const Loading&) = delete;
        Loading& operator=(const Loading&) = delete;

      private:
        EditorWindow& editor_;
        bool before_;
    };

    /// The checksum of the screen's contents.
    virtual double Form_CheckSum() = 0;
    /// The checksum of a text, reported under that name.
    double checkSum(const QString& routine, const QString& text);
    /// Marks the screen's contents as saved.
    void saveCheckSum();
    double savedCheckSum() const { return savedCheckSum_; }
    virtual bool isChanged() { return unsaved_ || Form_CheckSum() != savedCheckSum_; }
    /// From now on the screen counts as changed, whatever its sum, until the next `saveCheckSum`. A save
    /// begins with it: whatever stops the save, the screen stays changed.
    void markUnsaved() { unsaved_ = true; }
    bool isLoading() const { return loading_; }

    /// True when the answer is Yes.
    bool confirms(const Question& question);
    /// True when nothing is changed, or when the answer is Yes.
    bool mayDiscard(const Question& question) { return !isChanged() || confirms(question); }

    /// Runs a command of the screen. While one runs, any open question included, another one does nothing and
    /// the window stays open.
    void run(const std::function<void()>& command);
    /// Runs `command` in this way whenever `sender` emits `signal`.
    template <class Sender, class Signal>
    void onCommand(Sender* sender, Signal signal, const std::function<void()>& command) {
        connectGuarded(sender, signal, this, session_.ui, [this, command] { run(command); });
    }
    void onClick(QPushButton* button, const std::function<void()>& command);

    /// What is asked when the window is closed with unsaved changes.
    virtual Question closeQuestion() const;
    bool mayClose() override;

  private:
    double savedCheckSum_ = 0;
    bool unsaved_ = false;
    bool loading_ = false;
    bool running_ = false;
};

} // namespace kelvane
