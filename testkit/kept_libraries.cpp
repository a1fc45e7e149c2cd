// Leaks are looked for when a program ends, and are distinguished by the library that they come from: none
// may be gone by then. This takes the place of the system's function in the whole process. The link library
// of a calibrator is the program's own, and tests exchange it: it is unloaded.

#ifdef __linux__

#include <cstring>
#include <dlfcn.h>
#include <link.h>

extern "C" int dlclose(void* library) noexcept {
    static const auto unload = reinterpret_cast<int (*)(void*)>(dlsym(RTLD_NEXT, "dlclose"));
    const link_map* map = nullptr;
    const bool isExchanged =
        dlinfo(library, RTLD_DI_LINKMAP, &map) == 0 && std::strstr(map->l_name, "dpclnk") != nullptr;
    return isExchanged ? unload(library) : 0;
}

#endif
