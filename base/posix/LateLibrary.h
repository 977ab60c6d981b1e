// A system's library that is loaded when it is first needed: dozens of others come with some, and work that needs none
// of them does not wait for that.
#pragma once

#include <string>

namespace velmora {

class LateLibrary {
public:
    /// Loads it for as long as the program runs. `name` is the one that programs are linked to, "libcups.so.2".
    explicit LateLibrary(const char* name);

    bool IsThere() const { return handle_ != nullptr; }
    /// Raises Error where the library or the function is missing.
    void* Function(const char* name) const;

private:
    std::string name_;
    void* handle_;
};

/// The function of that name, with the type that its header declares.
#define VELMORA_LATE(library, function) (reinterpret_cast<decltype(&(function))>((library).Function(#function)))

} // namespace velmora
