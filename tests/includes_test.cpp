// Who may include whom: arrows point down, units form no circle, and Qt stays outside the core.
#include "base/AtomicFile.h"
#include "base/Text.h"
#include "document/TabFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <set>

namespace velmora {
namespace {

namespace fs = std::filesystem;

using Names = std::set<std::string>;

/// Each room with those right below it; what a room may include, the rooms below those may include too.
const std::map<std::string, Names> kRightBelow = {
    {"base", {}},
    {"platform", {"base"}},
    {"platform/linux", {"platform"}},
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
    {"bench", {"app"}},
};

/// The room that a file or an include path lies in; empty for what is none of ours.
std::string Room(const std::string& path) {
    for (const char* inner : {"platform/linux", "platform/qt"})
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

/// What a person sees: the linker gives it Qt.
bool IsSeen(const std::string& path) {
    return path.find("/ui/") != std::string::npos || path.starts_with("platform/qt/") || path.starts_with("widgets/") ||
           path == "app/main.cpp";
}

/// QString, QtCore/qstring.h
bool IsQtHeader(const std::string& included) {
    return included.size() > 1 && included[0] == 'Q' &&
           (std::isupper(static_cast<unsigned char>(included[1])) || included[1] == 't');
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

/// Why `path` may not include `included`, or empty.
std::string Fault(const std::string& path, const std::string& included) {
    if (IsQtHeader(included))
        return IsSeen(path) ? "" : "a Qt header outside what a person sees";
    const std::string to = Room(included);
    if (to.empty() || path == "app/main.cpp") // puts the machine's classes and the windows together
        return "";
    if (IsSeen(included) && !IsSeen(path))
        return "a form included by the core";
    return MayInclude(Room(path), to) ? "" : Room(path) + " may not include " + to;
}

/// Sources and headers with what each includes, by paths from the project's folder.
using Includes = std::map<std::string, Names>;

Names IncludedBy(const fs::path& file) {
    const std::string text = ReadFile(file);
    LineReader lines(text);
    Names included;
    for (std::string_view line; lines.Next(line);)
        included.insert(Included(line));
    included.erase("");
    return included;
}

Includes ReadProject(const fs::path& root) {
    Includes files;
    for (const auto& [room, below] : kRightBelow)
        for (const auto& entry : fs::recursive_directory_iterator(root / room)) {
            const std::string path = fs::relative(entry.path(), root).generic_string();
            if (path.ends_with(".cpp") || path.ends_with(".h"))
                files[path] = IncludedBy(entry.path());
        }
    return files;
}

/// A source and its header are one unit.
std::string UnitOf(const std::string& path) {
    return path.substr(0, path.rfind('.'));
}

/// A unit that includes itself by way of others, with those; empty: there is none.
class Circle {
public:
    explicit Circle(const Includes& files) {
        for (const auto& [path, included] : files)
            for (const std::string& other : included)
                if (UnitOf(path) != UnitOf(other) && files.contains(other))
                    units_[UnitOf(path)].insert(UnitOf(other));
    }

    std::string Find() {
        for (const auto& [unit, others] : units_)
            if (Visit(unit))
                return found_;
        return "";
    }

private:
    bool Visit(const std::string& unit) {
        if (done_.contains(unit))
            return false;
        if (std::find(way_.begin(), way_.end(), unit) != way_.end()) {
            for (auto from = std::find(way_.begin(), way_.end(), unit); from != way_.end(); ++from)
                found_ += *from + " -> ";
            found_ += unit;
            return true;
        }
        way_.push_back(unit);
        for (const std::string& other : units_[unit])
            if (Visit(other))
                return true;
        way_.pop_back();
        done_.insert(unit);
        return false;
    }

    std::map<std::string, Names> units_;
    std::vector<std::string> way_;
    Names done_;
    std::string found_;
};

TEST(Includes, PointDown) {
    const Includes files = ReadProject(VELMORA_SOURCE_DIR);
    for (const auto& [path, included] : files)
        for (const std::string& other : included)
            EXPECT_EQ(Fault(path, other), "") << path << " includes " << other;
    EXPECT_GT(files.size(), 300U);
    EXPECT_EQ(Circle(files).Find(), "");
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
