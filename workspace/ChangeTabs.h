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

/// Runs `change`, which keeps the document's invariants, as the step `name`, with a recovery copy before it where it
/// `losesTexts`; then `marked`, at least one, are marked and the first of them is the tab in use. The page on screen
/// was taken back before.
void ChangeTabs(MainModule& main, const std::string& name, const TabNumbers& marked, bool losesTexts,
                const std::function<void(TabDocument&)>& change);
/// The same for another order, whose last page is filled here. One that is too long is told, and nothing changes; one
/// that changes nothing has no effect.
void Rearrange(MainModule& main, const std::string& name, TabOrder order, const TabNumbers& marked);

} // namespace velmora
