#pragma once

#include "data/session.h"
#include "platform/silent_user_interface.h"

namespace kelvane::fuzz {

/// Says no to every question.
class RefusingOperator final : public SilentUserInterface {
  public:
    BoxAnswer messageBox(const QString&, const QString&, BoxStyle style) override {
        return style.buttons == BoxButtons::ok ? BoxAnswer::ok : BoxAnswer::cancel;
    }
    QString askOneField(const DialogQuestion&) override { return QStringLiteral("*CANCEL*"); }
};

/// A clock whose time passes by being read.
class RunningClock final : public Clock {
  public:
    QDateTime now() const override {
        present_ = present_.addMSecs(tick);
        return present_;
    }
    int tick = 0; ///< milliseconds

  private:
    mutable QDateTime present_ = QDateTime(QDate(2026, 3, 18), QTime(9, 30, 0));
};

class NoSettings final : public SettingsStore {
  public:
    QString value(const QString&, const QString&) const override { return {}; }
    void setValue(const QString&, const QString&, const QString&) override {}
};

/// A session in the work folder, without reports of earlier inputs.
class WorkSession {
  public:
    explicit WorkSession(ConnectionFactory connections = {});

    RefusingOperator ui;
    RunningClock clock;
    NoSettings settings;
    Session session;
};

} // namespace kelvane::fuzz
