// Who may include whom: arrows point down, and units form no circle.
#include "base/AtomicFile.h"
#include "base/Text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

namespace velmora {
namespace {

namespace fs = std::filesystem;

using Names = std::set<std::string>;

/// Each room with those right below it; what a room may include, the rooms below those may include too.
const std::map<std::string, Names> kRightBelow = {{"base", {}},
                                                  {"platform", {"base"}},
                                                  {"platform/linux", {"platform"}},
                                                  {"platform/windows", {"platform"}},
                                                  {"platform/qt", {"platform"}},
                                                  {"workbook", {"base"}},
                                                  {"settings", {"platform"}},
                                                  {"document", {"settings", "workbook"}},
                                                  {"workspace", {"document"}},
                                                  {"report", {"document"}},
                                                  {"widgets", {"workspace"}},
                                                  {"wizard", {"workspace", "widgets", "report"}},
                                                  {"editor", {"workspace", "widgets", "report"}},
                                                  {"print", {"workspace", "widgets", "report"}},
                                                  {"setup", {"print"}},
                                                  {"app", {"wizard", "editor", "setup"}},
                                                  {"batch", {"app"}},
                                                  {"bench", {"app"}}};

/// The room that a file or an include path lies in; empty for what is none of ours.
std::string Room(const std::string& path) {
    for (const char* inner : {"platform/linux", "platform/windows", "platform/qt"})
        if (path.starts_with(std::string(inner) + "/"))
            return inner;
    const std::string room = path.substr(0, path.find('/'));
    return kRightBelow.contains(room) ? room : "";
}

bool MayInclude(const std::string& from, const std::string& to) {
    const Names& below = kRightBelow.at(from);
    return from == to ||
           std::any_of(below.begin(), below.end(), [&](const std::string& next) { return MayInclude(next, to); });
}

/// What a line includes, or empty.
std::string Included(std::string_view line) {
    line = Trim(line);
    if (!line.starts_with("#") || line.find("include") == std::string_view::npos)
        return "";
    const std::size_t open = line.find_first_of("<\"");
    const std::size_t close = line.find_last_of(">\"");
    return open == std::string_view::npos || close <= open ? "" : std::string(line.substr(open + 1, close - open - 1));
}

/// Why `path` may not include `included`, or empty. Headers of Qt need no rule: the core is compiled without it.
std::string Fault(const std::string& path, const std::string& included) {
    const auto isForm = [](const std::string& name) {
        return name.find("/ui/") != std::string::npos || name.starts_with("widgets/");
    };
    const std::string to = Room(included);
    if (to.empty() || path == "app/main.cpp") // puts the machine's classes and the windows together
        return "";
    if (isForm(included) && !isForm(path))
        return "a form included by the core";
    return MayInclude(Room(path), to) ? "" : Room(path) + " may not include " + to;
}

/// Sources and headers by paths from the project's folder, or units, a source and its header being one; and what each
/// includes.
using Includes = std::map<std::string, Names>;

Includes ReadProject(const fs::path& root) {
    Includes files;
    for (const auto& [room, below] : kRightBelow)
        for (const auto& entry : fs::recursive_directory_iterator(root / room)) {
            const std::string path = fs::relative(entry.path(), root).generic_string();
            if (!path.ends_with(".cpp") && !path.ends_with(".h"))
                continue;
            const std::string text = ReadFile(entry.path());
            for (const std::string_view line : Split(text, '\n'))
                files[path].insert(Included(line));
        }
    return files;
}

/// The units that include each other in circles, or lie between two of those.
Names Circles(const Includes& files) {
    const auto unitOf = [](const std::string& path) { return path.substr(0, path.rfind('.')); };
    Includes units;
    for (const auto& [path, included] : files)
        for (const std::string& other : included)
            if (files.contains(other) && unitOf(path) != unitOf(other))
                units[unitOf(path)].insert(unitOf(other));
    const auto includesNone = [&units](const auto& unit) {
        return std::none_of(unit.second.begin(), unit.second.end(), [&](const auto& u) { return units.contains(u); });
    };
    const auto isIncludedByNone = [&units](const auto& unit) {
        return std::none_of(units.begin(), units.end(), [&](const auto& u) { return u.second.contains(unit.first); });
    };
    while (std::erase_if(units, includesNone) + std::erase_if(units, isIncludedByNone) > 0) {}
    Names names;
    for (const auto& unit : units)
        names.insert(unit.first);
    return names;
}

TEST(Includes, PointDownAndInNoCircle) {
    const Includes files = ReadProject(VELMORA_SOURCE_DIR);
    for (const auto& [path, included] : files)
        for (const std::string& other : included)
            EXPECT_EQ(Fault(path, other), "") << path << " includes " << other;
    EXPECT_GT(files.size(), 300U);
    EXPECT_EQ(Circles(files), Names());
}

/// A disk that ignores letter case keeps only one of two such files.
TEST(Includes, NoTwoPathsDifferInCaseAlone) {
    std::map<std::string, std::string> byFolded;
    const fs::path root(VELMORA_SOURCE_DIR);
    for (auto entry = fs::recursive_directory_iterator(root); entry != fs::recursive_directory_iterator(); ++entry) {
        const std::string path = fs::relative(entry->path(), root).generic_string();
        if (path == "build" || path == ".git") {
            entry.disable_recursion_pending();
            continue;
        }
        const auto [other, isNew] = byFolded.emplace(FoldCase(path), path);
        EXPECT_TRUE(isNew) << path << " and " << other->second;
    }
}

} // namespace
} // namespace velmora
