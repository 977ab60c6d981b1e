// Recovery copies beside programs that are killed, pipes that nobody reads and folders' modes, which are POSIX's own.
#include "tests/support/RecoveryTest.h"

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace velmora {
namespace {

namespace fs = std::filesystem;

using PosixRecoveryTest = RecoveryTest;

TEST_F(PosixRecoveryTest, AProgramThatWasKilledLeavesItsWorkAndARunningOneKeepsIt) {
    Type("typed");
    int ready[2];
    ASSERT_EQ(::pipe(ready), 0);
    const pid_t child = ::fork();
    if (child == 0)
        [&]() noexcept {
            RecoveryStore other;
            other.Open(folder, clock);
            other.Keep(document, main.settings);
            ::_exit(::write(ready[1], "x", 1) == 1 ? ::pause() : 1);
        }();
    ::close(ready[1]);
    char byte;
    ASSERT_EQ(::read(ready[0], &byte, 1), 1);
    EXPECT_TRUE(store.List().empty());
    for (const auto& entry : fs::directory_iterator(folder)) {
        store.Forget(entry.path());
        store.Settle({entry.path(), {}, {}, 0, true, 0});
    }
    EXPECT_EQ(Files(), 2U) << "the file of a running program was taken";
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    ::close(ready[0]);
    ASSERT_EQ(store.List().size(), 1U);
    Keep();
    EXPECT_EQ(store.List().size(), 1U) << "its own file is no leftover";
    store.Forget(store.List()[0].File);
    store.Drop();
    EXPECT_EQ(Files(), 0U);
}

TEST_F(PosixRecoveryTest, ACopyIsWrittenBesideTheWorkAndNoneReplacesANewerOne) {
    const auto kept = [&] { return FirstText(ReadFile(Live())); };
    Type("old");
    Keep();
    const fs::path pipe = Live();
    fs::remove(pipe);
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0); // nothing can be written before somebody reads
    KeepBeside("a");
    EXPECT_TRUE(store.IsWriting());
    Type("typed meanwhile");
    EXPECT_EQ(kept(), "a");
    store.Drop();

    document.FieldB(1) = std::string(20'000'000, 'x'); // takes long enough to be met on its way
    Keep();
    KeepBeside("a");
    Type("typed meanwhile"); // as it was before
    Keep();
    EXPECT_EQ(kept(), "typed meanwhile");
    KeepBeside("c");
    {
        const RecoveryStore::Pause pause(store);
        Type("half changed");
        KeepLastRecoveryCopy(main);
        EXPECT_EQ(kept(), "c") << "the program ends, and the copy was on its way";
    }
    KeepBeside("d");
    store.Drop();
    EXPECT_EQ(Files(), 0U) << "what was saved or given up is offered";
    std::optional<RecoveryStore> other(std::in_place);
    other->Open(folder, clock);
    Type("e");
    other->KeepBeside(document, main.settings);
    other.reset();
    ASSERT_EQ(store.Lost().size(), 1U) << "the end of a program waits";
    EXPECT_EQ(store.Lost()[0].FirstTexts, "e, " + std::string(40, 'x') + ", x");
}

TEST_F(PosixRecoveryTest, WhatFailsBesideTheWorkIsToldOnceAndTriedAgain) {
    rlimit room{};
    ::getrlimit(RLIMIT_FSIZE, &room);
    std::signal(SIGXFSZ, SIG_IGN);
    const auto keepOnFullDisk = [&] {
        const rlimit none{0, room.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &none);
        KeepRecoveryCopyBeside(main);
        while (store.IsWriting())
            std::this_thread::yield();
        ::setrlimit(RLIMIT_FSIZE, &room);
    };
    Type("old");
    Keep();
    for (const char* text : {"a", "b"}) {
        Type(text);
        keepOnFullDisk();
        program.ui.Expect(Live().string() + ": File too large\r\nCalled from Sub: KeepRecoveryCopy", Icon::Critical);
        if (*text == 'a') {
            keepOnFullDisk(); // tells of the one before, and not of its own
            Keep();
        } else
            KeepRecoveryCopyBeside(main); // tells of the one before
        FinishRecoveryCopy(main);
        EXPECT_EQ(FirstText(ReadFile(Live())), text);
    }
    store.Drop();
    keepOnFullDisk();
    EXPECT_THROW(store.Finish(), Error);
    EXPECT_EQ(Files(), 0U) << "a lock without a copy";
}

TEST_F(PosixRecoveryTest, TheFolderIsForItsOwnerAloneAndAPipeInItIsLeftAlone) {
    Type("typed");
    Keep();
    EXPECT_EQ(fs::status(folder).permissions(), fs::perms::owner_all);
    fs::permissions(folder, fs::perms::all); // as an older version left it
    ASSERT_EQ(::mkfifo((folder / "Kept-2-pipe.recovery").c_str(), 0600), 0);
    store.Open(folder, clock);
    EXPECT_EQ(fs::status(folder).permissions(), fs::perms::owner_all);
    const std::size_t before = Files();
    for (int i = 0; i < 15; ++i)
        ArchiveText(std::to_string(i));
    EXPECT_EQ(Files(), before + 11);
}

} // namespace
} // namespace velmora
