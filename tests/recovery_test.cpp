// Recovery copies: what comes back after an ending of any kind, whose copies they are, and what damage does to them.
#include "tests/support/FakeEditor.h"
#include "tests/support/RecoveryTest.h"
#include "workspace/Globals.h"
#include "workspace/Pages.h"
#include "workspace/RestoreDocument.h"

#include "TestSystem.h"

namespace velmora {
namespace {

namespace fs = std::filesystem;

TEST_F(RecoveryTest, EverythingComesBackAsItWas) {
    const TabDocument opened = document;
    const std::string nul("nul\0", 4);
    const std::string texts[] = {"Smith, John", "\"a\"\r\nb", "Ω", nul, "\xFF\xEF\xBB\xBF", "5:x\n"};
    for (int i = 0; i < 6; ++i)
        document.Field(i % 3)(1 + i / 3) = texts[i];
    document.DocChanged = true;
    DeleteSetting(program.settings, "Settings", "Margin Value Left");
    const std::string ini = ReadFile(program.settings.IniFile);
    const auto own = program.settings.Own;
    std::optional<RecoveryStore> first(std::in_place);
    first->Open(folder, clock);
    first->Keep(document, main.settings);
    EXPECT_EQ(document.FileEncoding, Encoding::Windows1252) << "a copy must not change how the file is saved";
    EXPECT_EQ(ReadFile(program.settings.IniFile), ini);
    EXPECT_EQ(program.settings.Own, own);
    first.reset();

    document.DocChanged = false;
    OpenFile(main, Put("other.csv", "Version 8\r\nP,A4,0,1\r\n3,3\r\n\r\n\r\n\r\nb,,\r\n"));
    ++seconds;
    const auto list = store.List();
    ASSERT_EQ(list.size(), 1U);
    EXPECT_EQ(list[0].Name(), "in.csv");
    EXPECT_EQ(std::chrono::system_clock::to_time_t(list[0].Time), seconds - 1);
    EXPECT_TRUE(list[0].TabsFilled == 3 && list[0].LeftBehind);
    {
        const RecoveryStore::Pause pause(store);
        RestoreDocument(main, list[0]);
        EXPECT_TRUE(store.List().at(0).LeftBehind) << "no copy of this program's own stands in for it";
        document.DocChanged = false;
    }
    EXPECT_EQ(RestoreDocument(main, list[0]), LoadOutcome::Loaded);
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(document.Field(i % 3)(1 + i / 3), texts[i]);
    EXPECT_EQ(document.DocFileName, program.folder / "in.csv");
    EXPECT_EQ(document.Stamp, opened.Stamp) << "a save must notice that the file changed meanwhile";
    EXPECT_EQ(document.Stamp->number, opened.Stamp->number);
    EXPECT_EQ(document.FileEncoding, Encoding::Windows1252);
    EXPECT_EQ(document.setup.LayoutName + main.fonts[1].Name + program.Stored("Settings", "Margin Value Top"),
              "DL_hLiberation Serif-2.5");
    EXPECT_TRUE(document.DocChanged && document.TabCount == opened.TabCount);
    ASSERT_EQ(store.List().size(), 1U) << "what was recovered stays among the last ten";
    EXPECT_FALSE(store.List()[0].LeftBehind) << "but is not offered twice";
    EXPECT_FALSE(Live().empty()) << "this program has a copy of its own first";
    store.Drop();
    EXPECT_EQ(Files(), 1U) << "a lock stayed behind";
}

TEST_F(RecoveryTest, OnlyWhatChangedIsWritten) {
    const auto keepAndFindFile = [&] {
        Keep();
        return IdentityOf(Live());
    };
    Type("a");
    const FileIdentity first = keepAndFindFile();
    ++seconds;
    EXPECT_EQ(keepAndFindFile(), first);
    Type("b");
    EXPECT_NE(keepAndFindFile(), first);
    for (const fs::path& removed : {Live(), kOpenFilesCanBeRemoved ? folder : Live()}) {
        fs::remove_all(removed);
        Keep();
        EXPECT_EQ(Files(), 2U) << "a copy that somebody removed is written again";
    }
    document.DocChanged = false;
    Keep();
    EXPECT_EQ(Files(), 0U) << "a saved document would be offered";
}

TEST_F(RecoveryTest, WhatLosesTabsIsKeptBefore) {
    main.globals.AskBeforeDelete = false;
    for (const auto lose : {DeletePage, CleanLabels}) {
        AddPage(main);
        Type("typed");
        lose(main);
        EXPECT_EQ(document.TabCount, 12);
        EXPECT_EQ(ParseRecoveryCopy(ReadFile(Live())).value().tabs, 24);
        Keep();
    }
}

TEST_F(RecoveryTest, TheLastTenAreListedWhateverTheClockSays) {
    for (char text = 'a'; text <= 'm'; ++text)
        ArchiveText({text});
    EXPECT_EQ(Listed(), "m l k j i h g f e d ");
    Type("n");
    store.Forget(Archive().value()); // the replacing failed
    EXPECT_EQ(Listed(), "m l k j i h g f e d ");
    ArchiveText("d"); // from the end to the front, not twice
    Type("o");
    seconds = 5;
    Archive();
    EXPECT_EQ(Listed(), "m l k j i h g f d o ") << "the one archived last has the oldest time";
    document.DocChanged = false;
    EXPECT_FALSE(Archive());
}

TEST_F(RecoveryTest, LookingThroughTheListLosesNeitherItNorWhatIsOnScreen) {
    FakeEditor editor;
    editor.texts = {{"typed", "", ""}};
    main.editor.Take(editor);
    for (char text = 'a'; text <= 'j'; ++text)
        ArchiveText({text});
    Type("old");
    for (std::size_t i = 0; i < 9; ++i)
        RestoreDocument(main, store.List()[std::min<std::size_t>(i + 1, 9)]);
    const std::string listed = Listed();
    EXPECT_NE(listed.find("typed"), std::string::npos) << "what a recovery replaced is kept too";
    EXPECT_EQ(listed.find("a "), std::string::npos);
    EXPECT_EQ(listed.size(), 24U) << listed;
    EXPECT_TRUE(editor.calls.ends_with("up ")) << editor.calls;
}

/// The bytes of a copy with this content, whose check sum is right.
std::string Sealed(const std::string& content) {
    return RecoveryHead({}, 1, ContentSum(content)) + content;
}

std::string CopyContent(const std::string& header, const std::string& tabs, const std::string& texts) {
    const auto counted = [](const std::string& part) { return std::to_string(part.size()) + ":" + part + "\n"; };
    return "0:\n5:UTF-8\n0:\n0:\n" + counted(header) + counted(tabs) + texts;
}

TEST_F(RecoveryTest, DamagedAndForeignFilesAreSkippedAndStay) {
    document.TabCount = 1; // a short copy, so that every byte has its turn
    Type("typed");
    const fs::path file = *Archive();
    const std::string whole = ReadFile(file);
    for (std::size_t at = 0; at < whole.size(); ++at) {
        std::string flipped = whole;
        flipped[at] = static_cast<char>(flipped[at] ^ 1);
        for (const std::string& bytes : {flipped, whole.substr(0, at)}) {
            PutCopy(PathText(file.filename()), bytes);
            EXPECT_TRUE(store.List().empty()) << at;
        }
    }
    fs::create_directory(folder / "Open-1.recovery");
    PutCopy("Kept-.recovery", "");
    const std::size_t before = Files();
    for (int i = 0; i < 15; ++i)
        ArchiveText(std::to_string(i));
    EXPECT_EQ(Files(), before + 11);
    EXPECT_EQ(ReadFile(file), whole.substr(0, whole.size() - 1));
}

TEST_F(RecoveryTest, ACopyWithoutTheFilesNumberIsRead) {
    std::string content = RecoveryContent(document, program.settings);
    content.erase(content.rfind('\n', content.size() - 2) + 1); // as earlier programs wrote it
    const std::string bytes = Sealed(content);
    EXPECT_EQ(ParseRecoveryCopy(bytes).value().stamp, document.Stamp)
        << "a save would say that another program changed the file";
}

TEST_F(RecoveryTest, OfAGreatManyNoneIsDeletedUnseen) {
    constexpr int kCopies = 130;
    const auto hourAgo = fs::file_time_type::clock::now() - std::chrono::hours(1);
    for (int i = 0; i < kCopies; ++i) {
        const std::string copy = "Open-" + std::to_string(i) + ".recovery";
        PutCopy(copy, i == kCopies - 1 ? "damaged" : Sealed(CopyContent(kRecoveryHeader, "0", "")));
        fs::last_write_time(folder / copy, hourAgo + std::chrono::seconds(i * 37 % kCopies));
        PutCopy("Kept-" + std::to_string(i + 1) + "-x.recovery", Sealed(CopyContent(kRecoveryHeader, "0", "")));
    }
    const auto lost = store.Lost();
    ASSERT_EQ(lost.size(), kMostLost);
    for (const RecoveredDocument& one : lost)
        EXPECT_GE(fs::last_write_time(one.File), hourAgo + std::chrono::seconds(28)) << one.File;
    for (int i = 0; i < 2; ++i)
        store.Settle(store.Lost().at(0));
    EXPECT_EQ(store.Lost().size(), kMostLost) << "older ones follow";
    ArchiveText("a");
    EXPECT_EQ(store.List().size(), kMostLost + kArchivedDocuments);
    EXPECT_EQ(Files(), std::size_t{2} * kCopies - 3 * kArchivedDocuments + 1) << "ten of the archived go at a time";
    EXPECT_FALSE(store.Holds(program.folder.Path() / lost[5].File.filename()));
}

TEST_F(RecoveryTest, WhatCannotBeRestoredChangesNothing) {
    Type("typed");
    FakeEditor editor;
    main.editor.Take(editor);
    main.fonts[0].Size = 33;
    const std::string ini = ReadFile(program.settings.IniFile);
    std::string tooMany;
    for (int i = 0; i < 3 * 32767; ++i)
        tooMany += "0:\n";
    for (const std::string& content : {CopyContent("no header", "0", ""), CopyContent("Version 8\r\nP,A4,0", "0", ""),
                                       CopyContent(kRecoveryHeader, "32767", tooMany)}) {
        PutCopy("Open-x.recovery", Sealed(content));
        const auto list = store.List();
        ASSERT_EQ(list.size(), 1U);
        EXPECT_THROW(RestoreDocument(main, list[0]), Error);
        EXPECT_TRUE(document.FieldA(1) == "typed" && document.setup.OptType == 5 && main.fonts[0].Size == 33);
        EXPECT_EQ(ReadFile(program.settings.IniFile), ini);
        EXPECT_EQ(store.List().size(), 1U) << "archived, but not replaced";
        EXPECT_EQ(Files(), 3U) << "the open document has no copy";
        EXPECT_TRUE(editor.calls.ends_with("up ")) << "the window stays empty";
    }
}

TEST_F(RecoveryTest, AFolderThatTakesNothingIsAnErrorAndNoMore) {
    Type("typed");
    ReplaceFile(folder, "a file stands here");
    EXPECT_THROW(Keep(), Error);
    EXPECT_THROW(Archive(), Error);
    EXPECT_TRUE(store.List().empty());
    fs::remove(folder);
    Keep();
    EXPECT_EQ(Files(), 2U) << "the next call tries again";
}

/// What another program wrote stays its own, and this program's own workbook its own.
TEST_F(RecoveryTest, AForeignFileStaysForeign) {
    for (const bool foreign : {true, false})
        for (const char* name : {"clients.txt", "own.xlsx"}) {
            Type(name);
            document.DocFileName = program.folder / (std::to_string(foreign) + name);
            document.Foreign = foreign;
            ASSERT_TRUE(Archive());
            document.Foreign = !foreign;
            document.ForeignFindings = "of the file before";
            document.DocChanged = false;
            RestoreDocument(main, store.List()[0]);
            EXPECT_EQ(document.Foreign, foreign) << name;
            EXPECT_EQ(document.ForeignFindings, "") << "not known any more";
        }
}

} // namespace
} // namespace velmora
