// The memory files of the simulated calibrators: what is kept reads back, and a file that is none is refused
// and stays as it is.

#include "fuzz/input.h"
#include "simulators/fluke702/memory.h"
#include "simulators/fluke74x/memory.h"
#include "simulators/torquestar/memory_file.h"

#include <optional>

using namespace Qt::StringLiterals;
using namespace kelvane;
using namespace kelvane::fuzz;
using simulators::Failure;

namespace {

template <class File>
void checkFile(const QByteArray& content, bool isGood) {
    static const auto path = workFolder() + u"/memory.json"_s;
    writeFile(path, content);
    bool wasUsed = false;
    try {
        File(path).use([&](auto&) {
            wasUsed = true;
            return false;
        });
    } catch (const Failure& failure) {
        require(failure.text().contains(path), "a refusal names the file");
    }
    require(wasUsed == isGood, "a file is used when it is a memory");
    require(readFile(path) == content, "a file that was not written stays");
}

template <class File, class Memory>
void checkMemory(const QByteArray& content, Memory (*memoryFrom)(const QByteArray&)) {
    std::optional<Memory> memory;
    try {
        memory = memoryFrom(content);
    } catch (const Failure& failure) {
        require(!failure.text().isEmpty(), "a refusal has a reason");
    }
    checkFile<File>(content, memory.has_value());
    if (!memory)
        return;
    const auto text = textOf(*memory);
    try {
        require(textOf(memoryFrom(text)) == text, "a memory reads back as it was kept");
    } catch (const Failure&) {
        fail("what was kept can be read");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const auto kind = input.byte() % 3;
    const auto content = input.rest();
    if (kind == 0)
        checkMemory<simulators::MemoryFile>(content, simulators::memoryFrom);
    else if (kind == 1)
        checkMemory<simulators::fluke702::MemoryFile>(content, simulators::fluke702::memoryFrom);
    else
        checkMemory<simulators::fluke74x::MemoryFile>(content, simulators::fluke74x::memoryFrom);
    return 0;
}
