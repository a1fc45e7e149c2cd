#include "tests/source_rules/document_rules.h"

#include <QFile>
#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// Paths from the root that name no file of the tree.
constexpr QLatin1StringView madeByTheBuild[] = {"build/"_L1, "resources/text_id.h"_L1};

QStringList documentsIn(const QDir& root) {
    QStringList documents;
    for (const auto& folder : {QString(), u"docs/"_s}) {
        for (const auto& name : QDir(root.filePath(folder)).entryList({u"*.md"_s}, QDir::Files, QDir::Name))
            documents << folder + name;
    }
    return documents;
}

/// The paths that `pattern` finds in a text, in its first group.
QStringList pathsIn(const QString& text, const QString& pattern) {
    QStringList paths;
    for (const auto& match : QRegularExpression(pattern).globalMatch(text))
        paths << match.captured(1);
    return paths;
}

QString textOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// The names by which links lead to the headings of a text.
QStringList anchorsIn(const QString& text) {
    static const QRegularExpression dropped(u"[^\\w\\s-]"_s, QRegularExpression::UseUnicodePropertiesOption);
    static const QRegularExpression heading(u"^#+ +(.+)$"_s, QRegularExpression::MultilineOption);
    QStringList anchors;
    for (const auto& match : heading.globalMatch(text))
        anchors << match.captured(1).toLower().remove(dropped).replace(u' ', u'-');
    return anchors;
}

bool isMadeByTheBuild(const QString& path) {
    return std::ranges::any_of(madeByTheBuild, [&](QLatin1StringView made) { return path.startsWith(made); });
}

} // namespace

QStringList missingFiles(const QDir& root) {
    QStringList missing;
    for (const auto& document : documentsIn(root)) {
        const auto text = textOf(root.filePath(document));
        // At least two parts: one alone is a folder of the paragraph's subject.
        for (const auto& path : pathsIn(text, uR"re(`([A-Za-z][\w.-]*(?:/[\w.-]+)+/?)`)re"_s)) {
            if (!isMadeByTheBuild(path) && !root.exists(path))
                missing << document + u": "_s + path;
        }
        const auto folder = document.left(document.lastIndexOf(u'/') + 1);
        for (const auto& path : pathsIn(text, uR"re(\]\(([\w./-]+)(?:#[\w-]+)?\))re"_s)) {
            if (!root.exists(folder + path))
                missing << document + u": "_s + path;
        }
    }
    return missing;
}

QStringList missingHeadings(const QDir& root) {
    static const QRegularExpression link(uR"re(\]\(([\w./-]*)#([\w-]+)\))re"_s);
    QStringList missing;
    for (const auto& document : documentsIn(root)) {
        const auto folder = document.left(document.lastIndexOf(u'/') + 1);
        for (const auto& match : link.globalMatch(textOf(root.filePath(document)))) {
            const auto page = match.captured(1).isEmpty() ? document : folder + match.captured(1);
            if (!anchorsIn(textOf(root.filePath(page))).contains(match.captured(2)))
                missing << document + u": "_s + match.captured(1) + u'#' + match.captured(2);
        }
    }
    return missing;
}

} // namespace kelvane::testing
