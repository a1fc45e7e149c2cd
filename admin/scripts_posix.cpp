#include "admin/scripts.h"

#include "admin/failure.h"
#include "platform/installed_files.h"
#include "platform/version.h"

#include <QFile>

#include <cerrno>
#include <cstring>
#include <vector>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace kelvane::admin {

void becomeScript(const QString& name, const DatabaseAddress& address, const QStringList& arguments) {
    const auto folder = InstalledFiles().databaseScripts() + (address.isServer ? u"/postgresql/"_s : u"/"_s);
    const auto path = folder + name;
    std::vector<QByteArray> texts{QFile::encodeName(path)};
    for (const auto& argument : arguments)
        texts.push_back(QFile::encodeName(argument));
    std::vector<char*> words;
    for (auto& text : texts)
        words.push_back(text.data());
    words.push_back(nullptr);
    // They enter it into the history of upgrades.
    qputenv("KELVANE_VERSION", programVersion().toLatin1());
    ::execv(words.front(), words.data());
    throw Failure{u"%1 can't be started: %2"_s.arg(path, QString::fromLocal8Bit(std::strerror(errno)))};
}

} // namespace kelvane::admin
