// The start page of an empty, untitled document: whether it comes up, and what a stationery chosen there does.
#pragma once

#include "workspace/mdlMain.h"

namespace velmora {

/// True until a person has switched it off; writes nothing.
bool WantsStartPage(SettingsStore& store);
/// No effect where it is so already.
void KeepStartPage(SettingsStore& store, bool wanted);

/// Gives the document that tab type, 0 to 5, and 1 to 3 fields as OK in the page set-up would. False after an error,
/// which was shown and left everything as it was.
bool BeginDocument(MainModule& main, int type, int fields);
/// The same with the tab type that is there. It leaves nothing to save where there was nothing: so far only the page's
/// fields were chosen, and whoever ends the program then is asked nothing.
void BeginWithFields(MainModule& main, int fields);

} // namespace velmora
