#include "base/LateLibrary.h"

#include "base/Error.h"

#include <dlfcn.h>

namespace velmora {

LateLibrary::LateLibrary(const char* name) : name_(name), handle_(::dlopen(name, RTLD_LAZY | RTLD_NODELETE)) {}

void* LateLibrary::Function(const char* name) const {
    void* function = handle_ ? ::dlsym(handle_, name) : nullptr;
    if (!function)
        throw Error("The library \"" + name_ + "\" is missing, or too old.");
    return function;
}

} // namespace velmora
