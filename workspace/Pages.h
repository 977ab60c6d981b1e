// Pages of the document: moving between them, adding and deleting one, and cleaning out empty tabs. Each operation
// first takes the page on screen into the document and afterwards shows the current page.
#pragma once

#include "workspace/mdlMain.h"

#include <cstdint>

namespace velmora {

/// `page` from 1 to `NoOfPages`.
void ShowPage(MainModule& main, std::int16_t page);
void FirstPage(MainModule& main);
void LastPage(MainModule& main);
/// At the last page it offers to add one.
void NextPage(MainModule& main);
void PreviousPage(MainModule& main);

/// Appends one empty page and shows it. A page that would take the document beyond kMostTabs is reported, and nothing
/// changes.
void AddPage(MainModule& main);
/// Says how many pages of that many tabs a document holds at most.
void TellMostPages(UserInterface& ui, std::int16_t tabsPerPage);
/// Removes the current page, after a question where the configuration asks for one, and shows the page before it. The
/// only page stays.
void DeletePage(MainModule& main);
/// Deletes the tabs whose fields in use are all blank and closes the gaps; at least one page stays.
void CleanLabels(MainModule& main);

/// The end of an operation that changed pages, the page count perhaps too, within its UndoStep: the document is marked
/// as changed, "No Of Pages" stored, and status and editor show `CurrentPage`.
void ShowChangedPages(MainModule& main);

/// Takes the last change of the document back, and shows the page where it was made; no effect when there is none.
void UndoChange(MainModule& main);
void RedoChange(MainModule& main);

} // namespace velmora
