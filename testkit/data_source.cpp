#include "testkit/data_source.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

QString addDataSource(const QHash<QString, QString>& settings) {
    // A new name each time: the driver manager remembers what it has read for some seconds.
    static int count = 0;
    const auto name = u"test-%1-%2"_s.arg(QCoreApplication::applicationPid()).arg(++count);
    auto section = u"[%1]\n"_s.arg(name);
    for (auto setting = settings.cbegin(); setting != settings.cend(); ++setting)
        section += setting.key() + u" = "_s + setting.value() + u'\n';

    // All in one file, which the driver manager reads when a connection opens.
    static const QTemporaryDir folder;
    const auto path = folder.filePath(u"odbc.ini"_s);
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::Append));
    file.write(section.toUtf8());
    qputenv("ODBCINI", QFile::encodeName(path));
    return name;
}

} // namespace kelvane::testing
