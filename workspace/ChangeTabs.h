// What all commands on marked tabs and whole pages have in common: one step of undo, whatever it changes, and the
// editor in step with the document.
#pragma once

#include "document/TabOrder.h"
#include "workspace/mdlMain.h"

#include <functional>
#include <string>

namespace velmora {

/// What the editor has marked, its page taken back; empty without an editor.
TabNumbers TakeMarkedTabs(MainModule& main);
/// True for a document of that many tabs; else the most pages are told.
bool HasRoomFor(MainModule& main, std::size_t tabs);

struct TabChange {
    std::string name; ///< of the step, as it follows "Undo"
    std::string done; ///< as the status line says it: "48 tabs sorted"
};

/// The step `name` on so many tabs: "48 tabs sorted".
TabChange ChangeOf(std::size_t tabs, const char* name, const char* done);

/// Runs `change`, which keeps the document's invariants, as one step, with a recovery copy before it where it
/// `losesTexts`; then `marked`, at least one, are marked and the first of them is the tab in use. The page on screen
/// was taken back before.
void ChangeTabs(MainModule& main, const TabChange& what, const TabNumbers& marked, bool losesTexts,
                const std::function<void(TabDocument&)>& change);
/// The same for another order, whose last page is filled here. One that is too long is told, and nothing changes; one
/// that changes nothing is told in the status line.
void Rearrange(MainModule& main, const TabChange& what, TabOrder order, const TabNumbers& marked);

} // namespace velmora
