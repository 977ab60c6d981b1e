#include "app/CommandLine.h"

#include "base/Paths.h"
#include "base/Text.h"

#include <algorithm>
#include <charconv>
#include <system_error>

namespace velmora {
namespace {

namespace fs = std::filesystem;
using Kind = CommandLine::Kind;

/// "%20" is a blank; a percent sign without two such digits stands for itself.
std::string WithoutPercents(std::string_view address) {
    constexpr std::size_t kCoded = 3;
    constexpr int kHexadecimal = 16;
    std::string text;
    for (std::size_t i = 0; i < address.size(); ++i) {
        unsigned char byte = 0;
        const std::string_view digits = address.substr(std::min(i + 1, address.size()), kCoded - 1);
        const auto end = std::from_chars(digits.data(), digits.data() + digits.size(), byte, kHexadecimal).ptr;
        const bool coded = address[i] == '%' && digits.size() == kCoded - 1 && end == digits.data() + digits.size();
        text += coded ? static_cast<char>(byte) : address[i];
        i += coded ? kCoded - 1 : 0;
    }
    return text;
}

/// As it is where the working folder is gone, and nothing can be found in it.
fs::path Absolute(const fs::path& path) {
    std::error_code error;
    const fs::path absolute = fs::absolute(path, error);
    return error ? path : absolute;
}

/// Of what stands behind "file://"; the slash before a drive is none of the path's.
fs::path PathOfAddress(std::string_view address) {
    const std::string text = WithoutPercents(address);
    fs::path fromDrive = PathOf(std::string_view(text).substr(1));
    return fromDrive.has_root_name() ? fromDrive.make_preferred() : Absolute(PathOf(text));
}

fs::path PathOfArgument(const std::string& argument) {
    for (const std::string_view prefix : {"file://localhost/", "file:///"})
        if (EqualsNoCase(std::string_view(argument).substr(0, prefix.size()), prefix))
            return PathOfAddress(std::string_view(argument).substr(prefix.size() - 1));
    return Absolute(PathOf(argument));
}

std::string Joined(const std::vector<std::string>& words) {
    std::string line;
    for (const std::string& word : words)
        line += (line.empty() ? "" : " ") + word;
    return line;
}

std::vector<fs::path> FilesOf(const std::vector<std::string>& names) {
    std::vector<fs::path> files;
    std::transform(names.begin(), names.end(), std::back_inserter(files), PathOfArgument);
    const auto exists = [](const fs::path& file) {
        std::error_code error;
        return fs::exists(file, error);
    };
    if (names.size() > 1 && std::none_of(files.begin(), files.end(), exists))
        return {PathOfArgument(Joined(names))};
    return files;
}

} // namespace

CommandLine ReadCommandLine(const std::vector<std::string>& arguments) {
    if (EqualsNoCase(Joined(arguments), "SETTINGS"))
        return {Kind::SettingsEditor};
    std::vector<std::string> names;
    bool optionsEnded = false;
    for (const std::string& argument : arguments) {
        if (argument.empty()) // a script's empty variable
            continue;
        if (optionsEnded || !argument.starts_with('-'))
            names.push_back(argument);
        else if (argument == "--")
            optionsEnded = true;
        else if (argument == "--version" || argument == "--help" || argument == "-h")
            return {argument == "--version" ? Kind::Version : Kind::Help};
        else
            return {Kind::UnknownOption, {}, argument};
    }
    return {Kind::Documents, FilesOf(names)};
}

} // namespace velmora
