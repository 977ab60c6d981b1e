// Chief header of the document's procedures: the state that the whole program shares, made once by each program and
// passed by reference, and the loading and saving of the global configuration.
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
#include "workspace/MainWindowStatus.h"

namespace velmora {

class ImportDialogs;
class RecoveryStore;
class UndoHistory;

struct MainModule {
    SettingsStore& settings;
    UserInterface& ui;
    PrintSystem& printers;
    SpreadsheetApplication& spreadsheets;
    TabDocument document;
    GlobalConfiguration globals;
    FontSettings fonts;
    GridEditor* editor = nullptr;       ///< set while a main window lives
    MainWindowStatus* status = nullptr; ///< set while a main window lives
    ImportDialogs* dialogs = nullptr;   ///< set while a main window lives
    UndoHistory* history = nullptr;     ///< without one nothing can be undone
    RecoveryStore* recovery = nullptr;  ///< without one nothing outlives a crash
    int openTransactions = 0;           ///< above 0 the document may be half changed
    bool recoveryFailureShown = false;  ///< a copy that cannot be written is reported once
    const Drives* drives = nullptr;     ///< without them no search of the machine is offered
    bool pictureSearchGivenUp = false;  ///< in this run
};

enum class LoadOutcome { Loaded, NoPrinter };

/// Fills globals, the document's properties and the fonts from the settings. Chooses the store first: without an INI
/// file, settings of an older installation are moved into it. NoPrinter: the machine has none, the person was told,
/// and the program must end.
LoadOutcome LoadGlobals(MainModule& main);
/// A stored printer that this machine does not have becomes none, so that its default printer is taken: after settings
/// came from another machine.
void ForgetMissingPrinter(MainModule& main);
/// Writes globals and the document's properties.
void SaveGlobals(MainModule& main);

/// Makes the document whole pages of its tab type, and saves the page count and the global configuration. Raises
/// OverflowError, with everything as it was, when the document grows beyond 32767 tabs.
void ApplyTabType(MainModule& main);

/// Replaces the document by one empty page of the current tab type.
void NewDocument(MainModule& main);

/// Copies the page that the editor shows into the document, tabs (page - 1) x tabsPerPage + 1 onward; fields not in use
/// keep their texts.
void SaveLabel(MainModule& main, std::int16_t page, std::int16_t tabsPerPage);

/// Writes the five status panels.
void ShowDocumentStatus(MainModule& main);
/// The same for choices that the document does not have yet.
void ShowDocumentStatus(MainModule& main, const DocumentSetup& draft);
/// Reads the tab type anew, and the document's properties on the first call after start-up; then shows the status.
void RefreshDocumentStatus(MainModule& main);
/// Panel 5 while a tab has the focus.
void ShowCurrentTab(MainModule& main);
/// The document's path, or "Untitled".
std::string DocumentCaption(const TabDocument& document);
/// The application name with the document's name in brackets.
void ShowCaption(MainModule& main);

} // namespace velmora
