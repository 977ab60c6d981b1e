// A document with a store for its recovery copies.
#pragma once

#include "tests/support/ProgramTest.h"
#include "workspace/OpenDocument.h"
#include "workspace/Recovery.h"
#include "workspace/RecoveryCopy.h"

#include <fstream>

namespace velmora {

inline const std::string kRecoveryHeader =
    "Version 8\r\nOffice Printer,DL_h,5,2\r\n0,-2.5\r\nArial,12,True,False,False,0,1\r\n"
    "Liberation Serif,10,False,True,False,2,0\r\nArial,9,False,False,True,1,2\r\n";

struct RecoveryTest : ProgramTest {
    std::filesystem::path folder = program.folder / "Recovery";
    std::int64_t seconds = 1'700'000'000;
    RecoveryStore::Clock clock = [this] { return std::chrono::system_clock::from_time_t(seconds); };
    RecoveryStore& store = main.recovery;

    RecoveryTest() {
        OpenFile(main, Put("in.csv", kRecoveryHeader + "Ho\xEBr,,\r\n,,\r\n,x,\r\n"));
        store.Open(folder, clock);
    }
    void Keep() { store.Keep(document, main.settings); }
    std::optional<std::filesystem::path> Archive() { return store.Archive(document, main.settings); }
    void Type(const std::string& text) {
        document.FieldA(1) = text;
        document.DocChanged = true;
        ++seconds;
    }
    void KeepBeside(const std::string& text) {
        Type(text);
        store.KeepBeside(document, main.settings);
    }
    static std::string FirstText(const std::string& copy) {
        return std::string(ParseRecoveryCopy(copy).value().texts.front());
    }
    void ArchiveText(const std::string& text) {
        Type(text);
        Archive();
    }
    /// First texts of what is listed.
    std::string Listed() {
        std::string texts;
        for (const RecoveredDocument& one : store.List())
            texts += FirstText(store.Read(one).value()) + " ";
        return texts;
    }
    /// Without the flush of a real writing.
    void PutCopy(const std::string& name, const std::string& bytes) {
        std::filesystem::create_directory(folder);
        std::ofstream(folder / name, std::ios::binary) << bytes;
    }
    std::filesystem::path Live() {
        std::error_code none;
        for (const auto& entry : std::filesystem::directory_iterator(folder, none))
            if (entry.path().extension() == ".recovery" && entry.path().filename().string().starts_with("Open-"))
                return entry.path();
        return {};
    }
    std::size_t Files() {
        return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder), {}));
    }
};

} // namespace velmora
