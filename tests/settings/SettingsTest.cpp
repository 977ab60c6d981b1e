#include "base/Error.h"
#include "settings/FormPosition.h"
#include "settings/RegistryFile.h"
#include "settings/RegistryMove.h"
#include "settings/RegistrySettings.h"
#include "settings/mdlSettings.h"
#include "tests/support/ScriptedInterface.h"
#include "tests/support/TemporaryFolder.h"

#include <functional>
#include <gtest/gtest.h>

namespace velmora {
namespace {

namespace fs = std::filesystem;
const std::string kApplication = "SOFTWARE\\Corvane Series\\Velmora";
const std::string kSection = kApplication + "\\Sect";

/// A registry file whose deletions can be watched.
struct WatchedRegistry : RegistryFile {
    using RegistryFile::RegistryFile;
    RegistryCode DeleteValue(const std::string& path, const std::string& name) override {
        const RegistryCode code = onDelete(name);
        return code == RegistryCode::Success ? RegistryFile::DeleteValue(path, name) : code;
    }
    RegistryCode LastClosing() const override { return closing; }
    RegistryCode closing = RegistryCode::Success;
    std::function<RegistryCode(const std::string&)> onDelete = [](const auto&) { return RegistryCode::Success; };
};

struct SettingsTest : testing::Test {
    SettingsTest() {
        store_.SettingsAppName = "Velmora";
        store_.ProgramFolder = folder_.Path();
    }
    std::string Get(const std::string& key, const std::string& fallback, bool numeric = false) {
        return GetSetting(store_, "Sect", key, fallback, numeric);
    }
    bool Save(const std::string& key, const std::string& value, bool numeric = false) {
        return SaveSetting(store_, "Sect", key, value, numeric);
    }
    void ExpectRegistryError(const std::string& heading, const std::string& rest) {
        ui_.Expect("\r\n" + heading + "\r\n" + rest, Icon::Exclamation);
    }
    void ExpectIniError() {
        ui_.Expect(ini_.string() + ": Is a directory\r\nUntil it can be written, settings are not kept.",
                   Icon::Exclamation);
    }
    /// From now on the INI file can't be written.
    void BlockIni() {
        if (fs::exists(ini_))
            fs::rename(ini_, folder_ / "kept.ini");
        fs::create_directory(ini_);
    }

    TemporaryFolder folder_;
    fs::path ini_ = folder_ / "Velmora.ini";
    fs::path reg_ = folder_ / "Velmora.reg";
    ScriptedInterface ui_{[](const std::string& complaint) { ADD_FAILURE() << complaint; }};
    WatchedRegistry registry_{reg_};
    SettingsStore store_{registry_, ui_};
};

TEST_F(SettingsTest, ReadingFillsTheFile) {
    EXPECT_EQ(Probe(store_, {"Sect", "Probed"}), std::nullopt);
    EXPECT_EQ(GetSetting(store_, "Settings", "OptType", "0"), "0");
    EXPECT_EQ(Content(ini_), "[Settings]\r\nOptType=0\r\n");
    ReplaceFile(ini_, "[Settings]\n  OptType = 0\n");
    EXPECT_EQ(GetSetting(store_, "Settings", "OptType", "0"), "0");
    EXPECT_EQ(GetSetting(store_, "Settings", "Number", "7", true), "7");
    EXPECT_EQ(Content(ini_), "[Settings]\n  OptType = 0\n") << "only texts are written back, where bytes change";
}

TEST_F(SettingsTest, CutsValuesAndLists) {
    std::string e128;
    for (int i = 0; i < 128; ++i)
        e128 += "\xC3\xA9";
    std::string file = "[Sect]\r\nLong=" + e128 + "xyz\r\n";
    for (int i = 100; i < 400; ++i)
        file += "keynumber" + std::to_string(i) + "=1\r\n";
    ReplaceFile(ini_, file);
    EXPECT_EQ(Get("Long", ""), e128);
    EnumerateSettings(store_, "Sect");
    ASSERT_EQ(store_.KeyValues.size(), 1u + (2048 - 5) / 13);
    EXPECT_EQ(store_.KeyValues.back(), (std::pair<std::string, std::string>("keynumber256", "1")));
    EXPECT_EQ(Content(ini_), file) << "a name that was cut came back as a new key";
    EXPECT_EQ(Get("Cut", std::string("a\0b", 3)), "a");
}

TEST_F(SettingsTest, Numbers) {
    ui_.Expect("You must enter a numeric value in the Default value field.", Icon::Critical);
    EXPECT_EQ(Get("N", "abc", true), "Error!");
    EXPECT_EQ(ui_.beeps, 1);
    ui_.Expect("You must enter a numeric value to save as Integer", Icon::None);
    EXPECT_FALSE(Save("N", "abc", true));
    EXPECT_EQ(Content(ini_), "(none)");
    const std::pair<const char*, const char*> cases[] = {{"-5", "-5"}, {"12abc", "12"}, {"abc", "0"}, {"", "3"}};
    for (const auto& [stored, read] : cases) {
        Save("N", stored);
        EXPECT_EQ(Get("N", " 3 ", true), read) << stored;
    }
    Save("N", "70000");
    EXPECT_THROW(Get("N", "3", true), OverflowError);
    EXPECT_TRUE(Save("N", "2.5", true));
    EXPECT_EQ(Get("N", ""), "2");
}

TEST_F(SettingsTest, ReportsAProtectedFileOnce) {
    BlockIni();
    EXPECT_EQ(Get("K", "default"), "default");
    ExpectIniError();
    EXPECT_FALSE(Save("K", "1"));
    EXPECT_FALSE(Save("K", "2"));
    {
        SettingsBatch batch(store_);
        EXPECT_TRUE(Save("K", "3"));
    }
    ui_.boxTitle = "CSetting.DeleteKey";
    ui_.Expect("Error Deleting Key (check if file is protected)", Icon::None);
    EXPECT_FALSE(DeleteSetting(store_, "Sect", "K"));
    ui_.boxTitle = "Velmora";
    fs::remove(ini_);
    EXPECT_TRUE(Save("K", "4"));
    BlockIni();
    ExpectIniError();
    const SettingsBatch batch(store_);
    EXPECT_TRUE(Save("K", "5"));
}

TEST_F(SettingsTest, BatchWritesAtItsEndAndMemoryNever) {
    {
        SettingsBatch outer(store_);
        Save("A", "1");
        try {
            SettingsBatch inner(store_);
            Save("A", "2");
            throw Error("half done");
        } catch (const Error&) {}
        SettingsBatch inner(store_);
        EXPECT_EQ(Get("B", "3"), "3");
        inner.Commit();
        EXPECT_EQ(Content(ini_), "(none)");
        EXPECT_EQ(Get("A", ""), "1");
    }
    EXPECT_EQ(Content(ini_), "[Sect]\r\nA=1\r\nB=3\r\n");
    fs::remove(ini_);
    store_.InMemory = true;
    EXPECT_TRUE(Save("A", "1"));
    EXPECT_EQ(Get("A", ""), "1");
    EnumerateSettings(store_, "");
    EXPECT_EQ(store_.SectionNames, (std::vector<std::string>{"Sect"}));
    EXPECT_TRUE(fs::is_empty(folder_.Path()));
}

TEST_F(SettingsTest, RegistryModeReadsAndWritesTheMachinesKey) {
    store_.SaveMode = 0;
    EXPECT_EQ(Probe(store_, {"Sect", "A"}), std::nullopt);
    EXPECT_EQ(Content(reg_), "(none)");
    EXPECT_EQ(Get("A", "default"), "default");
    EXPECT_TRUE(Save("N", "-5", true) && Save("Long", std::string(300, 'x')));
    EXPECT_EQ(Get("N", "1", true), "-5");
    EXPECT_EQ(Get("Long", "").size(), 255u);
    EXPECT_EQ(Probe(store_, {"Sect", "A"}), "default");
    store_.SettingsAppName = " Velmora ";
    EXPECT_TRUE(EnumerateSettings(store_, " Sect "));
    EXPECT_EQ(store_.KeyValues, (KeyTable{{"A", "default"}, {"N", "-5"}, {"Long", std::string(300, 'x')}}));
    EXPECT_TRUE(DeleteSetting(store_, "Sect", "Long"));
    EXPECT_EQ(Content(reg_), "REGEDIT4\r\n\r\n[HKEY_LOCAL_MACHINE\\" + kSection +
                                 "]\r\n\"A\"=\"default\"\r\n\"N\"=dword:fffffffb\r\n");
    EXPECT_TRUE(store_.Object.GetSettingAll("Sect").empty()) << "the per-user area is another one";
    EXPECT_EQ(Content(ini_), "(none)");
}

TEST_F(SettingsTest, RegistryErrorsAreReported) {
    store_.SaveMode = 0;
    store_.SectionNames = {"old"};
    ExpectRegistryError("Error Opening Registry Key Entry:", "Key/Path=" + kApplication + "DLL Returned=2");
    EXPECT_FALSE(EnumerateSettings(store_, ""));
    EXPECT_TRUE(store_.SectionNames.empty());
    Save("A", "1");
    ExpectRegistryError("Error Deleting Registry Key Entry:", "Key/Path=" + kSection + "DLL Returned=2");
    EXPECT_FALSE(DeleteSetting(store_, "Sect", "B"));
    ExpectRegistryError("Error Deleting Registry Key Entry:", "Key/Path=" + kApplication + "Delete sub sections. [5]");
    EXPECT_FALSE(DeleteSetting(store_, "", ""));
    ExpectRegistryError("Cannot set Registry value: RegSetValueEx", "Key=" + kSection + "DLL Returned=29");
    EXPECT_FALSE(Save("A", "\xC5\x82"));
    ReplaceFile(reg_, "broken");
    ExpectRegistryError("Cannot Create Registry path: RegCreateKeyExVelmora", "Key=" + kSection + "DLL Returned=1015");
    EXPECT_FALSE(Save("A", "1"));
}

TEST_F(SettingsTest, AKeyThatDoesNotCloseIsToldAndWhatWasDoneHolds) {
    store_.SaveMode = 0;
    registry_.closing = RegistryCode{6};
    for (int i = 0; i < 5; ++i) // a deletion opens the key before
        ExpectRegistryError("Error closing Registry Key Entry:", "Key/Path=" + kSection + "DLL Returned=6");
    EXPECT_TRUE(Save("A", "1") && Get("A", "~~~") == "1" && EnumerateSettings(store_, "Sect"));
    EXPECT_EQ(store_.KeyValues.size(), 1u);
    EXPECT_TRUE(DeleteSetting(store_, "Sect", "A"));
    ExpectRegistryError("Error closing Registry Key Entry:", "Key/Path=" + kApplication + "DLL Returned=6");
    EXPECT_TRUE(EnumerateSettings(store_, ""));
}

TEST_F(SettingsTest, AWindowReturnsToItsPlaceOrToTheMiddle) {
    const FormPosition window = {0, 0, 401, 300}, middle = {311, 234, 401, 300}; // of a screen of 1024 x 768
    for (const char* none :
         {"", "120", "10,20,30", "a,b,c,d", "10,20,0,40", "1025,20,30,40", "10,769,30,40", "99999999999,1,2,3"}) {
        SaveSetting(store_, "Form Position", "frmTest", none);
        EXPECT_EQ(RestoreFormPosition(store_, "frmTest", window, 1024, 768), middle) << none;
    }
    const std::tuple<const char*, FormPosition> cases[] = {
        {"1024,768,30,40", {1024, 768, 30, 40}}, {" -5, -6 ,500,400", {-5, -6, 500, 400}}, {"1,2,3,4,5", {1, 2, 3, 4}}};
    for (const auto& [stored, place] : cases) {
        SaveSetting(store_, "Form Position", "frmTest", stored);
        EXPECT_EQ(RestoreFormPosition(store_, "frmTest", window, 1024, 768), place) << stored;
    }
    EXPECT_EQ(RestoreFormPosition(store_, "frmTest", {0, 0, 1124, 868}, 1024, 768).left, 1);
    SaveSetting(store_, "Form Position", "frmTest", "");
    EXPECT_EQ(RestoreFormPosition(store_, "frmTest", {0, 0, 1125, 868}, 1024, 768).left, -50);
    SaveFormPosition(store_, "frmTest", {-1, 2, 300, 400});
    EXPECT_EQ(Probe(store_, {"Form Position", "frmTest"}), "-1,2,300,400");
}

struct RegistryMoveTest : SettingsTest {
    RegistryMoveTest() {
        registry_.Set(kApplication + "\\Paths", "Application", "C:\\Velmora\\");
        registry_.Set(kSection, "A", "caf\xC3\xA9");
        registry_.Set(kSection, "N", 3u);
    }
    std::string InRegistry(const std::string& name) {
        RegistryValue value = "(none)";
        registry_.Query(kSection, name, value);
        return RegistryText(value);
    }
    const std::string all_ = "[Paths]\r\nApplication=C:\\Velmora\\\r\n[Sect]\r\nA=caf\xC3\xA9\r\nN=3\r\n";
};

TEST_F(RegistryMoveTest, MovesAllAndLeavesTheKeysAlsoInABatch) {
    registry_.onDelete = [&](const std::string& name) {
        EXPECT_NE(Content(ini_).find(name + "="), std::string::npos) << name << " is not on disk yet";
        return RegistryCode::Success;
    };
    SettingsBatch batch(store_);
    EXPECT_EQ(MoveRegistrySettings(store_), MoveResult::Moved);
    EXPECT_EQ(Content(ini_), all_);
    EXPECT_EQ(store_.SaveMode, 1);
    std::vector<std::string> sections;
    registry_.EnumerateKeys(kApplication, sections);
    EXPECT_EQ(sections, (std::vector<std::string>{"Paths", "Sect"}));
    EXPECT_EQ(InRegistry("A") + InRegistry("N"), "(none)(none)");
    EXPECT_EQ(MoveRegistrySettings(store_), MoveResult::NothingThere);
}

TEST_F(RegistryMoveTest, AWriteThatFailsHalfWayLosesNothing) {
    registry_.onDelete = [&](const std::string& name) {
        if (name == "A")
            BlockIni();
        return RegistryCode::Success;
    };
    ExpectIniError();
    EXPECT_EQ(MoveRegistrySettings(store_), MoveResult::PartlyFailed);
    EXPECT_EQ(InRegistry("N"), "3");
    EXPECT_EQ(Content(folder_ / "kept.ini"), "[Paths]\r\nApplication=C:\\Velmora\\\r\n[Sect]\r\nA=caf\xC3\xA9\r\n");
    EXPECT_EQ(store_.SaveMode, 1);
}

TEST_F(RegistryMoveTest, AProtectedRegistryIsReportedOnceAndABrokenOneNotTakenForNone) {
    registry_.onDelete = [](const std::string&) { return RegistryCode::WriteFault; };
    ExpectRegistryError("Error Deleting Registry Key Entry:", "Key/Path=" + kApplication + "\\PathsDLL Returned=29");
    EXPECT_EQ(MoveRegistrySettings(store_), MoveResult::PartlyFailed);
    EXPECT_EQ(Content(ini_), all_);
    EXPECT_EQ(InRegistry("A"), "caf\xC3\xA9");
    registry_.onDelete = [](const std::string& name) {
        return name == "Application" ? RegistryCode::WriteFault : RegistryCode::Success;
    };
    ExpectRegistryError("Error Deleting Registry Key Entry:", "Key/Path=" + kApplication + "\\PathsDLL Returned=29");
    EXPECT_EQ(MoveRegistrySettings(store_), MoveResult::PartlyFailed) << "all behind it went well";
    fs::remove(ini_);
    ReplaceFile(reg_, "broken");
    ExpectRegistryError("Error Opening Registry Key Entry:", "Key/Path=" + kApplication + "DLL Returned=1015");
    EXPECT_EQ(MoveRegistrySettings(store_), MoveResult::PartlyFailed);
    EXPECT_EQ(Content(reg_), "broken");
    fs::remove(reg_);
    EXPECT_EQ(MoveRegistrySettings(store_), MoveResult::NothingThere);
    EXPECT_EQ(Content(ini_), "(none)");
}

} // namespace
} // namespace velmora
