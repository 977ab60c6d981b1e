// The tab report: turns the tabs of a document into placed texts, one sheet of stationery at a time.
#pragma once

#include "document/FontSettings.h"
#include "document/TabDocument.h"
#include "platform/PrintSystem.h"
#include "report/LabelPlan.h"
#include "report/Sheet.h"
#include "settings/mdlSettings.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// Layout values that outlive a report: an unknown tab style keeps those of the run before. Twips unless named Mm.
struct LayoutValues {
    double TabTop = 0;  ///< from the top of a row to the top of field 1
    double TabLeft = 0; ///< left edge of the fields within a column
    double TextBandMm = 10;
    double TextBandRefMm = 10; ///< what TextBandMm is compared with
    double TextBand = 0;
    double ColumnWidth = 0;
    double FieldGap = 0; ///< taken off a field's width where two fields share a line
    double RowHeight = 0;
};

/// Left and top page margin; they shift the whole grid.
struct PageMargins {
    double left = 0; ///< twips
    double top = 0;  ///< twips
};

/// One page margin in twips, from a setting in millimetres. Raises TypeMismatchError for what is no number.
double ReadPageMargin(SettingsStore& store, const SettingKey& key);
/// From "Margin Value Left" and "Margin Value Top" (millimetres). Raises TypeMismatchError for what is no number.
PageMargins ReadPageMargins(SettingsStore& store);

/// The paper of a stationery ("A4" or "DL") in a layout ("A4", "DL_v" or "DL_h"; any other is turned).
Paper SheetPaper(std::string_view stationery, std::string_view layout);
/// Of a document.
Paper SheetPaper(const DocumentSetup& setup);

/// The printer that a report goes to; codes are those of the printing system that the settings come from.
struct ReportPrinter {
    std::string DeviceName;
    std::int16_t PrintQuality = 0; ///< -4: high
    std::int16_t PaperSize = 0;    ///< 9: A4, 27: DL; 0: the printer's own
    Orientation Orient = Orientation::Portrait;
};

/// Built for one run and then dropped. Order of use: InitArray, PrepareTabStyle, FormatFields, SetPage, then the
/// sheets. The texts of a sheet belong to the document, which must not change meanwhile.
class rptVelmor {
public:
    explicit rptVelmor(LayoutValues& layout) : layout_(layout) {}

    /// Builds the tab array from the document, or from the page shown alone (`pageOnly`), or with the fixed texts of
    /// the test page (mode "TEST"). Raises SubscriptError when `count` is less than 1 or no whole number of pages, and
    /// OverflowError above kMostTabs.
    ///
    /// Tabs that `labels` chooses alone are those of the whole document. Around used labels the tabs flow onto one
    /// sheet more only where there is something to put on it. Raises what FlowTabs raises, and SubscriptError for a tab
    /// that the document does not have.
    void InitArray(std::string_view mode, std::int32_t count, std::int16_t rows, std::int16_t cols,
                   std::int16_t numFields, bool pageOnly, const TabDocument& document, const LabelChoice& labels = {});
    /// Sets the layout values of tab style 0 to 5; any other keeps those of the run before, the row height apart.
    /// Raises TypeMismatchError when a stored tab top is no number.
    void PrepareTabStyle(std::int16_t style, SettingsStore& store);
    /// Places the fields in use within a row and a column.
    void FormatFields(std::int16_t numFields, std::int16_t cols, std::int16_t style, const FontSettings& fonts);
    void SetPage(const Paper& paper, const PageMargins& margins);

    const Paper& PagePaper() const { return paper_; }

    /// The fields in use, without texts, each from its box's own corner.
    std::vector<PlacedText> FieldsOfTab() const;

    int SheetCount() const;
    /// The numbers of the sheets whose tabs are not all empty.
    std::vector<int> FilledSheets() const;
    /// Lays out sheet `number`, counted from 1; `sheet` is reused, so that one sheet is in memory at a time. It holds
    /// exactly rows x columns tabs whatever the margins are: the paper's edge cuts what lies outside.
    void LayOutSheet(int number, Sheet& sheet);

    ReportPrinter Printer;

    // The engine's own steps, in the order in which a run takes them.
    void ActiveReport_DataInitialize();
    void ActiveReport_FetchData(bool& endOfData);

private:
    struct Record {
        std::array<std::string_view, kFieldsPerTab> fields;
        std::int32_t tab = 0;

        bool IsEmpty() const;
    };

    std::size_t PerSheet() const { return static_cast<std::size_t>(rows_ * cols_); }
    void DropEmptyEnd(std::size_t tabs);
    void FillRecord(std::size_t index, std::string_view mode, const TabDocument& document, std::int32_t tab);
    void PlaceTwoLines(std::int16_t numFields);
    void PlaceRecord(Sheet& sheet, double left, double top) const;

    LayoutValues& layout_;
    std::vector<Record> tabs_;
    std::int16_t rows_ = 0;
    std::int16_t cols_ = 0;
    std::int16_t numFields_ = 0;
    Paper paper_;
    PageMargins margins_;

    std::array<Box, kFieldsPerTab> fields_; ///< fldField1 to fldField3; no width: hidden
    std::array<std::int16_t, kFieldsPerTab> alignments_ = {};

    std::size_t current_ = 0; ///< index of the next record
    Record record_;           ///< "Field1" to "Field3" of the record fetched last
};

} // namespace velmora
