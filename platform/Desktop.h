// The desktop around the program: its viewers and its tools.
#pragma once

#include <filesystem>

namespace velmora {

class Desktop {
public:
    virtual ~Desktop() = default;
    // Each starts a program without waiting for it, and never through a shell. False when there is none, or it does
    // not start.
    /// The program that the desktop has for files of this kind.
    virtual bool OpenFile(const std::filesystem::path& file) = 0;
    virtual bool StartProgram(const std::filesystem::path& program) = 0;
    /// The desktop's own window about the machine.
    virtual bool StartSystemInformation() = 0;
};

} // namespace velmora
