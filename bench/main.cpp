// velmora-bench: how long the main jobs take, each beside its floor, timed in turn in one run. Machines differ, so the
// ratios count. Prints the median of several rounds.

#include "base/AtomicFile.h"
#include "bench/Floors.h"
#include "bench/Process.h"
#include "platform/BuiltInPrinters.h"
#include "platform/Machine.h"
#include "report/PdfReport.h"
#include "report/PrepareReport.h"
#include "settings/RegistryFile.h"
#include "wizard/AppendWizardTabs.h"
#include "workbook/LibraryWorkbooks.h"
#include "workspace/ArrangeTabs.h"
#include "workspace/CopyTabs.h"
#include "workspace/LoadDocument.h"
#include "workspace/OpenDocument.h"
#include "workspace/PasteBlock.h"
#include "workspace/RemoveDuplicates.h"
#include "workspace/SortTabs.h"
#include "workspace/Undo.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <sstream>
#include <unistd.h>

namespace {

using namespace velmora;
using namespace velmora::bench;
namespace fs = std::filesystem;

constexpr int kRounds = 11;
constexpr int kLargeTabs = 32760;
constexpr int kSmallTabs = 24;
constexpr int kFilledTabs = 32000;

class NoInterface : public UserInterface {
    class NoProgress : public Progress {
        void Advance(int) override {}
    };
    Answer Show(const Message& message) override { throw Error(message.text); }
    void Beep() override {}
    std::unique_ptr<Progress> StartProgress(const std::string&, int) override { return std::make_unique<NoProgress>(); }
    std::unique_ptr<Progress> StartCancellable(const std::string&, int) override {
        return std::make_unique<NoProgress>();
    }
    std::optional<fs::path> ChooseFile(const FileRequest&) override { return std::nullopt; }
    std::optional<fs::path> ChooseFolder(const std::string&, const fs::path&) override { return std::nullopt; }
    std::optional<Credentials> AskForCredentials(const CredentialsRequest&) override { return std::nullopt; }
};

std::string SampleFile(int tabs) {
    static constexpr const char* kMonths[] = {"January", "Februarie", "Mrt.", "April", "Mei", "June"};
    static constexpr const char* kNames[] = {"Hoërskool", "Bêre", "Môre", "Archive", "Creditors"};
    std::string text = "Version 8\r\nVelmora PDF,A4,0,3\r\n5,4\r\nArial,12,True,False,False,0,1\r\n"
                       "Arial,10,False,False,False,0,1\r\nArial,10,False,False,False,1,1\r\n";
    for (int i = 1; i <= tabs; ++i)
        text += "No." + std::to_string(100000 + i).substr(1) + "/x," + kMonths[i % 6] + "," + kNames[i % 5] + "\r\n";
    return text;
}

double Milliseconds(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

double Median(std::vector<double> values) {
    std::nth_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2), values.end());
    return values[values.size() / 2];
}

std::string Fixed(double number, const char* unit) {
    std::array<char, 32> text;
    std::snprintf(text.data(), text.size(), number < 10 ? "%.2f%s" : "%.0f%s", number, unit);
    return text.data();
}

/// One row of the table.
void Print(const char* work, const std::string& floor, const std::string& measured, const std::string& ratio,
           const char* wanted) {
    std::printf("| %-45s | %8s | %18s | %5s | %-14s |\n", work, floor.c_str(), measured.c_str(), ratio.c_str(), wanted);
    std::fflush(stdout);
}

/// Gives milliseconds.
using Timed = std::function<double()>;

/// The work and its floor (may be empty) take turns.
void Compare(const char* name, const Timed& work, const Timed& floor, const char* wanted) {
    std::vector<double> times, floors;
    for (int round = 0; round <= kRounds; ++round) { // the first round only warms up
        const double time = work();
        const double least = floor ? floor() : 0;
        if (round > 0) {
            times.push_back(time);
            floors.push_back(least);
        }
    }
    const double time = Median(times), least = Median(floors);
    Print(name, floor ? Fixed(least, " ms") : "-", Fixed(time, " ms"), floor ? Fixed(time / least, "") : "-", wanted);
}

Timed Timing(std::function<void()> work) {
    return [work = std::move(work)] { return Milliseconds(work); };
}

floors::FontFiles FontsOf(const FontCatalogue& catalogue) {
    return {catalogue.Match({"Arial", true, false}).value().path,
            catalogue.Match({"Arial", false, false}).value().path};
}

/// One program for all rows.
struct Bench {
    NoInterface ui;
    RegistryFile registry{fs::path()};
    BuiltInPrinters printers{true};
    LibraryWorkbooks workbooks;
    SettingsStore settings{registry, ui};
    MainModule main{settings, ui, printers, workbooks};
    LayoutValues layout;
    const std::unique_ptr<FontCatalogue> catalogue = MakeFontCatalogue();
    fs::path folder;

    Bench() {
        settings.SettingsAppName = "Velmora";
        settings.InMemory = true;
        std::string pattern = (fs::temp_directory_path() / "velmora-bench-XXXXXX").string();
        if (!::mkdtemp(pattern.data()))
            throw Error("no temporary folder");
        folder = pattern;
        ReplaceFile(folder / "large.csv", SampleFile(kLargeTabs));
        ReplaceFile(folder / "small.csv", SampleFile(kSmallTabs));
    }
    ~Bench() { fs::remove_all(folder); }

    floors::FontFiles Fonts() const { return FontsOf(*catalogue); }
    void Load(const char* name) { LoadDocument(main, ReadTabFile(folder / name)); }
    void Save() { ReplaceFile(folder / "out.csv", TabFileBytes(main.document, settings, ui)); }
    /// The wizard from its count page to Finish, with its step of undo.
    void Fill(const TabDocument& start) {
        main.document = start;
        main.history.KeepSteps();
        WizardState wizard;
        ConfirmCount(wizard, std::to_string(kFilledTabs));
        ChooseField(wizard, main.document, 1);
        GiveValues(wizard, {.numbers = {1, 5, "No.", "/x"}});
        if (!AppendWizardTabs(main, wizard))
            throw Error("the wizard refused");
        main.history.KeepSteps(0);
        main.history.Clear(main.document);
    }
    rptVelmor Report() {
        return MakeReport(layout, DocumentRequest(main.document), {main.document, main.settings, main.fonts});
    }
    void LayOutAll() {
        rptVelmor report = Report();
        Sheet sheet;
        for (int number = 1; number <= report.SheetCount(); ++number)
            report.LayOutSheet(number, sheet);
    }
    void Pdf() {
        rptVelmor report = Report();
        AtomicFile file(folder / "out.pdf");
        WritePdf(DocumentSheets(report, main.document, main.fonts), *catalogue,
                 [&](std::string_view bytes) { file.Write(bytes); });
        file.Commit();
    }
};

void MeasureDocument(Bench& bench) {
    const fs::path& folder = bench.folder;
    bench.Load("large.csv");
    const floors::Arrays arrays = floors::Open(folder / "large.csv");
    const std::string header = SampleFile(0);
    const floors::FontFiles fonts = bench.Fonts();
    Compare("open 32,760 tabs (file to arrays)", Timing([&] { bench.Load("large.csv"); }),
            Timing([&] { floors::Open(folder / "large.csv"); }), "1 x");
    Compare("save them safely", Timing([&] { bench.Save(); }),
            Timing([&] { floors::Save(folder / "floor.csv", header, arrays); }), "1.4 x");
    Compare("lay out their 1,365 sheets", Timing([&] { bench.LayOutAll(); }), {}, "30 ms");
    Compare("PDF of them, fonts embedded", Timing([&] { bench.Pdf(); }),
            Timing([&] { floors::Pdf(folder / "floor.pdf", arrays, fonts); }), "1 x");
    const auto megabytes = [&](const char* name) {
        return Fixed(static_cast<double>(fs::file_size(folder / name)) / 1e6, " MB");
    };
    Print("its size", megabytes("floor.pdf"), megabytes("out.pdf"), "-", "0.9 MB");
}

void MeasureFill(Bench& bench) {
    bench.Load("small.csv");
    const TabDocument start = bench.main.document;
    Compare("fill 32,000 numbers with prefix and padding", Timing([&] { bench.Fill(start); }),
            Timing([] { floors::Fill(kFilledTabs); }), "10 ms");
}

/// Marks what it is told to mark.
class Marks : public GridEditor {
public:
    TabNumbers tabs;

    TabNumbers MarkedTabs() const override { return tabs; }
    void MarkTabs(const TabNumbers& marked) override { tabs = marked; }
};

/// Commands in a document that has room for one more page, each with its step of undo.
void MeasureArranging(Bench& bench) {
    MainModule& module = bench.main;
    ReplaceFile(bench.folder / "arranged.csv", SampleFile(kLargeTabs - kSmallTabs));
    bench.Load("arranged.csv");
    Marks marks;
    module.editor.Take(marks);
    const TabDocument start = module.document;
    marks.tabs = TabsFrom(2, start.TabCount - 1);
    const std::string block = CopyTabs(module);
    const auto measure = [&](const char* name, const std::function<void()>& work) {
        Compare(
            name,
            [&] {
                module.document = start;
                marks.tabs = {1};
                module.history.KeepSteps();
                const double time = Milliseconds(work);
                if (!module.history.CanUndo())
                    throw Error("nothing was done");
                module.history.KeepSteps(0);
                module.history.Clear(module.document);
                return time;
            },
            {}, "60 ms");
    };
    measure("sort 32,736 tabs", [&] { SortTabs(module, {0, true, false}); });
    measure("insert a tab before them", [&] { InsertTabs(module); });
    measure("paste all but one of them", [&] { PasteBlock(module, 0, block); });
    measure("remove duplicates", [&] { RemoveDuplicates(module, {false, true, true}); });
    module.editor.Leave();
}

void MeasureProcesses(const Bench& bench) {
    const std::string small = (bench.folder / "small.csv").string(), out = (bench.folder / "process.pdf").string();
    const floors::FontFiles fonts = bench.Fonts();
    const auto pdf = [&](const char* name) {
        return RunProcess({VELMORA_BATCH, "pdf", (bench.folder / name).string(), "-o", out}).peakMegabytes;
    };
    Compare("PDF of one sheet, whole process", Timing([&] { pdf("small.csv"); }), Timing([&] {
                RunProcess({VELMORA_BENCH_SHEET_FLOOR, small, out, fonts.bold.string(), fonts.regular.string()});
            }),
            "3 x");
    Print("its peak memory; that of 1,365 sheets", "-", Fixed(pdf("small.csv"), "; ") + Fixed(pdf("large.csv"), " MB"),
          "-", "flat");
}

/// A program that is set up, so that its start asks nothing.
class Windows {
public:
    explicit Windows(const Bench& bench) : large_((bench.folder / "large.csv").string()), home_(bench.folder / "home") {
        fs::create_directory(home_);
        ReplaceFile(home_ / "Velmora.ini", "[Settings]\r\nStart with setup=False\r\n[Margin Settings]\r\n"
                                           "Default Left Margin - A4_8=0\r\nDefault Top Margin - A4_8=0\r\n");
    }
    std::string Run(const char* program, const std::string& job) const {
        return RunProcess({program, large_}, {"VELMORA_BENCH_JOB=" + job, "VELMORA_HOME=" + home_.string()}).output;
    }

private:
    std::string large_;
    fs::path home_;
};

void MeasureWindows(const Bench& bench) {
    const Windows windows(bench);
    const auto job = [&](const char* program, const char* name) {
        return [&, program, name] { return std::stod(windows.Run(program, name)); };
    };
    Compare("start to the painted main window", Timing([&] { windows.Run(VELMORA_BENCH_WINDOW, "start"); }),
            Timing([&] { windows.Run(VELMORA_BENCH_WINDOW_FLOOR, "start"); }), "1.5 x");
    Compare("move to another page, painted", job(VELMORA_BENCH_WINDOW, "moves"),
            job(VELMORA_BENCH_WINDOW_FLOOR, "moves"), "8 ms, 3 x");
    Compare("a keystroke, painted", job(VELMORA_BENCH_WINDOW, "keys"), job(VELMORA_BENCH_WINDOW_FLOOR, "keys"), "8 ms");
    double before = 0, after = 0;
    Compare(
        "first sheet of a preview of 1,365 sheets",
        [&] {
            double first = 0;
            std::istringstream(windows.Run(VELMORA_BENCH_WINDOW, "preview")) >> first >> before >> after;
            return first;
        },
        {}, "40 ms");
    Print("its memory; after 100 sheets", "-", Fixed(before, "; ") + Fixed(after, " MB"), "-", "flat");
}

void PrintTable() {
    Bench bench;
    Print("work", "floor", "Velmora", "ratio", "wanted at most");
    std::printf("|---|---|---|---|---|\n");
    MeasureDocument(bench);
    MeasureFill(bench);
    MeasureArranging(bench);
    MeasureProcesses(bench);
    if (std::getenv("DISPLAY") || std::getenv("WAYLAND_DISPLAY"))
        MeasureWindows(bench);
    else
        std::printf("No display: windows are not measured (xvfb-run gives a simulated one).\n");
}

} // namespace

int main() {
    try {
        PrintTable();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "velmora-bench: %s\n", error.what());
        return 1;
    }
}
