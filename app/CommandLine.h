// What the program was started for, out of its arguments.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace velmora {

struct CommandLine {
    enum class Kind { Documents, SettingsEditor, Help, Version, UnknownOption };

    Kind kind = Kind::Documents;
    std::vector<std::filesystem::path> files = {}; ///< of Documents; absolute where that is known
    std::string unknown = {};                      ///< the option of UnknownOption
};

/// `arguments` without the program's own name, as the system gave them: a file's name need not be UTF-8. "SETTINGS", in
/// any letter case and with nothing beside it, is for the settings editor. What begins with "-" is an option, but
/// behind "--". A "file:" address of this machine is a path. Several words of which none is a file are one name with
/// blanks in it.
CommandLine ReadCommandLine(const std::vector<std::string>& arguments);

} // namespace velmora
