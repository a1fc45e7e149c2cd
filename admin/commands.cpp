#include "admin/commands.h"

#include "admin/account_commands.h"
#include "admin/data_source.h"
#include "admin/demonstration_past.h"
#include "admin/failure.h"
#include "admin/scripts.h"

#include <QCoreApplication>
#include <QDate>
#include <QElapsedTimer>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace kelvane::admin {

namespace {

const QString address = u"ADDRESS"_s;
const QString accountName = u"NAME"_s;

const ProgramOption ownerOption{u"owner"_s, u"OWNER"_s,
                                u"adds an owner, with tables of its own, beside mt, std and abc (server)"_s};

/// The option of an owner as the scripts take it.
QStringList ownerArguments(const Invocation& invocation, const DatabaseAddress& at) {
    if (!invocation.options.isSet(ownerOption.name))
        return {};
    if (!at.isServer)
        throw usageFailure(u"--owner is for the database of a server"_s);
    return {u"--owner="_s + invocation.options.value(ownerOption.name)};
}

/// The day of the option.
QDate dayOf(const Invocation& invocation) {
    const auto text = invocation.options.value(u"day"_s);
    const auto day = QDate::fromString(text, u"yyyy-MM-dd"_s);
    if (!day.isValid())
        throw usageFailure(u"no such day: "_s + text);
    return day;
}

QString makeDatabase(const Invocation& invocation) {
    const auto at = databaseAddress(invocation.arguments[0]);
    QStringList arguments = QStringList{at.text} + ownerArguments(invocation, at);
    if (invocation.options.isSet(u"demo"_s))
        arguments << u"--demo"_s << u"--past="_s + QCoreApplication::applicationFilePath();
    if (invocation.options.isSet(u"day"_s))
        arguments << u"--day="_s + dayOf(invocation).toString(u"yyyy-MM-dd"_s);
    becomeScript(u"make.sh"_s, at, arguments);
}

/// Tells on the standard error how many records there are, once that takes longer than a second.
class ProgressLine {
  public:
    ProgressLine() { time_.start(); }
    ~ProgressLine() {
        if (percent_ >= 0)
            std::fputc('\n', stderr);
    }
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    void show(qsizetype made, qsizetype all) {
        const auto percent = made * 100 / all;
        if (percent == percent_ || !time_.hasExpired(1000))
            return;
        percent_ = percent;
        std::fprintf(stderr, "\rMaking five years of records: %d %%", static_cast<int>(percent));
        std::fflush(stderr);
    }

  private:
    QElapsedTimer time_;
    qsizetype percent_ = -1;
};

QString makePast(const Invocation& invocation) {
    const auto day = dayOf(invocation);
    RecordsMade made = [](qsizetype, qsizetype) {};
    ProgressLine line;
    if (invocation.options.isSet(u"progress"_s))
        made = [&line](qsizetype count, qsizetype all) { line.show(count, all); };
    makeDemonstrationPast(invocation.arguments[0], day, made);
    return {};
}

QString upgrade(const Invocation& invocation) {
    const auto at = databaseAddress(invocation.arguments[0]);
    becomeScript(u"upgrade.sh"_s, at, QStringList{at.text} + ownerArguments(invocation, at));
}

QString check(const Invocation& invocation) {
    const auto at = databaseAddress(invocation.arguments[0]);
    becomeScript(u"check.sh"_s, at, {at.text});
}

QString backUp(const Invocation& invocation) {
    const auto at = databaseAddress(invocation.arguments[0]);
    becomeScript(u"backup.sh"_s, at, {at.text, invocation.arguments[1]});
}

QString restore(const Invocation& invocation) {
    const auto at = databaseAddress(invocation.arguments[1]);
    becomeScript(u"restore.sh"_s, at, {invocation.arguments[0], at.text});
}

QString printDataSource(const Invocation& invocation) {
    return dataSourceSection(databaseAddress(invocation.arguments[0]), invocation.options.value(u"name"_s));
}

} // namespace

const QList<Command>& commands() {
    static const QList<Command> all{
        {.name = u"make"_s,
         .arguments = {address},
         .options = {{u"demo"_s, {}, u"with the demonstration data"_s},
                     {u"day"_s, u"YYYY-MM-DD"_s, u"the day that the demonstration data count from; today"_s},
                     ownerOption},
         .summary = u"makes a database, or upgrades the one that is there"_s,
         .details = {},
         .run = makeDatabase},
        {.name = u"upgrade"_s,
         .arguments = {address},
         .options = {ownerOption},
         .summary = u"brings a database to the version of this program"_s,
         .details = u"A folder is copied before. Copy the database of a server yourself (backup)."_s,
         .run = upgrade},
        {.name = u"check"_s,
         .arguments = {address},
         .options = {},
         .summary = u"looks for what is missing, damaged or left over in a database"_s,
         .details = u"Changes nothing. Each fault is a line; the exit status is 1 when there is one."_s,
         .run = check},
        {.name = u"backup"_s,
         .arguments = {address, u"COPY"_s},
         .options = {},
         .summary = u"copies a database, which may be in use"_s,
         .details = u"COPY must not exist yet: a new folder (embedded engine) or file (server)."_s,
         .run = backUp},
        {.name = u"restore"_s,
         .arguments = {u"COPY"_s, address},
         .options = {},
         .summary = u"puts a copy back, when nobody is logged in"_s,
         .details = u"What was there before is kept beside it."_s,
         .run = restore},
        {.name = u"accounts"_s,
         .arguments = {address},
         .options = {},
         .summary = u"lists the accounts: name, owner, level, and whether they may log in"_s,
         .details = {},
         .run = listAccounts},
        {.name = u"account"_s,
         .arguments = {address, accountName},
         .options = {{u"owner"_s, u"OWNER"_s,
                      u"whose inventory and calibrations the user works on, such as MT"_s, true},
                     {u"level"_s, u"N"_s, u"0 sends work, 1 to 5 calibrate, 6 configures records"_s, true}},
         .summary = u"makes an account, or changes its owner and level"_s,
         .details = u"A new account gets a password, which is asked for."_s,
         .run = setAccount},
        {.name = u"level"_s,
         .arguments = {address, accountName, u"LEVEL"_s},
         .options = {},
         .summary = u"sets the level of an account"_s,
         .details = {},
         .run = setLevel},
        {.name = u"password"_s,
         .arguments = {address, accountName},
         .options = {},
         .summary = u"sets the password of an account"_s,
         .details = u"It is asked for twice on a terminal, or is one line of the standard input."_s,
         .run = setPassword},
        {.name = u"remove"_s,
         .arguments = {address, accountName},
         .options = {},
         .summary = u"removes an account; what it has recorded stays"_s,
         .details = {},
         .run = removeAccount},
        {.name = u"data-source"_s,
         .arguments = {address},
         .options = {{u"name"_s, u"NAME"_s, u"by which workstations know it; \"Calibration Data\""_s, false,
                      u"Calibration Data"_s}},
         .summary = u"prints the section of an odbc.ini for a workstation"_s,
         .details = u"For /etc/odbc.ini or ~/.odbc.ini. It holds neither user nor password."_s,
         .run = printDataSource},
    };
    return all;
}

const QList<Command>& commandsOfScripts() {
    static const QList<Command> all{
        {.name = u"demonstration-past"_s,
         .arguments = {u"FOLDER"_s},
         .options = {{u"day"_s, u"YYYY-MM-DD"_s, u"the day that the demonstration data count from"_s, true},
                     {u"progress"_s, {}, u"tells how far it is"_s}},
         .summary = u"makes the earlier records of the demonstration data"_s,
         .details = {},
         .run = makePast},
    };
    return all;
}

} // namespace kelvane::admin
