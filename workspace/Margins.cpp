#include "workspace/Margins.h"

#include "base/Numbers.h"
#include "workspace/DocumentStatus.h"
#include "workspace/TakePageBack.h"

#include <algorithm>
#include <array>

namespace velmora {
namespace {

struct LayoutMargins {
    std::string_view layout;
    std::string_view displayName;
    SettingKey left; ///< millimetres, like the top
    SettingKey top;
};

constexpr std::array<LayoutMargins, 4> kLayouts = {{
    {"A4_8",
     "A4 (8 rows)",
     {kMarginSection, "Default Left Margin - A4_8", "0", IsNumeric},
     {kMarginSection, "Default Top Margin - A4_8", "0", IsNumeric}},
    {"A4_9",
     "A4 (9 rows)",
     {kMarginSection, "Default Left Margin - A4_9", "0", IsNumeric},
     {kMarginSection, "Default Top Margin - A4_9", "0", IsNumeric}},
    {"DL_v",
     "DL_v",
     {kMarginSection, "Default Left Margin - DL_v", "0", IsNumeric},
     {kMarginSection, "Default Top Margin - DL_v", "0", IsNumeric}},
    {"DL_h",
     "DL_h",
     {kMarginSection, "Default Left Margin - DL_h", "0", IsNumeric},
     {kMarginSection, "Default Top Margin - DL_h", "0", IsNumeric}},
}};

/// nullptr for a combination that does not exist. The layout counts for the DL types only.
const LayoutMargins* FindLayout(int tabType, std::string_view layout) {
    if (!FindTabType(tabType))
        return nullptr;
    if (tabType <= 3)
        return &kLayouts[static_cast<std::size_t>(tabType) / 2];
    const auto row = std::find_if(kLayouts.begin() + 2, kLayouts.end(),
                                  [&](const LayoutMargins& candidate) { return candidate.layout == layout; });
    return row == kLayouts.end() ? nullptr : &*row;
}

std::string WholeMillimetres(SettingsStore& store, const SettingKey& key) {
    const std::string stored = Probe(store, key).value_or("");
    return std::to_string(IsNumeric(stored) ? ToInt16(ToDouble(stored)) : 0);
}

// Of each printer and each of kLayouts, whose names stand in the keys.
constexpr std::string_view kLayoutPlace = "LAYOUT", kPrinterPlace = "PRINTER";
constexpr SettingKey kPrinterLeft = {kMarginSection, "Left Margin - LAYOUT - PRINTER", "0", IsNumeric};
constexpr SettingKey kPrinterTop = {kMarginSection, "Top Margin - LAYOUT - PRINTER", "0", IsNumeric};

/// What would end a key in the file, or start an escape, as "%3D".
std::string Escaped(std::string_view name) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string text;
    for (const char c : name) {
        const auto code = static_cast<unsigned char>(c);
        if (c == '=' || c == '%' || code < ' ')
            text.append({'%', kDigits[code / 16], kDigits[code % 16]});
        else
            text += c;
    }
    return text;
}

/// The name of the printer's own key.
std::string KeyOf(const SettingKey& row, std::string_view layout, std::string_view printer) {
    std::string key(row.key);
    key.replace(key.find(kPrinterPlace), kPrinterPlace.size(), Escaped(printer));
    return key.replace(key.find(kLayoutPlace), kLayoutPlace.size(), layout);
}

std::optional<std::string> ProbeNumber(SettingsStore& store, const std::string& key) {
    auto text = Probe(store, {kMarginSection, key});
    return text && IsNumeric(*text) ? text : std::nullopt;
}

bool IsSame(const std::string& a, const std::string& b) {
    return IsNumeric(a) && IsNumeric(b) ? ToDouble(a) == ToDouble(b) : a == b;
}

/// The printer's, where they are not the document's.
std::optional<MarginTexts> OtherMargins(MainModule& main) {
    auto margins = PrinterMargins(main.settings, main.globals.PrinterName, main.document.setup);
    return margins && !SameMargins(*margins, ActiveMargins(main.settings)) ? margins : std::nullopt;
}

} // namespace

MarginTexts ActiveMargins(SettingsStore& store) {
    return {Probe(store, kMarginLeft).value_or("0"), Probe(store, kMarginTop).value_or("0")};
}

void UseMargins(SettingsStore& store, const MarginTexts& margins) {
    if (SameMargins(margins, ActiveMargins(store)))
        return;
    const SettingsBatch batch(store);
    Write(store, kMarginLeft, margins.left);
    Write(store, kMarginTop, margins.top);
}

bool SameMargins(const MarginTexts& a, const MarginTexts& b) {
    return IsSame(a.left, b.left) && IsSame(a.top, b.top);
}

std::string MarginsInWords(const MarginTexts& margins) {
    return "left " + margins.left + ", top " + margins.top + " mm";
}

std::string LayoutDisplayName(std::string_view layout, int tabType) {
    const LayoutMargins* row = FindLayout(tabType, layout);
    return std::string(row ? row->displayName : "");
}

bool DefaultMarginsExist(SettingsStore& store, int tabType, std::string_view layout) {
    const LayoutMargins* row = FindLayout(tabType, layout);
    if (!row)
        return FindTabType(tabType) != nullptr;
    return Probe(store, row->left) && Probe(store, row->top);
}

MarginTexts LoadDefaultMargins(SettingsStore& store, int tabType, std::string_view layout) {
    const LayoutMargins* row = FindLayout(tabType, layout);
    if (!row)
        return {};
    return {WholeMillimetres(store, row->left), WholeMillimetres(store, row->top)};
}

bool SaveDefaultMargins(SettingsStore& store, int tabType, std::string_view layout, const MarginTexts& margins) {
    const LayoutMargins* row = FindLayout(tabType, layout);
    const bool left = row && Write(store, row->left, margins.left);
    return left && Write(store, row->top, margins.top);
}

void ApplyDefaultMargins(SettingsStore& store, int tabType, std::string_view layout) {
    const MarginTexts margins = LoadDefaultMargins(store, tabType, layout);
    const SettingsBatch batch(store);
    Write(store, kMarginLeft, margins.left);
    Write(store, kMarginTop, margins.top);
}

std::optional<MarginTexts> PrinterMargins(SettingsStore& store, const std::string& printer,
                                          const DocumentSetup& setup) {
    const LayoutMargins* row = FindLayout(setup.OptType, setup.LayoutName);
    if (!row || printer.empty())
        return std::nullopt;
    const auto left = ProbeNumber(store, KeyOf(kPrinterLeft, row->layout, printer));
    const auto top = ProbeNumber(store, KeyOf(kPrinterTop, row->layout, printer));
    return left && top ? std::optional(MarginTexts{*left, *top}) : std::nullopt;
}

void RememberPrinterMargins(SettingsStore& store, const std::string& printer, const DocumentSetup& setup,
                            const MarginTexts& margins) {
    const LayoutMargins* row = FindLayout(setup.OptType, setup.LayoutName);
    if (!row || printer.empty() || !IsNumeric(margins.left) || !IsNumeric(margins.top))
        return;
    const SettingsBatch batch(store);
    SaveSetting(store, kMarginSection, KeyOf(kPrinterLeft, row->layout, printer), margins.left);
    SaveSetting(store, kMarginSection, KeyOf(kPrinterTop, row->layout, printer), margins.top);
}

MarginTexts StartingMargins(SettingsStore& store, const std::string& printer, const DocumentSetup& setup) {
    const auto margins = PrinterMargins(store, printer, setup);
    return margins ? *margins : LoadDefaultMargins(store, setup.OptType, setup.LayoutName);
}

void TellOtherMargins(MainModule& main) {
    if (const auto margins = OtherMargins(main))
        main.status->Tell({.text = "Margins " + MarginsInWords(ActiveMargins(main.settings)) + "; " +
                                   main.globals.PrinterName + ": " + MarginsInWords(*margins),
                           .printerMargins = true});
}

void TakePrinterMargins(MainModule& main) {
    const auto margins = OtherMargins(main);
    if (!margins)
        return;
    TakePageBack(main);
    {
        const UndoStep step(main.history, main.State(), "Printer's Margins");
        UseMargins(main.settings, *margins);
    }
    RefreshDocumentStatus(main);
    ShowCurrentTab(main);
    main.status->Tell({"Margins of " + main.globals.PrinterName + ": " + MarginsInWords(*margins), true});
}

bool SetupComplete(SettingsStore& store) {
    const SettingKey* const needed[] = {&kPrinter, &kStationeryType, &kPageSize, &kOptType};
    return std::none_of(std::begin(needed), std::end(needed),
                        [&](const SettingKey* key) { return Probe(store, *key).value_or("").empty(); });
}

bool MarginsReady(const MainModule& main) {
    return DefaultMarginsExist(main.settings, main.document.setup.OptType, main.document.setup.LayoutName);
}

} // namespace velmora
