#include "document/DocumentSetup.h"

namespace velmora {

void SetTabsPerPage(DocumentSetup& setup) {
    GetTabsPerPage(setup.OptType, setup.TabsPerPage);
}

void SetRowsAndStationery(DocumentSetup& setup, int optType) {
    if (const TabType* type = FindTabType(optType)) {
        setup.RowsPerPage = type->rows;
        setup.PageSize = type->stationery;
    }
}

void SetColsPerPage(DocumentSetup& setup, int optType) {
    if (const TabType* type = FindTabType(optType))
        setup.ColsPerPage = type->columns;
}

void SetLayoutFromType(DocumentSetup& setup) {
    if (setup.OptType >= 4) {
        setup.LayoutName = setup.StationeryType.starts_with("DL") ? setup.StationeryType : "DL_v";
        setup.StationeryType = setup.LayoutName;
    } else {
        setup.LayoutName = setup.OptType <= 1 ? "A4_8" : "A4_9";
        setup.StationeryType = "A4";
    }
}

void SetFieldLimits(DocumentSetup& setup) {
    switch (setup.NoOfFields) {
    case 1: setup.Limits = {20, 0, 0}; break;
    case 2: setup.Limits = {20, 20, 0}; break;
    default: setup.Limits = {20, 10, 10}; break;
    }
}

} // namespace velmora
