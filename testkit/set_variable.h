#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

namespace kelvane::testing {

/// Sets a variable of the environment for a time.
class SetVariable {
  public:
    SetVariable(const char* name, const QString& value) : name_(name), before_(qgetenv(name)) {
        qputenv(name, QFile::encodeName(value));
    }
    ~SetVariable() {
        if (before_.isNull())
            qunsetenv(name_);
        else
            qputenv(name_, before_);
    }
    Q_DISABLE_COPY_MOVE(SetVariable)

  private:
    const char* name_;
    QByteArray before_;
};

} // namespace kelvane::testing
