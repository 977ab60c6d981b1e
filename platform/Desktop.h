// The desktop around the program: its viewers and its tools. By itself one that has none.
#pragma once

#include <filesystem>

namespace velmora {

/// Tells a program that StartAnother started where its window stands.
inline constexpr const char* kBesideVariable = "VELMORA_BESIDE";

class Desktop {
public:
    virtual ~Desktop() = default;
    // Each starts a program without waiting for it, and never through a shell. False when there is none, or it does
    // not start.
    /// The program that the desktop has for files of this kind.
    virtual bool OpenFile(const std::filesystem::path& /*file*/) { return false; }
    virtual bool StartProgram(const std::filesystem::path& /*program*/) { return false; }
    /// This program once more, in a window of its own with that file, the `beside`-th beside this one.
    virtual bool StartAnother(const std::filesystem::path& /*file*/, std::size_t /*beside*/) { return false; }
    /// The desktop's own window about the machine.
    virtual bool StartSystemInformation() { return false; }
};

} // namespace velmora
