#include "workspace/LoadDocument.h"

#include "base/Text.h"
#include "workspace/Dialogs.h"

namespace velmora {
namespace {

void TakeHeader(MainModule& main, const TabFile& file) {
    LoadData(file, main.settings);
}

/// A sheet's header comes in capitals: an installed printer gets its own name back.
void TakeHeader(MainModule& main, const Worksheet& sheet) {
    LoadData(sheet, main.settings);
    if (!sheet.header)
        return;
    try {
        for (const std::string& name : main.printers.Printers())
            if (EqualsNoCase(name, sheet.header->printer))
                Write(main.settings, kPrinter, name);
    } catch (const PrinterError&) {} // which are installed cannot be known
}

/// `Source` is a TabFile or a Worksheet.
template <typename Source> LoadOutcome Load(MainModule& main, const Source& source) {
    TabDocument& document = main.document;
    TakeHeader(main, source);
    if (LoadGlobals(main) == LoadOutcome::NoPrinter)
        return LoadOutcome::NoPrinter;
    SetLayoutFromType(document.setup);
    SetFieldLimits(document.setup);
    SetTabsPerPage(document.setup);
    {
        const auto progress = main.ui.StartProgress("Calculating the number of labels.  Please standby...", 1);
        document.TabCount = GetNumberOfLables(source, source.header ? -kHeaderLines : 0, document, main.settings);
    }
    document.CurrentPage = 1;
    document.CurrentTab = 0;
    if (document.TabCount > 0)
        LoadRows(source, document, main.ui);
    else
        Tell(main.ui, "There are no information to import.");
    document.FileEncoding = source.encoding;
    ApplyTabType(main);
    return LoadOutcome::Loaded;
}

} // namespace

LoadOutcome LoadDocument(MainModule& main, const TabFile& file) {
    return Load(main, file);
}

LoadOutcome LoadDocument(MainModule& main, const Worksheet& sheet) {
    return Load(main, sheet);
}

} // namespace velmora
