// Documents that tests begin with.
#pragma once

#include "workspace/Globals.h"
#include "workspace/ReplaceDocument.h"
#include "workspace/mdlMain.h"

#include <functional>

namespace velmora {

/// Whole pages of a tab type, unchanged, on their first page. `text` of field 0 to 2 and a tab from 1.
inline void MakePages(MainModule& main, int pages, int fields, int type,
                      const std::function<std::string(int field, int tab)>& text) {
    TabDocument& document = main.document;
    LoadGlobals(main);
    document.setup.NoOfFields = static_cast<std::int16_t>(fields);
    document.setup.OptType = static_cast<std::int16_t>(type);
    SetLayoutFromType(document.setup);
    NewDocument(main);
    document.TabCount = pages * document.setup.TabsPerPage;
    for (int field = 0; field < kFieldsPerTab; ++field) {
        document.Field(field).ReDim(document.TabCount);
        for (int tab = 1; tab <= document.TabCount; ++tab)
            document.Field(field)(tab) = text(field, tab);
    }
    ApplyTabType(main);
    document.DocChanged = false;
}

} // namespace velmora
