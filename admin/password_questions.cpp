#include "admin/password_questions.h"

#include "admin/failure.h"
#include "platform/terminal.h"

#include <QStringDecoder>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane::admin {

namespace {

/// The longest phrase that the library of the hashes takes.
constexpr qsizetype maxBytes = 511;

Password ask(const QString& prompt) {
    auto line = readSecretLine(prompt, maxBytes);
    if (!line)
        throw Failure{u"no password was given on the standard input"_s};
    return Password(std::move(*line));
}

bool isUtf8(const QByteArray& bytes) {
    QStringDecoder decoder(QStringDecoder::Utf8);
    auto decoded = QString(decoder(bytes));
    decoded.fill(QChar::Null);
    return !decoder.hasError();
}

bool isControlCharacter(char byte) {
    return (byte >= 0 && byte < ' ') || byte == '\x7f';
}

/// The login drops blanks at the ends of what is typed, and a password that is empty then is refused by it.
void requireUsable(const Password& password) {
    const auto& bytes = password.utf8();
    if (bytes.isEmpty())
        throw Failure{u"an empty password is refused"_s};
    if (bytes.size() > maxBytes)
        throw Failure{u"a password has at most %1 bytes"_s.arg(maxBytes)};
    if (bytes.startsWith(' ') || bytes.endsWith(' '))
        throw Failure{u"a password can't begin or end with a blank: the login leaves it out"_s};
    if (!isUtf8(bytes) || std::ranges::any_of(bytes, isControlCharacter))
        throw Failure{u"a password consists of characters in UTF-8, without control characters"_s};
}

} // namespace

Password newPassword(const QString& account) {
    auto password = ask(u"New password of %1: "_s.arg(account));
    requireUsable(password);
    if (isTerminal() && ask(u"The same once more: "_s).utf8() != password.utf8())
        throw Failure{u"the two passwords differ; nothing was changed"_s};
    return password;
}

Password serverPassword(const QString& user) {
    if (!isTerminal())
        throw Failure{u"the server asks for the password of %1; put it into ~/.pgpass"_s.arg(user)};
    return ask(u"Password of %1 on the server: "_s.arg(user));
}

} // namespace kelvane::admin
