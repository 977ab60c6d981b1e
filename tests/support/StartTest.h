// A start of the program without windows, over settings that are mostly complete.
#pragma once

#include "app/Start.h"
#include "base/AtomicFile.h"
#include "tests/support/FewFonts.h"
#include "tests/support/TestProgram.h"
#include "workspace/Margins.h"

#include <gtest/gtest.h>

namespace velmora {

/// Notes what was opened, in order; the main window's opening may set things up.
class NotingForms : public Forms {
public:
    void ShowMainWindow() override { shown += "main ", whenShown(); }
    void ShowStartPage() override { ++startPages; }
    LostAnswer ShowLost(const std::vector<RecoveredDocument>& lost) override {
        shown += "lost";
        for (const RecoveredDocument& document : lost)
            shown += ":" + document.FirstTexts;
        shown += " ";
        return std::exchange(answers, std::vector(answers.begin() + 1, answers.end())).front();
    }
    void ShowPrinterSetup() override { shown += "printer "; }
    void ShowMarginSetup() override { shown += "margins "; }
    LoadOutcome ShowPageSetup() override { return shown += "page ", pageSetup; }
    void ShowSettingsEditor() override { shown += "editor "; }
    std::string shown;
    int startPages = 0;
    std::vector<LostAnswer> answers; ///< to lists of lost documents
    std::function<void()> whenShown = [] {};
    LoadOutcome pageSetup = LoadOutcome::Loaded;
};

/// Most start over settings that are complete.
struct StartTest : testing::Test {
    TestProgram test{[](const std::string& text) { ADD_FAILURE() << text; }};
    FewFonts fonts;
    Program program{{test.settings, test.ui, test.printers, test.workbooks}, {}, fonts, {}};
    NotingForms forms;

    StartTest() {
        std::filesystem::create_directory(test.folder / "Images");
        std::filesystem::create_directory(test.folder / "Tabs");
        ReplaceFile(test.folder / "Velmora.ini", "[Settings]\r\nPrinter=Velmora PDF\r\n");
        test.settings.SettingsAppName.clear();
        test.settings.IniFile.clear();
        forms.whenShown = [this] { SaveDefaultMargins(test.settings, 0, "A4_8", {}); };
    }
    StartOutcome Start(const std::vector<std::string>& arguments = {}) {
        return Main(program, ReadCommandLine(arguments), forms);
    }
    /// As on a new machine, where nobody chose a printer.
    void BeginWithoutSettings() {
        std::filesystem::remove(test.folder / "Velmora.ini");
        test.settings.Object.File().Open({});
        test.settings.Own.clear();
    }
    void ExpectOffer(const std::string& what, Answer answer) {
        test.ui.Expect(what + "\r\nDo you want to do it now?", Icon::Question, Buttons::YesNo, answer);
    }
    void OfferPrinter(Answer answer) { ExpectOffer("You have to configure a printer.", answer); }
    void OfferMargins(Answer answer) {
        ExpectOffer("Every printer feeds its paper a little differently. With margins of its own, the texts stand in "
                    "the middle of the tabs. This can wait until the first sheet is printed: File > Margin Setup."
                    "\r\n\r\nYou have to setup margins for the tabs.",
                    answer);
    }
    void AskToCreate(const std::string& folder, Answer answer) {
        test.ui.Expect("The '" + (test.folder / (folder + "/")).string() +
                           "' directory cannot be found.\r\nDo you want to create it?",
                       Icon::Question, Buttons::YesNoCancel, answer);
    }
};

} // namespace velmora
