#include "workspace/RestoreDocument.h"

#include "base/Paths.h"
#include "document/TabFile.h"
#include "workspace/LoadDocument.h"
#include "workspace/Recovery.h"
#include "workspace/ReplaceDocument.h"

#include <algorithm>

namespace velmora {
namespace {

void TakeTexts(TabDocument& document, const RecoveryCopy& copy) {
    auto text = copy.texts.begin();
    for (std::int32_t tab = 1; tab <= copy.tabs; ++tab)
        for (int field = 0; field < kFieldsPerTab; ++field)
            document.Field(field)(tab) = *text++;
}

} // namespace

LoadOutcome LoadCopy(MainModule& main, const RecoveryCopy& copy) {
    TabFile file = ParseTabFile(std::string(copy.header));
    if (!file.header)
        throw Error("The recovery copy has no header");
    // Whole pages of empty tabs first; their texts may hold what a tab file can't.
    file.tabsAt = file.text.size();
    file.lines = kHeaderLines + std::max(1, copy.tabs);
    if (LoadDocument(main, file) == LoadOutcome::NoPrinter)
        return LoadOutcome::NoPrinter;
    TabDocument& document = main.document;
    TakeTexts(document, copy);
    document.CurrentPage = std::clamp<std::int16_t>(copy.page, 1, document.NoOfPages);
    document.DocFileName = copy.path;
    document.Foreign = copy.foreign;
    document.ForeignFindings.clear();
    document.FileEncoding = copy.encoding;
    document.Stamp = copy.stamp;
    document.DocChanged = true;
    return LoadOutcome::Loaded;
}

LoadOutcome RestoreDocument(MainModule& main, const RecoveredDocument& recovered) {
    const auto bytes = main.recovery.Read(recovered); // whole, before the archive moves on
    const auto copy = bytes ? ParseRecoveryCopy(*bytes) : std::nullopt;
    if (!copy)
        throw Error("The recovery copy is gone or damaged: " + PathText(recovered.File));
    const LoadOutcome outcome = ReplaceDocument(main, [&] { return LoadCopy(main, *copy); });
    // First a copy of this program's own: among the last ten it would be the next to go.
    if (outcome == LoadOutcome::Loaded && KeepRecoveryCopy(main))
        main.recovery.Settle(recovered);
    return outcome;
}

} // namespace velmora
