// velmora-bench: how long the main jobs take, each beside its floor, timed in turn in one run. Machines differ, so the
// ratios count. Prints the median of several rounds.

#include "base/AtomicFile.h"
#include "bench/Floors.h"
#include "document/OpenDocument.h"
#include "document/Undo.h"
#include "platform/linux/BuiltInPrinters.h"
#include "platform/linux/FontconfigCatalogue.h"
#include "platform/linux/LibraryWorkbooks.h"
#include "platform/linux/RegistryFile.h"
#include "print/PdfReport.h"
#include "wizard/AppendWizardTabs.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace velmora;
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

/// One row of the table; the work and its floor take turns.
void Row(const char* name, const std::function<void()>& work, const std::function<void()>& floor, const char* wanted) {
    std::vector<double> times, floors;
    for (int round = 0; round <= kRounds; ++round) { // the first round only warms up
        const double time = Milliseconds(work);
        const double least = floor ? Milliseconds(floor) : 0;
        if (round > 0) {
            times.push_back(time);
            floors.push_back(least);
        }
    }
    if (floor)
        std::printf("| %-44s | %8.2f | %8.2f | %5.2f | %s |\n", name, Median(floors), Median(times),
                    Median(times) / Median(floors), wanted);
    else
        std::printf("| %-44s | %8s | %8.2f | %5s | %s |\n", name, "-", Median(times), "-", wanted);
}

/// Runs the batch program; gives its peak memory in megabytes.
double RunBatch(const std::vector<std::string>& arguments) {
    std::fflush(stdout); // or the child would write it again
    const pid_t child = ::fork();
    if (child == 0) {
        std::vector<char*> argv = {const_cast<char*>(VELMORA_BATCH)};
        for (const std::string& argument : arguments)
            argv.push_back(const_cast<char*>(argument.c_str()));
        argv.push_back(nullptr);
        ::close(STDOUT_FILENO);
        ::execv(VELMORA_BATCH, argv.data());
        ::_exit(1);
    }
    int status = 0;
    struct rusage usage {};
    ::wait4(child, &status, 0, &usage);
    if (status != 0)
        throw Error("velmora-batch failed");
    return static_cast<double>(usage.ru_maxrss) / 1024;
}

/// One program for all rows.
struct Bench {
    NoInterface ui;
    RegistryFile registry{fs::path()};
    BuiltInPrinters printers{true};
    LibraryWorkbooks workbooks;
    SettingsStore settings{registry, ui};
    MainModule main{settings, ui, printers, workbooks, {}, {}, {}};
    LayoutValues layout;
    FontconfigCatalogue catalogue;
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

    void Load(const char* name) { LoadDocument(main, ReadTabFile(folder / name)); }
    void Save() { ReplaceFile(folder / "out.csv", TabFileBytes(main.document, settings, ui)); }
    /// The wizard from its count page to Finish, with its step of undo.
    void Fill(const TabDocument& start) {
        UndoHistory history;
        main.document = start;
        main.history = &history;
        WizardState wizard;
        ConfirmCount(wizard, std::to_string(kFilledTabs));
        ChooseField(wizard, main.document, 1);
        FillNumbers(wizard, {1, 5, "No.", "/x"});
        if (!AppendWizardTabs(main, wizard))
            throw Error("the wizard refused");
        main.history = nullptr;
    }
    void LayOutAll() {
        rptVelmor report = PrepareReport(main, layout, {});
        Sheet sheet;
        for (int number = 1; number <= report.SheetCount(); ++number)
            report.LayOutSheet(number, sheet);
    }
    void Pdf() {
        rptVelmor report = PrepareReport(main, layout, {});
        AtomicFile file(folder / "out.pdf");
        WritePdf(report, main, catalogue, {}, [&](std::string_view bytes) { file.Write(bytes); });
        file.Commit();
    }
};

/// `wanted` is the ratio to reach; the floor of a tiny document is next to nothing.
void MeasureDocument(Bench& bench, const char* name, const std::string& what, const char* wanted) {
    const fs::path& folder = bench.folder;
    bench.Load(name);
    const floors::Arrays arrays = floors::Open(folder / name);
    const std::string header = SampleFile(0);
    Row(("file to arrays, " + what).c_str(), [&] { bench.Load(name); }, [&] { floors::Open(folder / name); }, wanted);
    Row(("save " + what).c_str(), [&] { bench.Save(); }, [&] { floors::Save(folder / "floor.csv", header, arrays); },
        wanted);
    Row(("lay out " + what).c_str(), [&] { bench.LayOutAll(); }, nullptr, "30 ms");
    Row(("PDF of " + what).c_str(), [&] { bench.Pdf(); }, [&] { floors::Pdf(folder / "floor.pdf", arrays); }, "500 ms");
    std::printf("| %-44s | %6.2fMB | %6.2fMB |       | 1.5 MB |\n", ("  its size, " + what).c_str(),
                static_cast<double>(fs::file_size(folder / "floor.pdf")) / 1e6,
                static_cast<double>(fs::file_size(folder / "out.pdf")) / 1e6);
}

void MeasureFill(Bench& bench) {
    bench.Load("small.csv");
    const TabDocument start = bench.main.document;
    Row(
        "fill 32,000 numbers with prefix and padding", [&] { bench.Fill(start); }, [] { floors::Fill(kFilledTabs); },
        "10 ms");
}

void MeasureProcesses(Bench& bench) {
    const auto pdf = [&](const char* name) {
        return RunBatch({"pdf", (bench.folder / name).string(), "-o", (bench.folder / "process.pdf").string()});
    };
    Row(
        "PDF of one sheet, whole process", [&] { pdf("small.csv"); }, [] { RunBatch({"--version"}); }, "50 ms");
    Row(
        "PDF of 1,365 sheets, whole process", [&] { pdf("large.csv"); }, [] { RunBatch({"--version"}); }, "-");
    std::printf("| %-44s | %6.1fMB | %6.1fMB |       | 60 MB |\n", "  peak memory, one sheet | 1,365 sheets",
                pdf("small.csv"), pdf("large.csv"));
}

} // namespace

int main() {
    try {
        Bench bench;
        std::printf("| %-44s | %8s | %8s | %5s | wanted |\n|---|---|---|---|---|\n", "work (ms)", "floor", "Velmora",
                    "ratio");
        MeasureDocument(bench, "large.csv", "32,760 tabs, 1,365 sheets", "2 x");
        MeasureDocument(bench, "small.csv", "24 tabs, one sheet", "-");
        MeasureFill(bench);
        MeasureProcesses(bench);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "velmora-bench: %s\n", error.what());
        return 1;
    }
}
