#pragma once

#include "data/session.h"
#include "testkit/recording_connection.h"
#include "testkit/scripted_user_interface.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

QT_BEGIN_NAMESPACE
/// Texts in failure messages.
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}
QT_END_NAMESPACE

namespace kelvane::testing {

/// A clock that stands still at a set moment; `tick` seconds pass with each reading.
class SetClock final : public Clock {
  public:
    QDateTime now() const override {
        const auto present = present_;
        present_ = present_.addSecs(tick);
        return present;
    }
    void set(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
        present_ = QDateTime(QDate(year, month, day), QTime(hour, minute, second));
    }
    int tick = 0;

  private:
    mutable QDateTime present_ = QDateTime(QDate(2026, 3, 18), QTime(9, 30, 0)); // a Wednesday
};

/// Settings that live as long as the test.
class MemorySettings final : public SettingsStore {
  public:
    QString value(const QString& section, const QString& key) const override {
        return values.value(section + QLatin1Char('/') + key);
    }
    void setValue(const QString& section, const QString& key, const QString& value) override {
        values.insert(section + QLatin1Char('/') + key, value);
        writes << section + QLatin1Char('/') + key + QLatin1Char('=') + value;
    }
    QHash<QString, QString> values;
    QStringList writes;
};

/// A folder of its own as the current directory (for "errors.log" and "rslt_db.frm"); left again at the end.
class OwnFolder {
  public:
    OwnFolder();
    ~OwnFolder();
    QString path() const { return folder_.path(); }
    QString read(const QString& name) const;
    void write(const QString& name, const QByteArray& content) const;

  private:
    QString before_;
    QTemporaryDir folder_;
};

/// A session over a recording connection, with a scripted operator: owner MT, user "jdoe", "MM/DD/YYYY",
/// version 6.
class RecordedSession : public ::testing::Test {
  protected:
    RecordedSession();

    OwnFolder folder;
    SetClock clock;
    MemorySettings settings;
    ScriptedUserInterface ui;
    RecordingConnection::Script script;
    Session session;
};

} // namespace kelvane::testing
