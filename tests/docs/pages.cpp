#include "tests/docs/pages.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

QString textOfPage(const QString& path) {
    QFile file(QStringLiteral(KELVANE_SOURCES "/") + path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll());
}

QStringList shellLines(const QString& path) {
    QStringList lines;
    bool isShell = false;
    const auto text = textOfPage(path).split(u'\n');
    for (const auto& line : text) {
        const auto content = line.trimmed();
        if (content.startsWith(u"```"))
            isShell = content == u"```sh";
        else if (isShell && !content.isEmpty())
            lines << content;
    }
    return lines;
}

} // namespace kelvane::testing
