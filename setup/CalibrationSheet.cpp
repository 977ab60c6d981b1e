#include "setup/CalibrationSheet.h"

#include "base/Error.h"
#include "base/Numbers.h"
#include "document/Stationery.h"
#include "print/SendSheets.h"
#include "report/PrepareReport.h"
#include "report/Twips.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <utility>

namespace velmora {
namespace {

// Millimetres, as the margins count them.
constexpr double kLineWidth = 0.1;
constexpr double kTick = 1.5;
constexpr double kTickAtFive = 2.5;
constexpr double kTickAtTen = 3.5;
constexpr double kNumberWidth = 8;
constexpr double kNumberHeight = 3;
constexpr double kFromOutline = 1.5;
constexpr double kTextWidth = 190;
constexpr double kLineHeight = 4;
constexpr int kRulerEnd = 35; // a grid leaves at most 33 mm of its sheet

constexpr int kSmallFont = 0; // for the numbers
constexpr int kTextFont = 1;

constexpr int kFirstNumber = -10;
constexpr std::array<std::string_view, 5> kNumbers = {"-10", "0", "10", "20", "30"};

constexpr const char* kTitle = "Calibration sheet";
constexpr std::string_view kLeftLabel = "Left margin, read at the left cut edge";
constexpr std::string_view kTopLabel = "Top margin, read at the top cut edge";
constexpr const char* kCheckTitle = "Check sheet";
constexpr std::array<std::string_view, 2> kCheckExplanation = {
    "This sheet was printed with the margins that were typed in. They are right where every outline lies on the cut "
    "edge of its tab.",
    "If not, measure how far the outlines lie beside the edges, and add that to the margins: to the right and down is "
    "more.",
};
constexpr std::array<std::string_view, 2> kExplanation = {
    "Print this sheet on the stationery. Where a ruler meets the cut edge of the tab that it crosses, it shows the "
    "margin to type.",
    "The margins in use are left out here: the two numbers replace them. Below 0 they are typed with the minus.",
};

double TickLength(int mm) {
    return mm % 10 == 0 ? kTickAtTen : mm % 5 == 0 ? kTickAtFive : kTick;
}

struct Ruler {
    double left; ///< where its 0 stands, in twips
    double top;
    int first; ///< millimetres
    int last;
};

void AddNumber(Sheet& sheet, int mm, const Box& box, std::int16_t alignment) {
    const auto index = static_cast<std::size_t>((mm - kFirstNumber) / 10);
    sheet.texts.push_back({kNumbers.at(index), box, kSmallFont, alignment});
}

/// A line with room to the right edge of any sheet.
void AddText(Sheet& sheet, std::string_view text, int font, double left, double top) {
    sheet.texts.push_back({text, {left, top, LayoutTwips(kTextWidth), LayoutTwips(kLineHeight)}, font, kAlignLeft});
}

/// Ticks hang down from the line, numbers stand below them; one at the paper's edge stands beside its tick.
void AddRulerAcross(Sheet& sheet, const Ruler& ruler) {
    const double line = LayoutTwips(kLineWidth);
    sheet.marks.push_back(
        {ruler.left + LayoutTwips(ruler.first), ruler.top, LayoutTwips(ruler.last - ruler.first), line});
    for (int mm = ruler.first; mm <= ruler.last; ++mm) {
        const double x = ruler.left + LayoutTwips(mm);
        sheet.marks.push_back({x - line / 2, ruler.top, line, LayoutTwips(TickLength(mm))});
        const double left = std::max(0.0, x - LayoutTwips(kNumberWidth) / 2);
        if (mm % 10 == 0)
            AddNumber(
                sheet, mm,
                {left, ruler.top + LayoutTwips(kTickAtTen), LayoutTwips(kNumberWidth), LayoutTwips(kNumberHeight)},
                left > 0 ? kAlignCentre : kAlignLeft);
    }
}

/// Ticks point to the right, numbers stand behind them.
void AddRulerDown(Sheet& sheet, const Ruler& ruler) {
    const double line = LayoutTwips(kLineWidth);
    sheet.marks.push_back(
        {ruler.left, ruler.top + LayoutTwips(ruler.first), line, LayoutTwips(ruler.last - ruler.first)});
    for (int mm = ruler.first; mm <= ruler.last; ++mm) {
        const double y = ruler.top + LayoutTwips(mm);
        sheet.marks.push_back({ruler.left, y - line / 2, LayoutTwips(TickLength(mm)), line});
        if (mm % 10 == 0)
            AddNumber(sheet, mm,
                      {ruler.left + LayoutTwips(kTickAtTen + 0.5), y - LayoutTwips(kNumberHeight) / 2,
                       LayoutTwips(kNumberWidth), LayoutTwips(kNumberHeight)},
                      kAlignLeft);
    }
}

/// Whole millimetres of a ruler that never meets the same edge of two neighbours.
int LastBefore(double pitchTwips) {
    return static_cast<int>(std::lround(pitchTwips / kLayoutTwipsPerMm)) - 1;
}

/// Below the second row.
void AddExplanation(Sheet& sheet, const std::array<std::string_view, 2>& lines, const Box& under) {
    double top = under.Bottom() + LayoutTwips(kLineHeight);
    for (const std::string_view line : lines) {
        AddText(sheet, line, kTextFont, LayoutTwips(10), top);
        top += LayoutTwips(kLineHeight);
    }
}

FontSettings SheetFonts() {
    FontSettings fonts;
    fonts[kSmallFont].Size = 6;
    fonts[kTextFont].Size = 8;
    return fonts;
}

/// One sheet of a title, to be laid out by `layOut`.
SheetSeries OneSheet(const char* title, int tabType, std::string_view layout, std::function<void(Sheet&)> layOut) {
    return {title,
            SheetPaper(kCatalogue.at(static_cast<std::size_t>(tabType)).stationery, layout),
            SheetFonts(),
            {1},
            [layOut = std::move(layOut)](int, Sheet& sheet) { layOut(sheet); },
            Outlines::Shown,
            2,
            "en"};
}

std::optional<std::string> Send(PrintModule& print, const SheetSeries& series, const char* title, const char* place) {
    MainModule& main = print.main;
    if (main.globals.PrinterName != kPdfPrinter && print.CurrentPrinter.empty())
        print.CurrentPrinter = main.printers.DefaultPrinter().value_or("");
    return SendSheets(print, series, {main.globals.PrinterName, title, place, title});
}

} // namespace

Sheet LayOutOutlines(SettingsStore& store, int tabType, std::string_view layout, const PageMargins& margins) {
    const TabType& type = kCatalogue.at(static_cast<std::size_t>(tabType));
    LayoutValues values;
    rptVelmor report(values);
    PrepareReport(report, {"TEST", static_cast<std::int16_t>(tabType), type.TabsPerPage(), 1, type.rows, type.columns},
                  {{}, store, {}});
    report.SetPage(SheetPaper(type.stationery, layout), margins);
    Sheet sheet;
    report.LayOutSheet(1, sheet);
    sheet.texts.clear();
    sheet.fields.clear();
    return sheet;
}

DrawnSheet LayOutDrawing(SettingsStore& store, int tabType, std::string_view layout) {
    try {
        return {LayOutOutlines(store, tabType, layout), ""};
    } catch (const TypeMismatchError& error) {
        SettingsStore usual(store.Keys, store.Interface); // in which nothing is stored
        usual.InMemory = true;
        return {LayOutOutlines(usual, tabType, layout), error.what()};
    }
}

Sheet LayOutCalibrationSheet(SettingsStore& store, int tabType, std::string_view layout) {
    Sheet sheet = LayOutOutlines(store, tabType, layout);
    const auto columns = static_cast<std::size_t>(kCatalogue.at(static_cast<std::size_t>(tabType)).columns);
    const Box first = sheet.tabs[0], second = sheet.tabs[1];
    const Box under = sheet.tabs[columns], third = sheet.tabs[2 * columns + 1];
    const int columnEnd = LastBefore(first.width), rowEnd = LastBefore(under.top - first.top);
    const Ruler down = {second.left + second.width / 2, first.top, kFirstNumber, kFirstNumber + rowEnd};
    for (const Ruler& across :
         {Ruler{first.left, first.top + LayoutTwips(kFromOutline), 0, std::min(kRulerEnd, columnEnd)},
          Ruler{third.left, third.top + LayoutTwips(kFromOutline), kFirstNumber,
                std::min(kRulerEnd, kFirstNumber + columnEnd)}}) {
        AddRulerAcross(sheet, across);
        AddText(sheet, kLeftLabel, kSmallFont, across.left + LayoutTwips(5), across.top + first.height);
    }
    AddRulerDown(sheet, down);
    AddText(sheet, kTopLabel, kSmallFont, down.left + LayoutTwips(kTickAtTen + 4), down.top + LayoutTwips(14));
    AddExplanation(sheet, kExplanation, under);
    return sheet;
}

SheetSeries CalibrationSheets(SettingsStore& store, int tabType, std::string_view layout) {
    return OneSheet(kTitle, tabType, layout, [&store, tabType, layout = std::string(layout)](Sheet& sheet) {
        sheet = LayOutCalibrationSheet(store, tabType, layout);
    });
}

std::optional<std::string> PrintCalibrationSheet(PrintModule& print) {
    const DocumentSetup& setup = print.main.document.setup;
    return Send(print, CalibrationSheets(print.main.settings, setup.OptType, setup.StationeryType), kTitle,
                "Called from Sub: PrintCalibrationSheet");
}

std::optional<std::string> PrintCheckSheet(PrintModule& print, const MarginTexts& margins) {
    const DocumentSetup& setup = print.main.document.setup;
    const PageMargins shift = {LayoutTwips(ToDouble(margins.left)), LayoutTwips(ToDouble(margins.top))};
    const auto layOut = [&](Sheet& sheet) {
        sheet = LayOutOutlines(print.main.settings, setup.OptType, setup.StationeryType, shift);
        AddExplanation(sheet, kCheckExplanation, sheet.tabs[static_cast<std::size_t>(setup.ColsPerPage)]);
    };
    return Send(print, OneSheet(kCheckTitle, setup.OptType, setup.StationeryType, layOut), kCheckTitle,
                "Called from Sub: PrintCheckSheet");
}

} // namespace velmora
