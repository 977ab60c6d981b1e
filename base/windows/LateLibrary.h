// In place of a library that is loaded when it is first needed: here the program holds them all.
#pragma once

namespace velmora {

class LateLibrary {
public:
    explicit LateLibrary(const char* /*name*/) {}
};

/// The function itself.
#define VELMORA_LATE(library, function) (static_cast<void>(library), &(function))

} // namespace velmora
