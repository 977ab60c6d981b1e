// The programs of the desktop, found in the folders of PATH.
#pragma once

#include "platform/Machine.h"

#include <string>
#include <vector>

namespace velmora {

class LinuxDesktop : public Desktop {
public:
    explicit LinuxDesktop(Environment environment) : environment_(std::move(environment)) {}

    bool OpenFile(const std::filesystem::path& file) override;
    bool StartProgram(const std::filesystem::path& program) override;
    bool StartAnother(const std::filesystem::path& file, std::size_t beside) override;
    bool StartSystemInformation() override;

private:
    /// Starts the first of the commands (a program's name and its arguments) that is installed.
    bool StartFirst(const std::vector<std::vector<std::string>>& commands) const;

    Environment environment_;
};

} // namespace velmora
