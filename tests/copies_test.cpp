// Copies of both programs, as real processes, that write one INI file at the same time.
#include "base/AtomicFile.h"
#include "base/Text.h"
#include "settings/IniFile.h"
#include "tests/support/TemporaryFolder.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace velmora {
namespace {

namespace fs = std::filesystem;

constexpr int kWriters = 8;
constexpr int kKeysEach = 10;
constexpr int kWindows = 2;
constexpr std::string_view kMark = "[First]\r\nmark=1\r\n";

struct CopiesTest : testing::Test {
    TemporaryFolder folder;
    fs::path ini = folder / "Velmora.ini";

    CopiesTest() { ReplaceFile(ini, kMark); }

    pid_t Start(const std::string& command) {
        const pid_t child = ::fork();
        if (child == 0)
            ::_exit(::execl("/bin/sh", "sh", "-c", command.c_str(), nullptr));
        return child;
    }
    pid_t StartWriter(int number) {
        return Start("set -e; for i in $(seq " + std::to_string(kKeysEach) + "); do '" + VELMORA_BATCH +
                     "' settings --ini '" + ini.string() + "' set W" + std::to_string(number) + " k$i v; done");
    }
    pid_t StartWindow() {
        return Start("VELMORA_HOME='" + folder.Path().string() + "' QT_QPA_PLATFORM=offscreen exec '" + VELMORA +
                     "' 2>/dev/null");
    }
    std::string Value(const std::string& section, const std::string& key) {
        return IniFile(ini).Text().ReadString(section, key, "(none)");
    }
};

/// Of a file that is whole; -1 for any other.
std::ptrdiff_t CountKeys(const std::string& text) {
    std::ptrdiff_t keys = 0;
    for (const std::string_view line : Split(text, '\n')) {
        keys += line.find('=') != std::string_view::npos ? 1 : 0;
        if (!line.empty() &&
            (!line.ends_with('\r') || (line.find_first_of("=]") == std::string_view::npos && line != "\r")))
            return -1;
    }
    return text.starts_with(kMark) && text.ends_with("\r\n") ? keys : -1;
}

TEST_F(CopiesTest, LoseNoKeyAndNeverShowHalfAFile) {
    std::vector<pid_t> windows, writers;
    for (int i = 0; i < kWindows; ++i)
        windows.push_back(StartWindow());
    for (int i = 0; i < kWriters; ++i)
        writers.push_back(StartWriter(i));
    // The programs only add keys, so a text with fewer than the one before has lost some.
    std::ptrdiff_t most = 0;
    bool shrank = false;
    const auto look = [&] {
        const std::ptrdiff_t keys = CountKeys(ReadFile(ini));
        shrank = shrank || keys < most;
        most = std::max(most, keys);
        std::this_thread::sleep_for(std::chrono::milliseconds(1)); // for the others
    };
    for (const pid_t writer : writers) {
        int status = -1;
        while (::waitpid(writer, &status, WNOHANG) == 0)
            look();
        EXPECT_EQ(status, 0);
    }
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (Value("Settings", "OptType") == "(none)" && std::chrono::steady_clock::now() < deadline)
        look();
    const int held = ::open(folder.Path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    ASSERT_EQ(::flock(held, LOCK_EX), 0); // so that none is killed while it writes
    for (const pid_t window : windows) {
        ::kill(window, SIGKILL);
        ::waitpid(window, nullptr, 0);
    }
    ::close(held);
    look();
    EXPECT_FALSE(shrank);
    EXPECT_EQ(Value("Settings", "OptType"), "0") << "no window wrote its settings";
    for (int writer = 0; writer < kWriters; ++writer)
        for (int key = 1; key <= kKeysEach; ++key)
            EXPECT_EQ(Value("W" + std::to_string(writer), "k" + std::to_string(key)), "v") << writer << " " << key;
    for (const auto& file : fs::directory_iterator(folder.Path()))
        EXPECT_NE(file.path().extension(), ".tmp") << file.path();
}

} // namespace
} // namespace velmora
