// The commands of the batch program. Each raises Error or UsageError; what it returns is the exit code.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace velmora {

enum ExitCode { kDone = 0, kFailed = 1, kWrongUsage = 2 };

struct InfoArguments {
    std::string file;
    bool tabs = false;
};
int RunInfo(const InfoArguments& arguments);

/// Which sheets of a tab file, and how they are laid out.
struct SheetArguments {
    std::string file;
    std::optional<std::string> pages; ///< "1-3,7"; nullopt: all
    std::optional<std::string> tabs;  ///< printed alone, "300,305-307"; nullopt: all
    std::optional<std::string> used;  ///< positions of the first sheet without a label, "1-5,9"
    std::optional<std::string> from;  ///< first position of the first sheet that has one
    std::string ini;
};

struct PdfArguments : SheetArguments {
    std::string output;
    bool test = false;
    bool outline = false;
};
int RunPdf(const PdfArguments& arguments);

struct CalibrationArguments {
    int type = 0;
    std::string layout; ///< empty: "A4" or "DL_v"
    std::string output;
    std::string ini;
};
int RunCalibration(const CalibrationArguments& arguments);

struct PrintArguments : SheetArguments {
    std::string printer; ///< empty: the one that the tab file names
    int copies = 1;
    std::string tray;    ///< by name or label; empty: as the queue is set up
    std::string kind;    ///< of paper; like the tray
    bool anyway = false; ///< on other paper too
};
int RunPrint(const PrintArguments& arguments);
/// One printer per line, the default one with a tab and "default" behind it.
int RunPrinters();

struct NewArguments {
    int type = 0;
    int fields = 1;
    int pages = 1;
    std::string output;
};
int RunNew(const NewArguments& arguments);

struct FillArguments {
    std::string file;
    int start = 1;
    int count = 0;
    std::vector<std::string> fields; ///< such as "A=number,first=7,width=3,before=No."
    std::string recipe;              ///< empty: the fields alone
    std::string ini;                 ///< with the recipe; empty: the person's own INI file
    std::string output;
};
extern const int kMostTabsToFill;
int RunFill(const FillArguments& arguments);
/// One name per line.
int RunRecipes(const std::string& ini);

/// One line per problem on standard output; kFailed when there is any.
int RunCheck(const std::vector<std::string>& files);

struct ConvertArguments {
    std::string input;
    std::string output;
    std::string sheet;      ///< empty: the only one
    std::string columns;    ///< of the fields, such as "2+1,3"; empty: the first three
    std::string join = " "; ///< between two joined columns
    bool heading = false;
    bool visible = false; ///< without hidden rows
    std::optional<int> type;
    std::optional<int> fields;
    bool noHeader = false;
};
int RunConvert(const ConvertArguments& arguments);

/// One name per line.
int RunSheets(const std::string& file);

enum class SettingsAction { Get, Set, Delete, Sections, Keys };
struct SettingsArguments {
    SettingsAction action = SettingsAction::Get;
    std::string ini; ///< empty: the person's own INI file, which is only read
    std::string section;
    std::string key;
    std::string value;
    std::optional<std::string> fallback;
};
int RunSettings(const SettingsArguments& arguments);

} // namespace velmora
