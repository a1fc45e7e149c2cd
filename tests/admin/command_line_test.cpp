#include "admin/command_line.h"
#include "admin/commands.h"
#include "admin/failure.h"
#include "tests/admin/admin_program.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using admin::commands;
using admin::Invocation;
using admin::invocationOf;

namespace {

/// What a command line is refused with, and the status in front; empty when it is taken.
QString refusalOf(const QStringList& words) {
    try {
        invocationOf(commands(), words);
        return {};
    } catch (const admin::Failure& failure) {
        return QString::number(failure.status) + u' ' + failure.text;
    }
}

} // namespace

TEST(AdminCommandLine, OptionsStandAnywhereWithTheirValueInOneWordOrTwo) {
    for (const auto& words :
         {QStringList{u"account"_s, u"db"_s, u"ann"_s, u"--owner=MT"_s, u"--level=3"_s},
          QStringList{u"account"_s, u"--owner"_s, u"MT"_s, u"db"_s, u"--level"_s, u"3"_s, u"ann"_s}}) {
        const auto invocation = invocationOf(commands(), words);
        EXPECT_EQ(invocation.kind, Invocation::Kind::run);
        EXPECT_EQ(invocation.command->name, u"account"_s);
        EXPECT_EQ(invocation.arguments, (QStringList{u"db"_s, u"ann"_s}));
        EXPECT_EQ(invocation.options.value(u"owner"_s), u"MT"_s);
        EXPECT_EQ(invocation.options.value(u"level"_s), u"3"_s);
    }
}

TEST(AdminCommandLine, BehindTwoDashesNothingIsAnOption) {
    const auto invocation = invocationOf(commands(), {u"remove"_s, u"db"_s, u"--"_s, u"--help"_s});
    EXPECT_EQ(invocation.kind, Invocation::Kind::run);
    EXPECT_EQ(invocation.arguments, (QStringList{u"db"_s, u"--help"_s}));
}

TEST(AdminCommandLine, WhatCantBeUnderstoodIsNamed) {
    const struct {
        QStringList words;
        QString refusal;
    } rows[] = {
        {{}, u"2 a command is missing; see kelvane-admin --help"_s},
        {{u"burn"_s}, u"2 unknown command burn; see kelvane-admin --help"_s},
        {{u"--verbose"_s}, u"2 unknown option --verbose; see kelvane-admin --help"_s},
        {{u"-h"_s}, u"2 unknown option -h; see kelvane-admin --help"_s},
        {{QString()}, u"2 unknown command ; see kelvane-admin --help"_s},
        {{u"make"_s}, u"2 ADDRESS is missing; see kelvane-admin make --help"_s},
        {{u"backup"_s, u"db"_s}, u"2 COPY is missing; see kelvane-admin backup --help"_s},
        {{u"level"_s, u"db"_s, u"ann"_s}, u"2 LEVEL is missing; see kelvane-admin level --help"_s},
        {{u"check"_s, u"db"_s, u"more"_s}, u"2 one argument too many; see kelvane-admin check --help"_s},
        {{u"make"_s, u"db"_s, u"--demonstration"_s},
         u"2 unknown option --demonstration; see kelvane-admin make --help"_s},
        {{u"make"_s, u"db"_s, u"-demo"_s}, u"2 unknown option -demo; see kelvane-admin make --help"_s},
        {{u"make"_s, u"db"_s, u"--demo=yes"_s}, u"2 --demo takes no value; see kelvane-admin make --help"_s},
        {{u"make"_s, u"db"_s, u"--demo"_s, u"--demo"_s},
         u"2 --demo was given twice; see kelvane-admin make --help"_s},
        {{u"make"_s, u"db"_s, u"--day"_s}, u"2 --day needs a value; see kelvane-admin make --help"_s},
        {{u"account"_s, u"db"_s, u"ann"_s, u"--level=1"_s},
         u"2 --owner is missing; see kelvane-admin account --help"_s},
        {{u"account"_s, u"db"_s, u"ann"_s, u"--owner=MT"_s},
         u"2 --level is missing; see kelvane-admin account --help"_s},
        {{u"account"_s, u"db"_s, u"ann"_s, u"--password=x"_s},
         u"2 unknown option --password; see kelvane-admin account --help"_s},
        {{u"password"_s, u"db"_s, u"ann"_s, u"secret"_s},
         u"2 one argument too many; see kelvane-admin password --help"_s},
    };
    for (const auto& row : rows)
        EXPECT_EQ(refusalOf(row.words), row.refusal) << row.words.join(u' ').toStdString();
}

TEST(AdminCommandLine, EachCommandHasItsHelp) {
    const auto help = runAdmin({u"--help"_s});
    EXPECT_EQ(help.code, 0);
    EXPECT_EQ(help.errors, QString());
    for (const auto& command : commands()) {
        SCOPED_TRACE(command.name.toStdString());
        EXPECT_TRUE(help.output.contains(u"\n  "_s + command.name + u' '));
        const auto own = runAdmin({command.name, u"--help"_s});
        EXPECT_EQ(own.code, 0);
        EXPECT_EQ(own.errors, QString());
        EXPECT_TRUE(own.output.startsWith(u"Usage: kelvane-admin "_s + command.name + u" "_s +
                                          command.arguments.join(u' ')))
            << own.output.toStdString();
        for (const auto& option : command.options)
            EXPECT_TRUE(own.output.contains(u"\n  --"_s + option.name));
    }
}

TEST(AdminCommandLine, TheVersionIsThatOfTheBuild) {
    const auto outcome = runAdmin({u"--version"_s});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.output, u"kelvane-admin %1\n"_s.arg(QStringLiteral(KELVANE_PROJECT_VERSION)));
}

TEST(AdminCommandLine, AWrongCommandLineIsOneLineOfErrorsAndStatus2) {
    expectRefused(runAdmin({}), 2, u"a command is missing"_s);
    expectRefused(runAdmin({u"burn"_s}), 2, u"unknown command burn"_s);
    expectRefused(runAdmin({u"accounts"_s, u"--all"_s, u"db"_s}), 2, u"unknown option --all"_s);
    expectRefused(runAdmin({u"accounts"_s, QString()}), 2, u"the address is empty"_s);
    expectRefused(runAdmin({u"make"_s, u"db"_s, u"--day=2026-02-30"_s}), 2, u"no such day: 2026-02-30"_s);
}

TEST(AdminCommandLine, OutputThatCantBeWrittenIsReported) {
    if (!QFile::exists(u"/dev/full"_s))
        GTEST_SKIP() << "this system has no full device";
    QProcess process;
    process.setStandardOutputFile(u"/dev/full"_s);
    process.start(QCoreApplication::applicationDirPath() + u"/kelvane-admin"_s, {u"--help"_s});
    ASSERT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitCode(), 1);
    EXPECT_EQ(process.readAllStandardError(), "kelvane-admin: the output can't be written\n");
}

} // namespace kelvane::testing
