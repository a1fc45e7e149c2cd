#include "tests/platform/database/counting_crypt.h"

#include <crypt.h>
#include <dlfcn.h>

namespace {

QByteArrayList settings;

} // namespace

namespace kelvane::testing {

QByteArrayList takeComputedSettings() {
    return std::exchange(settings, {});
}

} // namespace kelvane::testing

// The program's own definition stands before that of the library.
extern "C" char* crypt_r(const char* phrase, const char* setting, crypt_data* data) {
    static auto* const real = reinterpret_cast<decltype(&crypt_r)>(dlsym(RTLD_NEXT, "crypt_r"));
    settings << QByteArray(setting);
    return real(phrase, setting, data);
}
