#include "admin/commands.h"
#include "admin/failure.h"
#include "admin/terminal.h"
#include "platform/error.h"
#include "platform/version.h"

#include <QCoreApplication>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

void print(FILE* stream, const QString& text) {
    const auto bytes = text.toUtf8();
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stream);
}

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
    kelvane::admin::openStandardStreams();
    const QCoreApplication application(argc, argv);
    requireVerifiedServers();
    int status = 1;
    QString complaint;
    try {
        using namespace kelvane::admin;
        print(stdout, outputOf(invocationOf(commands(), QCoreApplication::arguments().mid(1))));
        if (std::fflush(stdout) == 0)
            return 0;
        complaint = u"the output can't be written"_s;
    } catch (const kelvane::admin::Failure& failure) {
        complaint = failure.text;
        status = failure.status;
    } catch (const kelvane::Error& error) {
        complaint = error.description;
    }
    print(stderr, u"kelvane-admin: "_s + complaint + u'\n');
    return status;
}
