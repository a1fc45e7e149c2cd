#include "app/command_line.h"
#include "tests/support/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

TEST(CommandLine, NamesTheDevicesOfPorts) {
    using Ports = QHash<QString, QString>;
    const struct {
        QStringList arguments;
        Ports expected;
    } rows[] = {
        {{u"kelvane"_s}, {}},
        {{u"kelvane"_s, u"--port"_s, u"COM1=/dev/ttyUSB0"_s}, {{u"COM1"_s, u"/dev/ttyUSB0"_s}}},
        {{u"kelvane"_s, u"--port=com2=/dev/a=b"_s}, {{u"COM2"_s, u"/dev/a=b"_s}}},
        {{u"kelvane"_s, u"--port"_s, u"COM1=/a"_s, u"KFDJ"_s, u"--port"_s, u"COM4=/b"_s},
         {{u"COM1"_s, u"/a"_s}, {u"COM4"_s, u"/b"_s}}},
        {{u"kelvane"_s, u"--port"_s}, {}},
        {{u"kelvane"_s, u"--port"_s, u"COM1"_s}, {}},
        {{u"kelvane"_s, u"--port"_s, u"=x"_s}, {}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(portsOf(row.arguments), row.expected) << row.arguments.join(u' ').toStdString();
}

TEST(CommandLine, PortsOfTheCommandLineComeFirstAndAreNotStored) {
    MemorySettings stored;
    stored.values.insert(u"Ports/COM1"_s, u"/dev/stored1"_s);
    stored.values.insert(u"Ports/COM2"_s, u"/dev/stored2"_s);
    stored.values.insert(u"Defaults/COM1"_s, u"other"_s);
    SettingsWithPorts settings(stored, {{u"COM1"_s, u"/dev/named"_s}});
    EXPECT_EQ(settings.value(u"Ports"_s, u"COM1"_s), u"/dev/named"_s);
    EXPECT_EQ(settings.value(u"Ports"_s, u"COM2"_s), u"/dev/stored2"_s);
    EXPECT_EQ(settings.value(u"Defaults"_s, u"COM1"_s), u"other"_s);
    EXPECT_TRUE(stored.writes.isEmpty());
    settings.setValue(u"Defaults"_s, u"Username"_s, u"jdoe"_s);
    EXPECT_EQ(stored.values.value(u"Defaults/Username"_s), u"jdoe"_s);
}

} // namespace kelvane::testing
