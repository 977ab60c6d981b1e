// Every system call of a save fails, or is the program's last: no text may be lost, whatever the file.
//   VELMORA_FAULTS=all: each fault at each call; else each call with one of them.
#include "settings/IniFile.h"
#include "tests/support/FaultyCalls.h"
#include "tests/support/PdfWords.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestProgram.h"
#include "workspace/OpenDocument.h"
#include "workspace/RecoveryCopy.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace velmora {
namespace {

namespace fs = std::filesystem;

constexpr Fault kFaults[] = {Fault::NoSpace,    Fault::Quota,      Fault::InputOutput, Fault::Interrupted,
                             Fault::BrokenDisk, Fault::KillBefore, Fault::KillIn,      Fault::KillAfter};

/// What a child process came to.
struct Ending {
    bool killed, failed, namedCopy; ///< with an error, which a person would have read; which said where the text is
    int calls;
};

/// The faults that are tried at a call.
std::vector<Fault> FaultsAt(int call) {
    if (const char* asked = std::getenv("VELMORA_FAULTS"); asked && std::string_view(asked) == "all")
        return {std::begin(kFaults), std::end(kFaults)};
    return {kFaults[static_cast<std::size_t>(call) % std::size(kFaults)]};
}

/// Does the work in a process of its own.
Ending Suffer(Fault fault, int at, const std::function<void()>& work) {
    int pipe[2];
    EXPECT_EQ(::pipe(pipe), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        int code = 0;
        ArmFault(fault, at);
        try {
            work();
        } catch (const std::exception& error) {
            code = std::string_view(error.what()).find(".whole]") != std::string_view::npos ? 2 : 1;
        }
        const int calls = DisarmFault();
        [[maybe_unused]] const ssize_t told = ::write(pipe[1], &calls, sizeof calls);
        ::_exit(code);
    }
    int status = 0, calls = 0;
    ::waitpid(child, &status, 0);
    ::close(pipe[1]);
    [[maybe_unused]] const ssize_t got = ::read(pipe[0], &calls, sizeof calls);
    ::close(pipe[0]);
    const bool killed = WIFSIGNALED(status);
    EXPECT_TRUE(killed || WEXITSTATUS(status) <= 2) << "a sanitizer ended it";
    return {killed, !killed && WEXITSTATUS(status) != 0, !killed && WEXITSTATUS(status) == 2, calls};
}

/// Runs `check` after every fault that is tried; `prepare` makes what each begins with.
void TryAll(const std::function<void()>& prepare, const std::function<void()>& work,
            const std::function<void(const Ending&)>& check, const std::vector<Fault>& faults = {}) {
    prepare();
    const int calls = Suffer(Fault::None, 0, work).calls;
    ASSERT_GT(calls, 4) << "the calls are not counted";
    for (int at = 1; at <= calls; ++at)
        for (const Fault fault : faults.empty() ? FaultsAt(at) : faults) {
            SCOPED_TRACE("fault " + std::to_string(static_cast<int>(fault)) + " at call " + std::to_string(at));
            prepare();
            check(Suffer(fault, at, work));
        }
}

struct FaultsTest : testing::Test {
    TemporaryFolder folder;
    const fs::path file = folder / "a.csv";
    std::string old = std::string(300'000, 'o');
    std::string fresh = std::string(700'000, 'n');

    ~FaultsTest() override { RefuseOwners(false); }

    void MakeOld() {
        for (const auto& entry : fs::directory_iterator(folder.Path()))
            fs::remove(entry);
        ReplaceFile(file, old);
    }

    void CheckNothingLost(const Ending& ending) {
        const std::string found = ReadFile(file);
        const auto copy = InterruptedSave(file);
        const bool whole = found == old || found == fresh;
        EXPECT_TRUE(whole || (copy && ReadFile(*copy) == fresh)) << found.size() << " bytes are left";
        EXPECT_TRUE(ending.killed || ending.failed || found == fresh) << "said to be saved";
        EXPECT_TRUE(ending.killed || whole || ending.namedCopy) << "nothing says where the text is";
        ReplaceFile(file, old);
        EXPECT_EQ(ReadFile(file), old);
        for (const auto& entry : fs::directory_iterator(folder.Path()))
            EXPECT_FALSE(entry.path().filename().native().starts_with(".")) << "the next save leaves litter";
    }

    void SaveUnderFaults(const std::function<void()>& prepare, const std::vector<Fault>& faults = {}) {
        TryAll([&] { MakeOld(), prepare(); }, [&] { ReplaceFile(file, fresh); },
               [&](const Ending& ending) { CheckNothingLost(ending); }, faults);
    }
};

TEST_F(FaultsTest, AnOwnFile) {
    SaveUnderFaults([&] {
        ::chmod(file.c_str(), 0640);
        ::setxattr(file.c_str(), "user.note", "x", 1, 0); // where the file system has such
    });
}

TEST_F(FaultsTest, AHardLinkedFile) {
    const auto link = [&] { fs::create_hard_link(file, folder / "twin.csv"); };
    SaveUnderFaults(link);
    EXPECT_EQ(fs::hard_link_count(file), 2U);
    std::swap(old, fresh); // a shorter text, behind which the old one would go on
    SaveUnderFaults(link, {Fault::InputOutput, Fault::BrokenDisk});
}

TEST_F(FaultsTest, AColleaguesFile) {
    if (::geteuid() != 0)
        GTEST_SKIP() << "only root can make a file of another owner";
    RefuseOwners(true);
    SaveUnderFaults([&] { ASSERT_EQ(::chown(file.c_str(), 12, 34), 0); });
    struct stat status {};
    ASSERT_EQ(::stat(file.c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, 12U);
}

TEST_F(FaultsTest, OpeningOffersTheTextOfAnInterruptedSave) {
    const auto tabs = [](const std::string& text) {
        return "Version 8\r\n" + text + ",A4,0,1\r\n0,0\r\nA\r\nB\r\nC\r\n" + text + ",,\r\n" + text + ",,\r\n";
    };
    TestProgram program([](const std::string& text) { ADD_FAILURE() << text; });
    const auto opened = [&](Answer answer) {
        program.ui.Expect("Saving the following file was interrupted, and it may be damaged: [" + file.string() +
                              "]\r\nDo you want to have back what was to be saved?",
                          Icon::Question, Buttons::YesNo, answer);
        EXPECT_EQ(OpenFile(program.main, file), OpenOutcome::Opened);
        return program.main.document.FieldA(1) + program.main.document.FieldA(2);
    };
    for (int at = 1; !InterruptedSave(file) || ReadFile(file) == tabs("old"); ++at) {
        MakeOld();
        ReplaceFile(file, tabs("old"));
        fs::create_hard_link(file, folder / "twin.csv");
        ASSERT_TRUE(Suffer(Fault::KillIn, at, [&] { ReplaceFile(file, tabs("new")); }).killed);
    }
    EXPECT_EQ(opened(Answer::No), "oldold"); // the half that was written is the header's
    const std::string said = Shell(VELMORA_BATCH " check " + file.string()).output;
    EXPECT_NE(said.find("What was to be saved is in [" + InterruptedSave(file)->string() + "]"), std::string::npos);
    EXPECT_EQ(opened(Answer::Yes), "newnew");
    EXPECT_EQ(OpenFile(program.main, file), OpenOutcome::Opened);
}

TEST_F(FaultsTest, AnIniFile) {
    const fs::path ini = folder / "Velmora.ini";
    TryAll([&] { ReplaceFile(ini, "[Settings]\r\nPrinter=old\r\n"); },
           [&] { IniFile(ini).Write("Settings", "Printer", "new"); },
           [&](const Ending& ending) {
               const std::string found = ReadFile(ini);
               const bool isNew = found == "[Settings]\r\nPrinter=new\r\n";
               EXPECT_TRUE(isNew || found == "[Settings]\r\nPrinter=old\r\n") << found;
               EXPECT_TRUE(isNew || ending.killed || ending.failed) << "said to be written";
           });
}

TEST_F(FaultsTest, ARecoveryCopy) {
    TestProgram program([](const std::string& text) { ADD_FAILURE() << text; });
    TabDocument& document = program.main.document;
    for (int field = 0; field < kFieldsPerTab; ++field)
        document.Field(field).ReDim(1);
    document.TabCount = 1;
    document.DocChanged = true;
    const auto keep = [&](RecoveryStore& store, const std::string& text) {
        document.FieldA(1) = text;
        store.KeepBeside(document, program.main.settings);
        store.Finish();
    };
    const fs::path recovery = folder / "Recovery";
    TryAll([&] { fs::remove_all(recovery); },
           [&] {
               DisarmFault();
               RecoveryStore store;
               store.Open(recovery, std::chrono::system_clock::now);
               keep(store, "old");
               RearmFault();
               keep(store, "new");
           },
           [&](const Ending& ending) {
               RecoveryStore store;
               store.Open(recovery, std::chrono::system_clock::now);
               const auto left = store.List();
               ASSERT_EQ(left.size(), 1U);
               const std::string copy = store.Read(left[0]).value();
               const std::string text(ParseRecoveryCopy(copy)->texts.front());
               EXPECT_TRUE(text == "new" || (text == "old" && (ending.killed || ending.failed))) << text;
           });
}

} // namespace
} // namespace velmora
