#pragma once

#include "testkit/embedded_database.h"
#include "testkit/fixtures.h"

#include <QProcessEnvironment>
#include <QStringList>

namespace kelvane::testing {

/// How kelvane-admin has ended.
struct AdminOutcome {
    int code = -1;
    QString output;
    QString errors;
};

/// Runs kelvane-admin to its end, with `input` as what it reads from its standard input, which is no
/// terminal.
AdminOutcome runAdmin(const QStringList& arguments, const QByteArray& input = {},
                      const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment());

/// The same, by a user for whom the modes of files count: root without the right to pass by them.
AdminOutcome runAdminWithoutPrivileges(const QStringList& arguments, const QByteArray& input = {});

/// Expects a command that succeeds and says nothing.
void expectDone(const AdminOutcome& outcome);
/// Expects a refusal: one line of errors that begins with the program's name and contains `text`, that exit
/// status, and no output.
void expectRefused(const AdminOutcome& outcome, int code, const QString& text);

/// The line of an account in what "accounts" has printed; empty when there is none. Its parts are separated
/// by one blank.
QString lineOfAccount(const AdminOutcome& list, const QString& name);

/// What "accounts" prints of a database with the demonstration data.
inline const QString demonstrationAccounts = QStringLiteral("name       owner  level  may log in\n"
                                                            "amoreau    MT     0      yes\n"
                                                            "bkowalski  MT     1      yes\n"
                                                            "cnguyen    MT     4      yes\n"
                                                            "dsantos    MT     5      yes\n"
                                                            "efischer   MT     6      yes\n"
                                                            "fokafor    MT     7      yes\n"
                                                            "gpetrov    ABC    4      yes\n"
                                                            "jdoe       MT     1      yes\n"
                                                            "MT         MT     6      yes\n"
                                                            "noone                    no\n");

/// A database of the embedded engine with the demonstration data, and the administrator's commands on it.
class AdminOnDatabase : public ::testing::Test {
  protected:
    AdminOutcome run(const QString& command, const QStringList& arguments = {},
                     const QByteArray& input = {}) {
        return runAdmin(QStringList{command, database.path()} + arguments, input);
    }
    QString listed(const QString& name) { return lineOfAccount(run(QStringLiteral("accounts")), name); }
    /// True when the workstation takes the login.
    bool takesLogin(const QString& user, const QString& password) const;
    /// One value out of kelvane.db and mt.db.
    QString valueOf(const QString& query) const;

    EmbeddedDatabase database{demoDatabase()};
};

} // namespace kelvane::testing
