// Who may include whom. A sibling never includes a sibling, and Qt stays outside the core.
#include "base/AtomicFile.h"
#include "base/Text.h"
#include "document/TabFile.h"

#include <gtest/gtest.h>

#include <cctype>
#include <map>
#include <set>

namespace velmora {
namespace {

namespace fs = std::filesystem;

const std::map<std::string, std::set<std::string>> kMayInclude = {
    {"base", {}},
    {"platform", {"base"}},
    {"platform/linux", {"base", "platform"}},
    {"platform/qt", {"base", "platform"}},
    {"app/settings", {"base", "platform"}},
    {"document", {"base", "platform", "app/settings"}},
    {"wizard", {"base", "platform", "app/settings", "document"}},
    {"print", {"base", "platform", "app/settings", "document"}},
    {"editor", {"base", "platform", "app/settings", "document"}},
    {"app", {"base", "platform", "app/settings", "document", "wizard", "print", "editor"}},
    {"bench", {"base", "platform", "platform/linux", "app/settings", "document", "wizard", "print"}},
    {"batch", {"base", "platform/linux", "platform", "app/settings", "document", "wizard", "print", "editor", "app"}},
};

/// The room that a file or an include path lies in; empty for what is none of ours.
std::string Room(const std::string& path) {
    for (const char* inner : {"app/settings", "platform/linux", "platform/qt"})
        if (path.starts_with(std::string(inner) + "/"))
            return inner;
    const std::string room = path.substr(0, path.find('/'));
    return kMayInclude.contains(room) ? room : "";
}

bool MayUseQt(const std::string& path) {
    return path.find("/ui/") != std::string::npos || path.starts_with("platform/qt/") || path.starts_with("batch/") ||
           path.ends_with("/main.cpp");
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
        return MayUseQt(path) ? "" : "a Qt header outside a ui folder";
    const std::string from = Room(path);
    const std::string to = Room(included);
    if (path == "app/main.cpp") // puts the machine's classes and the windows together
        return "";
    if (to.empty() || to == from || kMayInclude.at(from).contains(to)) {
        const bool uiFromCore = included.find("/ui/") != std::string::npos && !MayUseQt(path);
        return uiFromCore ? "a form included by the core" : "";
    }
    return from + " may not include " + to;
}

TEST(Includes, PointInTheRightDirection) {
    const fs::path root(VELMORA_SOURCE_DIR);
    int files = 0;
    for (const auto& [room, allowed] : kMayInclude) {
        if (!fs::exists(root / room))
            continue;
        for (const auto& entry : fs::recursive_directory_iterator(root / room)) {
            const std::string path = fs::relative(entry.path(), root).generic_string();
            if ((!path.ends_with(".cpp") && !path.ends_with(".h")) || Room(path) != room)
                continue;
            ++files;
            const std::string text = ReadFile(entry.path());
            LineReader lines(text);
            for (std::string_view line; lines.Next(line);) {
                const std::string included = Included(line);
                EXPECT_EQ(included.empty() ? "" : Fault(path, included), "") << path << " includes " << included;
            }
        }
    }
    EXPECT_GT(files, 40);
}

TEST(Includes, TheRulesCatchWhatTheyShould) {
    EXPECT_NE(Fault("print/rptVelmor.cpp", "editor/GridLayout.h"), "");
    EXPECT_NE(Fault("document/mdlMain.h", "QString"), "");
    EXPECT_NE(Fault("base/Text.h", "platform/Registry.h"), "");
    EXPECT_NE(Fault("document/mdlMain.h", "editor/ui/frmGrid2a4.h"), "");
    EXPECT_NE(Fault("document/mdlMain.h", "platform/linux/RegistryFile.h"), "");
    EXPECT_EQ(Fault("editor/ui/frmGrid2a4.h", "QWidget"), "");
    EXPECT_EQ(Fault("app/main.cpp", "app/ui/mdiVelmora.h"), "");
}

} // namespace
} // namespace velmora
