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

bool isMadeByTheBuild(const QString& path) {
    return std::ranges::any_of(madeByTheBuild, [&](QLatin1StringView made) { return path.startsWith(made); });
}

} // namespace

QStringList missingFiles(const QDir& root) {
    QStringList missing;
    for (const auto& document : documentsIn(root)) {
        QFile file(root.filePath(document));
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const auto text = QString::fromUtf8(file.readAll());
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

} // namespace kelvane::testing
