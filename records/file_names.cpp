#include "records/file_names.h"

namespace kelvane {

namespace {

/// File systems take 255; a number and a suffix are added.
constexpr qsizetype longestName = 200; // bytes in UTF-8

bool isRefused(QChar character) {
    constexpr QStringView refused = u"/\\:*?\"<>|";
    const auto category = character.category();
    return refused.contains(character) || category == QChar::Other_Control ||
           category == QChar::Other_Format || category == QChar::Separator_Line ||
           category == QChar::Separator_Paragraph;
}

} // namespace

QString replaceRefused(QString name, QChar substitute) {
    for (auto& character : name) {
        if (isRefused(character))
            character = substitute;
    }
    return name;
}

QString safeFileName(QString name) {
    name = replaceRefused(std::move(name), u'_');
    while (name.toUtf8().size() > longestName)
        name.chop(name.back().isLowSurrogate() ? 2 : 1);
    name = name.trimmed();
    while (name.endsWith(u'.'))
        name = name.chopped(1).trimmed();
    if (name.startsWith(u'.'))
        name.front() = u'_';
    return name;
}

} // namespace kelvane
