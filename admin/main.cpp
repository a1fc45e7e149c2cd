#include "admin/commands.h"
#include "admin/failure.h"
#include "platform/error.h"
#include "platform/terminal.h"
#include "platform/version.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

/// Over a network the server has to prove who it is, unless the address says otherwise.
void requireVerifiedServers() {
    if (qEnvironmentVariableIsEmpty("PGSSLMODE"))
        qputenv("PGSSLMODE", "verify-full");
}

QString outputOf(const kelvane::admin::Invocation& invocation) {
    using namespace kelvane::admin;

    switch (invocation.kind) {
    case Invocation::Kind::help:
        return invocation.command == nullptr ? helpText(commands()) : helpText(*invocation.command);
    case Invocation::Kind::version:
        return u"kelvane-admin "_s + kelvane::programVersion() + u'\n';
    case Invocation::Kind::run:
        break;
    }
    return invocation.command->run(invocation);
}

} // namespace

int main(int argc, char** argv) {
    kelvane::openStandardStreams();
    const QCoreApplication application(argc, argv);
    requireVerifiedServers();
    const auto program = u"kelvane-admin"_s;
    try {
        using namespace kelvane::admin;
        const auto all = commands() + commandsOfScripts();
        const auto invocation = invocationOf(all, QCoreApplication::arguments().mid(1));
        return kelvane::writeAnswer(program, {outputOf(invocation)});
    } catch (const kelvane::admin::Failure& failure) {
        return kelvane::writeAnswer(program, {failure.text, failure.status});
    } catch (const kelvane::Error& error) {
        return kelvane::writeAnswer(program, {error.description, 1});
    }
}
