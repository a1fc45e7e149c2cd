// What link libraries for tests are made of, which are built as the real ones are called. They record what
// they were called with, and fill what they are given with numbers that count from 1 within a call. Controls:
// `answer` (the status of every call from now on), `behave` (how texts are written), `recordedCalls` (the
// calls so far, each read once). A library has this header once; it uses nothing of the modules.

#pragma once

#include <cstdint>
#include <cstring>
#include <sstream>
#include <string>

#ifdef _WIN32
#define OPERATION extern "C" __declspec(dllexport)
#else
#define OPERATION extern "C" __attribute__((visibility("default")))
#endif

namespace {

enum Manners { proper, wholeLengthAndZero, noZero, farTooLong, silent };

struct Memory {
    std::string calls;
    std::string read;
    int16_t status = 0;
    int manners = proper;
    int next = 0;
};
Memory memory;

template <class... Values>
int16_t recordCall(const char* operation, Values... values) {
    std::ostringstream line;
    line << operation;
    ((line << ' ' << values), ...);
    memory.calls += line.str() + '\n';
    memory.next = 0;
    return memory.status;
}

template <class... Numbers>
void fill(Numbers*... numbers) {
    if (memory.manners != silent)
        ((*numbers = static_cast<Numbers>(++memory.next)), ...);
}

void write(char* buffer, std::size_t length, const char* text) {
    switch (memory.manners) {
    case proper:
        std::strcpy(buffer, text);
        break;
    case wholeLengthAndZero:
        std::memset(buffer, 'w', length);
        buffer[length] = '\0';
        break;
    case noZero:
        std::memset(buffer, 'n', length);
        break;
    case farTooLong:
        std::memset(buffer, 'f', length + 200);
        break;
    default:
        break;
    }
}

} // namespace

OPERATION const char* recordedCalls() {
    memory.read.swap(memory.calls);
    memory.calls.clear();
    return memory.read.c_str();
}

OPERATION void answer(int16_t status) {
    memory.status = status;
}

OPERATION void behave(int manners) {
    memory.manners = manners;
}
