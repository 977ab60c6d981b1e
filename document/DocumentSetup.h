// What a page set-up chooses for a tab document, and what follows from it: no texts, so that a draft, the status line,
// undo and the checks can hold one of their own.
#pragma once

#include "document/Stationery.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace velmora {

/// Most characters that may be typed into each field; 0 for a field that is not in use.
struct FieldLimits {
    std::int16_t MaxLenField1 = 20;
    std::int16_t MaxLenField2 = 0;
    std::int16_t MaxLenField3 = 0;

    /// Of field 0, 1 or 2.
    std::size_t Of(int field) const {
        return static_cast<std::size_t>(field == 0 ? MaxLenField1 : field == 1 ? MaxLenField2 : MaxLenField3);
    }
    bool operator==(const FieldLimits&) const = default;
};

struct DocumentSetup {
    // Chosen.
    std::int16_t OptType = 0;    ///< tab type, 0 to 5
    std::int16_t NoOfFields = 1; ///< in use per tab, 1 to 3
    std::string StationeryType;  ///< stationery and layout: "A4", "DL_v" or "DL_h"; empty before the first load

    // What follows.
    std::string PageSize;   ///< sheet: "A4" or "DL"
    std::string LayoutName; ///< margin layout: "A4_8", "A4_9", "DL_v" or "DL_h"
    std::int16_t TabsPerPage = 0;
    std::int16_t RowsPerPage = 0;
    std::int16_t ColsPerPage = 0;
    GridGeometry Grid;
    FieldLimits Limits;

    bool operator==(const DocumentSetup&) const = default;
};

/// Sets `TabsPerPage`; no effect for an `OptType` outside 0 to 5.
void SetTabsPerPage(DocumentSetup& setup);
/// Sets `RowsPerPage` and `PageSize`; no effect outside 0 to 5.
void SetRowsAndStationery(DocumentSetup& setup, int optType);
/// Sets `ColsPerPage`; no effect outside 0 to 5.
void SetColsPerPage(DocumentSetup& setup, int optType);
/// Sets `LayoutName` and `StationeryType` to a layout of the tab type: a DL type keeps the DL layout that it has.
void SetLayoutFromType(DocumentSetup& setup);
/// Sets the limits that go with `NoOfFields`.
void SetFieldLimits(DocumentSetup& setup);

} // namespace velmora
