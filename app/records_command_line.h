#pragma once

#include "platform/program_options.h"
#include "platform/values/csv.h"

#include <QDate>

namespace kelvane {

/// What a command line of kelvane-records asks for.
struct RecordsRequest {
    enum class List { due, overdue, used, history, certificate };
    List list = List::overdue;
    /// For what is due.
    int days = 0;
    /// The standard, or the instrument of the history or of the certificate.
    QString asset = {};
    /// The record of the certificate; empty for the newest.
    QString record = {};
    QDate since = {};
    CsvForm form = {};
    QString user = {};
    /// Empty for the workstation's own.
    QString dataSource = {};
    /// Empty for the standard output.
    QString file = {};
};

/// The command line of kelvane-records.
const Program& recordsCommandLine();

/// Reads the words behind the program's name; throws `ProgramAnswer` for the help, the version, and whatever
/// is no request: without a list or a certificate it names the lists, with status 2.
RecordsRequest recordsRequest(const QStringList& words);

} // namespace kelvane
