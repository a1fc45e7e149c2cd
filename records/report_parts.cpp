#include "records/report_parts.h"

#include "platform/installed_files.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace kelvane {

QString siteLayout(const QString& name, const QStringList& folders) {
    for (const auto& folder : folders) {
        const QFileInfo own(QDir(folder), name);
        if (own.exists())
            return own.absoluteFilePath();
    }
    return InstalledFiles().layouts() + u'/' + name;
}

QString stated(const QString& value) {
    return value.isEmpty() ? text(TextId::notStated) : value;
}

void addPageWords(QJsonObject& values) {
    const auto words = text(TextId::pageOfPages);
    const auto behind = words.section(u"%1"_s, 1);
    values["pageBefore"_L1] = words.section(u"%1"_s, 0, 0);
    values["pageBetween"_L1] = behind.section(u"%2"_s, 0, 0);
    values["pageBehind"_L1] = behind.section(u"%2"_s, 1);
}

} // namespace kelvane
