// What the main window says of the document: five panels and the caption.
#pragma once

#include "workspace/mdlMain.h"

#include <filesystem>
#include <string>

namespace velmora {

/// Writes the five status panels.
void ShowDocumentStatus(MainModule& main);
/// The same for choices that the document does not have yet.
void ShowDocumentStatus(MainModule& main, const DocumentSetup& setup);
/// Reads the tab type anew, and the document's properties on the first call after start-up; then shows the status.
void RefreshDocumentStatus(MainModule& main);
/// Panel 5 while a tab has the focus.
void ShowCurrentTab(MainModule& main);
/// The document's path, or "Untitled".
std::string DocumentCaption(const TabDocument& document);
/// The application name with the document's name in brackets.
void ShowCaption(MainModule& main);

} // namespace velmora
