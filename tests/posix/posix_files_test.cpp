// Files: replaced, kept as private as they were, and no litter. That nothing is lost on the way: faults_test.cpp.
// Owners, modes and forks are POSIX's own.
#include "base/AtomicFile.h"
#include "base/Interruption.h"
#include "base/ScratchNames.h"
#include "base/TemporaryFile.h"
#include "base/posix/SystemFile.h"
#include "tests/support/TemporaryFolder.h"
#include "workbook/LibraryWorkbooks.h"

#include <gtest/gtest.h>

#include <csignal>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace velmora {
namespace {

namespace fs = std::filesystem;

struct AtomicFileTest : testing::Test {
    TemporaryFolder folder;
    fs::path path = folder / "a.csv";
    std::ptrdiff_t Files() { return std::distance(fs::directory_iterator(folder.Path()), {}); }
};

struct FileStatus : stat {
    explicit FileStatus(const fs::path& path) : stat{} { ::lstat(path.c_str(), this); }
};

TEST_F(AtomicFileTest, LinksAndPermissionsSurvive) {
    ReplaceFile(folder / "real.csv", "old");
    ::chmod((folder / "real.csv").c_str(), 0640);
    fs::create_symlink("real.csv", folder / "link.csv");
    fs::create_hard_link(folder / "real.csv", folder / "twin.csv");
    ReplaceFile(folder / "link.csv", "new");
    EXPECT_TRUE(fs::is_symlink(folder / "link.csv"));
    EXPECT_EQ(ReadFile(folder / "real.csv"), "new");
    EXPECT_EQ(ReadFile(folder / "twin.csv"), "new");
    fs::remove(folder / "twin.csv");
    const bool isRoot = ::geteuid() == 0 && ::chown((folder / "real.csv").c_str(), 12, 34) == 0;
    ReplaceFile(folder / "real.csv", "newer");
    const FileStatus status(folder / "real.csv");
    EXPECT_EQ(status.st_mode & 0777, 0640u);
    EXPECT_TRUE(!isRoot || (status.st_uid == 12 && status.st_gid == 34));
    EXPECT_EQ(Files(), 2) << "a temporary file stayed behind";
}

TEST_F(AtomicFileTest, AWritableFileInAFolderThatIsNotIsOverwrittenInPlace) {
    ReplaceFile(path, "old");
    fs::permissions(path, fs::perms(0666));
    fs::permissions(folder.Path(), fs::perms(0555));
    if (::geteuid() == 0 && ::seteuid(65534) != 0)
        GTEST_SKIP() << "root may write everywhere";
    ReplaceFile(path, "new");
    EXPECT_EQ(ReadFile(path), "new");
    EXPECT_THROW(ReplaceFile(folder / "b.csv", "x"), FileAccessError);
    ASSERT_EQ(::seteuid(::getuid()), 0);
    fs::permissions(path, fs::perms(0444));
    ASSERT_EQ(::getuid() == 0 ? ::seteuid(65534) : 0, 0);
    EXPECT_THROW(ReplaceFile(path, "newer"), FileAccessError);
    ASSERT_EQ(::seteuid(::getuid()), 0);
}

TEST_F(AtomicFileTest, AWorkbookThatTheDiskHasNoRoomForIsNone) {
    rlimit room{};
    ::getrlimit(RLIMIT_FSIZE, &room);
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit none{0, room.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &none);
    const auto noRows = [](std::vector<std::string>&) { return false; };
    EXPECT_THROW(LibraryWorkbooks().Write(WorkbookFormat::Xlsx, "Tabs", noRows, [](std::string_view) {}),
                 WorkbookError);
    ::setrlimit(RLIMIT_FSIZE, &room);
}

TEST_F(AtomicFileTest, NoMorePeopleMayReadThanBefore) {
    const auto mode = [](const fs::path& file) { return FileStatus(file).st_mode & 0777; };
    ReplaceFile(path, "old");
    ::chmod(path.c_str(), 0644);
    AtomicFile file(path);
    file.Write(std::string(1 << 20, 'x'));
    for (const auto& entry : fs::directory_iterator(folder.Path()))
        EXPECT_EQ(mode(entry.path()), entry.path() == path ? 0644U : 0600U);
    file.Commit();
    EXPECT_EQ(mode(path), 0644U);
    for (const fs::path& own : {path, folder / "new"}) {
        ReplaceFile(own, "own", Readers::OwnerAlone);
        EXPECT_EQ(mode(own), 0600U) << own;
    }
    fs::permissions(folder.Path(), fs::perms::all);
    MakePrivateFolder(folder.Path());
    EXPECT_EQ(mode(folder.Path()), 0700U);
}

/// Does "user::rw-,user:12:r--,group::r--,mask::r--,other::---" as the system stores it.
std::string AccessList() {
    constexpr std::uint16_t kNone = 0xFFFF;
    const std::uint16_t entries[][4] = {
        {1, 6, kNone, kNone}, {2, 4, 12, 0}, {4, 4, kNone, kNone}, {16, 4, kNone, kNone}, {32, 0, kNone, kNone}};
    std::string bytes("\2\0\0\0", 4);
    return bytes.append(reinterpret_cast<const char*>(entries), sizeof entries);
}

TEST_F(AtomicFileTest, AttributesAndAccessListsSurvive) {
    ReplaceFile(path, "old");
    const std::pair<const char*, std::string> attributes[] = {{"user.note", "kept"},
                                                              {"system.posix_acl_access", AccessList()}};
    for (const auto& [name, value] : attributes)
        if (::setxattr(path.c_str(), name, value.data(), value.size(), 0) != 0)
            GTEST_SKIP() << "the file system has no " << name;
    ReplaceFile(path, "new");
    for (const auto& [name, value] : attributes) {
        std::string found(100, '\0');
        found.resize(static_cast<std::size_t>(std::max<ssize_t>(::getxattr(path.c_str(), name, found.data(), 100), 0)));
        EXPECT_EQ(found, value) << name;
    }
    // A list of the folder's own is not for a file that had none.
    fs::remove(path);
    ReplaceFile(path, "old");
    ::chmod(path.c_str(), 0640);
    ASSERT_EQ(
        ::setxattr(folder.Path().c_str(), "system.posix_acl_default", AccessList().data(), AccessList().size(), 0), 0);
    ReplaceFile(path, "new");
    EXPECT_LT(::getxattr(path.c_str(), "system.posix_acl_access", nullptr, 0), 0);
}

/// Starts a program that makes files, and ends it by the signal while it has them.
void EndWhileWriting(int signal, const fs::path& folder) {
    int ready[2];
    ASSERT_EQ(::pipe(ready), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        RemoveTemporaryFilesWhenInterrupted();
        AtomicFile file(folder / "a.csv");
        const TemporaryFile other(".pdf");
        [[maybe_unused]] const ssize_t told = ::write(ready[1], "x", 1);
        ::pause();
    }
    char told = 0;
    ASSERT_EQ(::read(ready[0], &told, 1), 1);
    ::kill(child, signal);
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == signal);
    ::close(ready[0]);
    ::close(ready[1]);
}

TEST_F(AtomicFileTest, WhatEndsLeavesNoLitterForLong) {
    const std::string before = std::getenv("TMPDIR") ? std::getenv("TMPDIR") : "";
    ::setenv("TMPDIR", folder.Path().c_str(), 1);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        EndWhileWriting(signal, folder.Path());
        EXPECT_EQ(Files(), 0) << signal;
    }
    EndWhileWriting(SIGKILL, folder.Path());
    EXPECT_EQ(Files(), 2);
    {
        const AtomicFile running(folder / "b.csv");
        const TemporaryFile other(".pdf");
        EXPECT_EQ(Files(), 2) << "what was left is removed";
        const AtomicFile beside(folder / "b.csv");
        EXPECT_EQ(Files(), 3) << "what is in use stays";
    }
    before.empty() ? ::unsetenv("TMPDIR") : ::setenv("TMPDIR", before.c_str(), 1);
}

TEST_F(AtomicFileTest, WhoTidiesUpTakesWhatHasAName) {
    const auto open = [&](int flags) { return ::open((folder / "a").c_str(), O_CREAT | O_CLOEXEC | flags, 0600); };
    const SystemFile file(open(O_RDWR));
    const SystemFile tidying(open(O_RDWR));
    ASSERT_EQ(::flock(tidying.Get(), LOCK_EX), 0);
    EXPECT_FALSE(LockNew(file)) << "another program is about to remove it";
    EXPECT_TRUE(LockNew(SystemFile(open(O_PATH)))) << "as where a file system has no locks";
    EXPECT_TRUE(LockNew(tidying));
    ::unlink((folder / "a").c_str());
    EXPECT_FALSE(LockNew(tidying));

    ReplaceFile(folder / "left", "");
    ReplaceFile(folder / "held", "");
    const pid_t child = ::fork();
    if (child == 0) {
        ScratchName name;
        name.Set(folder / "left");
        name.Set(folder / "held");
        RemoveTemporaryFiles();
        ::_exit(0);
    }
    ::waitpid(child, nullptr, 0);
    EXPECT_TRUE(fs::exists(folder / "left")) << "what is no longer held is somebody's file";
    EXPECT_FALSE(fs::exists(folder / "held"));
}

TEST_F(AtomicFileTest, DevicesAreWrittenStraightAway) {
    // A full disk is met at the latest when the buffer is flushed.
    EXPECT_THROW(ReplaceFile("/dev/full", "x"), FileAccessError);
    ReplaceFile("/dev/null", "x");
}

} // namespace
} // namespace velmora
