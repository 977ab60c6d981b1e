#include "report/rptVelmor.h"

#include "base/Error.h"
#include "base/Numbers.h"
#include "report/Twips.h"
#include "settings/GlobalConfiguration.h"

#include <algorithm>
#include <functional>

namespace velmora {
namespace {

constexpr std::size_t kTabStyles = 6;
constexpr double kGapOfStyle5 = LayoutTwips(2);

struct TabStyle {
    SettingKey tabTop; ///< millimetres
    double columnWidth = 0;
    double fieldGap = 0;
};

// Styles 0 to 3 share one key: a stored value overrides both defaults.
const std::array<TabStyle, kTabStyles> kStyles = {{
    {{"Settings", "Tab Top A4_1", "23", IsAnyText}, 3402.0, 0},
    {{"Settings", "Tab Top A4_1", "23", IsAnyText}, 1701.0, 0},
    {{"Settings", "Tab Top A4_1", "20", IsAnyText}, 3402.0, 0},
    {{"Settings", "Tab Top A4_1", "20", IsAnyText}, 1701.0, 0},
    {{"Settings", "Tab Top DL_1", "21", IsAnyText}, 1644.3, 0},
    {{"Settings", "Tab Top DL_2", "21", IsAnyText}, 2891.7, kGapOfStyle5},
}};

constexpr std::array<std::string_view, kFieldsPerTab> kTestTexts = {"Field 1", "Field 2", "Field 3"};

/// Raises TypeMismatchError, which names the setting, for what is no number.
double Millimetres(const SettingKey& key, std::string_view text) {
    if (!IsNumeric(text))
        throw TypeMismatchError(std::string(key.key));
    return LayoutTwips(ToDouble(text));
}

/// Only probes for the stored tab top: a default written back by one style would hold for all that share the key.
double TabTopTwips(const SettingKey& key, SettingsStore& store) {
    return Millimetres(key, Probe(store, key).value_or(std::string(key.fallback)));
}

} // namespace

double ReadPageMargin(SettingsStore& store, const SettingKey& key) {
    return Millimetres(key, Read(store, key));
}

PageMargins ReadPageMargins(SettingsStore& store) {
    return {ReadPageMargin(store, kMarginLeft), ReadPageMargin(store, kMarginTop)};
}

Paper SheetPaper(std::string_view stationery, std::string_view layout) {
    const bool portrait = layout == "A4" || layout == "DL_h";
    if (stationery == "A4")
        return {210, 297, !portrait};
    // The grid is wider than a DL sheet's short side: upright, the sheet goes in long edge first.
    return portrait ? Paper{220, 110, false} : Paper{110, 220, true};
}

Paper SheetPaper(const DocumentSetup& setup) {
    return SheetPaper(SetStationeryFromType(setup.OptType), setup.StationeryType);
}

void rptVelmor::InitArray(std::string_view mode, std::int32_t count, std::int16_t rows, std::int16_t cols,
                          std::int16_t numFields, bool pageOnly, const TabDocument& document,
                          const LabelChoice& labels) {
    if (count < 1 || rows < 1 || cols < 1 || count % (rows * cols) != 0)
        throw SubscriptError();
    rows_ = rows;
    cols_ = cols;
    numFields_ = numFields;
    const std::int32_t before = pageOnly ? Multiply16(document.CurrentPage - 1, document.setup.TabsPerPage) : 0;
    const TabNumbers tabs = labels.tabs.empty() ? TabsFrom(before + 1, ToInt16(count)) : labels.tabs;
    ToInt16(static_cast<std::int32_t>(tabs.size()));
    const bool flowing = labels.tabs.empty() || labels.places == TabPlaces::Flowing;
    const LabelPlan plan = flowing ? FlowTabs(tabs, rows * cols, labels.used) : KeepPlaces(tabs, rows * cols);
    tabs_.assign(plan.size(), {});
    for (std::size_t index = 0; index < plan.size(); ++index)
        if (plan[index] > 0)
            FillRecord(index, mode, document, plan[index]);
    if (flowing && !labels.used.empty())
        DropEmptyEnd(tabs.size());
}

/// Of a last sheet that only the used labels brought.
void rptVelmor::DropEmptyEnd(std::size_t tabs) {
    const std::size_t enough = (tabs + PerSheet() - 1) / PerSheet() * PerSheet();
    if (std::all_of(tabs_.begin() + static_cast<std::ptrdiff_t>(enough), tabs_.end(), std::mem_fn(&Record::IsEmpty)))
        tabs_.resize(enough);
}

bool rptVelmor::Record::IsEmpty() const {
    return IsEmptyTab(fields); // those not in use are empty
}

void rptVelmor::FillRecord(std::size_t index, std::string_view mode, const TabDocument& document, std::int32_t tab) {
    tabs_[index].tab = tab;
    if (numFields_ < 1 || numFields_ > kFieldsPerTab)
        return;
    for (std::size_t field = 0; field < static_cast<std::size_t>(numFields_); ++field)
        tabs_[index].fields[field] =
            mode == "TEST" ? kTestTexts[field] : std::string_view(document.Field(static_cast<int>(field))(tab));
}

void rptVelmor::PrepareTabStyle(std::int16_t style, SettingsStore& store) {
    layout_.TabLeft = 0;
    layout_.TextBand = LayoutTwips(layout_.TextBandMm);
    const double correction = LayoutTwips(layout_.TextBandMm - layout_.TextBandRefMm);
    if (style >= 0 && static_cast<std::size_t>(style) < kTabStyles) {
        const TabStyle& row = kStyles[static_cast<std::size_t>(style)];
        layout_.ColumnWidth = row.columnWidth;
        layout_.FieldGap = row.fieldGap;
        layout_.TabTop = TabTopTwips(row.tabTop, store) - (style == 5 ? correction / 2 : 0);
    }
    layout_.RowHeight = layout_.TextBand + layout_.TabTop - correction;
}

void rptVelmor::FormatFields(std::int16_t numFields, std::int16_t cols, std::int16_t /*style*/,
                             const FontSettings& fonts) {
    cols_ = cols;
    fields_ = {};
    for (std::size_t field = 0; field < fonts.size(); ++field)
        alignments_[field] = fonts[field].HorizontalAlignment;
    if (numFields == 1)
        fields_[0] = {layout_.TabLeft, layout_.RowHeight - LayoutTwips(layout_.TextBandMm), layout_.ColumnWidth,
                      layout_.TextBand};
    else
        PlaceTwoLines(numFields);
}

void rptVelmor::PlaceTwoLines(std::int16_t numFields) {
    const double correction = LayoutTwips((layout_.TextBandMm - layout_.TextBandRefMm) / 2);
    Box& first = fields_[0];
    Box& second = fields_[1];
    Box& third = fields_[2];
    first = {layout_.TabLeft, layout_.TabTop, layout_.ColumnWidth, layout_.TextBand / 2};
    second = {first.left, first.Bottom() - correction, first.width, first.height};
    if (numFields < 3)
        return;
    second.width = first.width / 2 - layout_.FieldGap;
    third = {second.Right(), second.top, layout_.ColumnWidth - second.width - layout_.FieldGap, first.height};
    // Deliberate: the third field ends at the tab's right edge, whatever its own setting says.
    alignments_[2] = kAlignRight;
}

void rptVelmor::SetPage(const Paper& paper, const PageMargins& margins) {
    paper_ = paper;
    margins_ = margins;
}

std::vector<PlacedText> rptVelmor::FieldsOfTab() const {
    std::vector<PlacedText> fields;
    for (std::size_t field = 0; field < fields_.size(); ++field)
        if (fields_[field].width > 0)
            fields.push_back(
                {{}, {0, 0, fields_[field].width, fields_[field].height}, static_cast<int>(field), alignments_[field]});
    return fields;
}

int rptVelmor::SheetCount() const {
    return static_cast<int>(tabs_.size()) / (rows_ * cols_);
}

std::vector<int> rptVelmor::FilledSheets() const {
    std::vector<int> sheets;
    const int perSheet = rows_ * cols_;
    for (int sheet = 1; sheet <= SheetCount(); ++sheet) {
        const auto first = tabs_.begin() + static_cast<std::ptrdiff_t>(sheet - 1) * perSheet;
        if (!std::all_of(first, first + perSheet, std::mem_fn(&Record::IsEmpty)))
            sheets.push_back(sheet);
    }
    return sheets;
}

void rptVelmor::LayOutSheet(int number, Sheet& sheet) {
    if (number < 1 || number > SheetCount())
        throw SubscriptError();
    sheet.paper = paper_;
    sheet.texts.clear();
    sheet.tabs.clear();
    sheet.fields.clear();
    ActiveReport_DataInitialize();
    current_ = static_cast<std::size_t>(number - 1) * static_cast<std::size_t>(rows_ * cols_);
    bool endOfData = false;
    for (int row = 0; row < rows_; ++row) {
        for (int column = 0; column < cols_; ++column) {
            ActiveReport_FetchData(endOfData);
            PlaceRecord(sheet, margins_.left + column * layout_.ColumnWidth, margins_.top + row * layout_.RowHeight);
        }
    }
}

void rptVelmor::ActiveReport_DataInitialize() {
    record_ = {};
    current_ = 0;
}

void rptVelmor::ActiveReport_FetchData(bool& endOfData) {
    endOfData = current_ >= tabs_.size();
    if (!endOfData)
        record_ = tabs_[current_++];
}

void rptVelmor::PlaceRecord(Sheet& sheet, double left, double top) const {
    sheet.tabs.push_back({left, top + layout_.TabTop, layout_.ColumnWidth, layout_.TextBand});
    for (std::size_t field = 0; field < fields_.size(); ++field) {
        if (fields_[field].width <= 0)
            continue;
        const Box box = fields_[field].Moved(left, top);
        sheet.fields.push_back(box);
        if (!record_.fields[field].empty())
            sheet.texts.push_back({record_.fields[field], box, static_cast<int>(field), alignments_[field], record_.tab,
                                   static_cast<int>(sheet.tabs.size())});
    }
}

} // namespace velmora
