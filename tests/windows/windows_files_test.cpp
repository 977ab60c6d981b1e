// Files where others may have them open and links are the system's own.
#include "base/AtomicFile.h"
#include "base/Paths.h"
#include "base/SystemLock.h"
#include "base/TemporaryFile.h"
#include "base/windows/SystemFile.h"
#include "tests/support/TemporaryFolder.h"

#include "TestSystem.h"
#include <gtest/gtest.h>

#include <random>
#include <thread>

namespace velmora {
namespace {

namespace fs = std::filesystem;

struct WindowsFilesTest : testing::Test {
    TemporaryFolder folder;
    fs::path path = folder / "a.csv";
    std::ptrdiff_t Files() { return std::distance(fs::directory_iterator(folder.Path()), {}); }
};

TEST_F(WindowsFilesTest, HardLinksSurviveAndProtectedFilesStay) {
    ReplaceFile(path, "old");
    ASSERT_NE(::CreateHardLinkW((folder / "twin.csv").c_str(), path.c_str(), nullptr), 0);
    ReplaceFile(path, "a longer one");
    EXPECT_EQ(ReadFile(folder / "twin.csv"), "a longer one");
    ReplaceFile(path, "new");
    EXPECT_EQ(ReadFile(folder / "twin.csv"), "new");
    ::SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_THROW(ReplaceFile(path, "newer"), FileAccessError);
    ::SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(Files(), 2) << "a temporary file stayed behind";
}

/// As by a scanner, for a moment; or by another program, which does not let go.
TEST_F(WindowsFilesTest, AFileThatIsOpenElsewhereIsTriedAgain) {
    ReplaceFile(path, "old");
    std::thread scanner([held = OpenFile(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE)] {
        ::Sleep(100);
        ::CloseHandle(held);
    });
    ReplaceFile(path, "new");
    scanner.join();
    EXPECT_EQ(ReadFile(path), "new");
    const SystemFile held(OpenFile(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE));
    EXPECT_THROW(ReplaceFile(path, "newer"), FileAccessError);
    EXPECT_EQ(ReadFile(path), "new");
    EXPECT_EQ(Files(), 1);
}

TEST_F(WindowsFilesTest, WhatIsLeftGoesAndWhatIsInUseStays) {
    PutTemporaryFilesInto(folder.Path());
    for (const char* left : {".velmora-0-1-1.tmp", "velmora-1-1.pdf"})
        SystemFile(MakeFile(folder / left));
    EXPECT_EQ(Files(), 2);
    {
        const AtomicFile running(folder / "b.csv");
        const TemporaryFile other(".pdf");
        EXPECT_EQ(Files(), 2) << "what was left is removed";
        const AtomicFile beside(folder / "b.csv");
        const TemporaryFile another(".pdf");
        EXPECT_EQ(Files(), 4) << "what is in use stays";
    }
    EXPECT_EQ(Files(), 0);
    PutTemporaryFilesInto({});
}

constexpr std::size_t kSaved = std::size_t{1} << 20;

/// Started by the test below, which ends it.
TEST(SavingChild, DISABLED_SavesForEver) {
    const fs::path path = ::_wgetenv(L"VELMORA_SAVES");
    for (char text = 'a';; text = text == 'a' ? 'b' : 'a')
        ReplaceFile(path, std::string(kSaved, text));
}

PROCESS_INFORMATION StartSaving(const fs::path& path) {
    ::_wputenv_s(L"VELMORA_SAVES", path.c_str());
    std::wstring command(MAX_PATH, 0);
    command.resize(::GetModuleFileNameW(nullptr, command.data(), MAX_PATH));
    command = L"\"" + command + L"\" --gtest_also_run_disabled_tests --gtest_filter=SavingChild.*";
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    EXPECT_NE(::CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process),
              0);
    return process;
}

/// VELMORA_KILLS says how often, five times by default.
TEST_F(WindowsFilesTest, AKilledSaveLeavesTheOldFileOrTheNewOneWhole) {
    const wchar_t* wanted = ::_wgetenv(L"VELMORA_KILLS");
    std::mt19937 random(std::random_device{}());
    for (int kills = wanted ? std::stoi(wanted) : 5; kills > 0; --kills) {
        ReplaceFile(path, "first");
        const PROCESS_INFORMATION process = StartSaving(path);
        while (IdentityOf(path).size != kSaved && ::WaitForSingleObject(process.hProcess, 1) == WAIT_TIMEOUT) {}
        ::Sleep(random() % 50);
        ::TerminateProcess(process.hProcess, 1);
        ::WaitForSingleObject(process.hProcess, INFINITE);
        ::CloseHandle(process.hProcess);
        ::CloseHandle(process.hThread);
        const std::string found = ReadFile(path);
        EXPECT_TRUE(found.size() == kSaved && found == std::string(kSaved, found.front())) << found.size();
    }
    ReplaceFile(path, "last");
    EXPECT_EQ(Files(), 1) << "what a killed save left stays for ever";
}

TEST_F(WindowsFilesTest, LocksAreHeldByOneAtATime) {
    auto first = SystemLock::TryFolder(folder.Path());
    ASSERT_TRUE(first);
    EXPECT_FALSE(SystemLock::TryFolder(folder.Path() / "."));
    first.reset();
    EXPECT_TRUE(SystemLock::TryFolder(folder.Path()));
    EXPECT_THROW(SystemLock::TryFolder(folder / "none"), FileAccessError);
    std::optional<SystemLock> file(SystemLock::MakeFile(path));
    EXPECT_TRUE(SystemLock::IsHeld(path));
    EXPECT_THROW(SystemLock::MakeFile(path), FileAccessError);
    file.reset();
    EXPECT_FALSE(SystemLock::IsHeld(path) || SystemLock::IsHeld(folder / "none"));
}

TEST_F(WindowsFilesTest, DevicesAreWrittenStraightAway) {
    ReplaceFile("NUL", "x");
    EXPECT_EQ(PathText(PathOf("t\xC3\xAB\xE2\x82\xAC")), "t\xC3\xAB\xE2\x82\xAC");
    EXPECT_EQ(Narrow(L"a\xD800"), "a\xEF\xBF\xBD") << "half a pair is a name that a disk may have";
}

} // namespace
} // namespace velmora
