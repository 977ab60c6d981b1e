// A program with a document of three pages and a printer that only notes what it gets.
#pragma once

#include "print/PrintReport.h"
#include "setup/CalibrationSheet.h"
#include "tests/support/Documents.h"
#include "tests/support/FakePrinters.h"
#include "tests/support/InstalledFonts.h"
#include "tests/support/TestProgram.h"

#include <gtest/gtest.h>

namespace velmora {

struct FakeViewer : ReportViewer {
    std::string caption;
    std::function<void(PrintRun&)> act = [](PrintRun&) {};
    void ShowReport(PrintRun& run) override {
        caption = run.Caption();
        act(run);
    }
};

struct PrintTest : testing::Test {
    TestProgram program{[](const std::string& text) { ADD_FAILURE() << text; }};
    FakePrinters printers;
    struct : InstalledFonts {
        std::optional<FontFile> own; ///< in place of every font
        std::optional<FontFile> Match(const FontRequest& request) const override {
            return own ? own : InstalledFonts::Match(request);
        }
    } fonts;
    LayoutValues layout;
    MainModule main{program.settings, program.ui, printers, program.workbooks, {}, {}, {}};
    FakeViewer viewer;
    PrintModule print{main, layout, fonts};
    /// All that goes to paper; the preview where its viewer prints.
    const std::pair<const char*, std::function<void()>> sheets[4] = {
        {"document", [&] { PrintCommand(print); }},
        {"preview", [&] { PreviewCommand(print); }},
        {"test page",
         [&] {
             const DocumentSetup& setup = main.document.setup;
             PrintReport(print, "TestPage",
                         {"TEST", setup.OptType, setup.TabsPerPage, 1, setup.RowsPerPage, setup.ColsPerPage, false});
         }},
        {"calibration sheet", [&] { PrintCalibrationSheet(print); }}};

    PrintTest() {
        print.viewer.Take(viewer);
        Document(0, "A4");
    }

    void Document(int type, const std::string& stationery) {
        MakePages(main, 3, 1, type, [this](int field, int tab) {
            return field == 0 && tab % main.document.setup.TabsPerPage == 1 ? "first" : "";
        });
        main.globals.PrinterName = "Office";
        main.document.setup.StationeryType = stationery;
    }
    void ExpectError(const std::string& text) { program.ui.Expect(text, Icon::Critical); }
};

} // namespace velmora
