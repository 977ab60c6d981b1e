// Chief header of the procedures on a document: the state that the whole program shares, made once by each program and
// passed by reference.
#pragma once

#include "document/FontSettings.h"
#include "document/TabDocument.h"
#include "platform/Drives.h"
#include "platform/PrintSystem.h"
#include "platform/UserInterface.h"
#include "settings/GlobalConfiguration.h"
#include "settings/mdlSettings.h"
#include "workbook/SpreadsheetApplication.h"
#include "workspace/GridEditor.h"
#include "workspace/ImportDialogs.h"
#include "workspace/MainWindowStatus.h"
#include "workspace/RecoveryStore.h"
#include "workspace/Seat.h"
#include "workspace/Undo.h"

namespace velmora {

struct MainModule {
    SettingsStore& settings;
    UserInterface& ui;
    PrintSystem& printers;
    SpreadsheetApplication& spreadsheets;
    TabDocument document{};
    GlobalConfiguration globals{};
    FontSettings fonts{};
    UndoHistory history{};    ///< keeps no steps before KeepSteps
    RecoveryStore recovery{}; ///< keeps no copies before Open
    Seat<GridEditor> editor{};
    Seat<MainWindowStatus> status{};
    Seat<ImportDialogs> dialogs{};
    Seat<Drives> drives{};
    std::string language = "und"; ///< the person's, as RFC 5646 writes it; "und": not known

    /// What steps of undo record and restore.
    UndoState State() { return {document, fonts, settings}; }
};

} // namespace velmora
