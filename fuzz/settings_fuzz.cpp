// A settings file of any content: what is stored comes back, everything else stays, and a damaged file is
// kept.

#include "fuzz/input.h"
#include "platform/settings_store.h"

#include <QFile>

using namespace Qt::StringLiterals;
using namespace kelvane;
using namespace kelvane::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const auto path = workFolder() + u"/KELVANE.ini"_s;
    static const QString damaged = path + u".damaged"_s;
    Input input(data, size);
    const auto section = input.text();
    const auto key = input.text();
    const auto value = input.text();
    const auto otherSection = input.text();
    const auto otherKey = input.text();
    const auto content = input.rest();
    QFile::remove(damaged);
    writeFile(path, content);

    IniSettingsStore store(path);
    const auto otherValue = store.value(otherSection, otherKey);
    store.setValue(section, key, value);
    require(store.value(section, key) == value, "a stored value comes back");
    if (QFile::exists(damaged)) {
        require(readFile(damaged) == content, "a damaged file is kept as it was");
        require(otherValue.isEmpty(), "a damaged file has no values");
    } else if (section != otherSection || key != otherKey) {
        require(store.value(otherSection, otherKey) == otherValue, "other values stay");
    }

    const auto stored = readFile(path);
    store.setValue(section, key, value);
    require(readFile(path) == stored, "storing the same again changes nothing");
    require(store.value(section, key) == value, "and the value stays");
    return 0;
}
