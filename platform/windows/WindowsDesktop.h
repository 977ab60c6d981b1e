// The programs that the shell has for files.
#pragma once

#include "platform/Desktop.h"

namespace velmora {

class WindowsDesktop : public Desktop {
public:
    bool OpenFile(const std::filesystem::path& file) override;
    bool StartProgram(const std::filesystem::path& program) override;
    bool StartAnother(const std::filesystem::path& file, std::size_t beside) override;
    bool StartSystemInformation() override;
};

/// The program that runs; empty where the system does not tell.
std::filesystem::path RunningProgram();

} // namespace velmora
