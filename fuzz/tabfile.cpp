// A tab file: what was read is written, and comes back the same.
#include "batch/BatchProgram.h"
#include "document/TabFileCheck.h"
#include "document/TabFileForm.h"
#include "fuzz/Fuzz.h"
#include "workspace/OpenDocument.h"

using namespace velmora;

namespace {

bool SameTexts(const TabDocument& a, const TabDocument& b) {
    return a.FieldA == b.FieldA && a.FieldB == b.FieldB && a.FieldC == b.FieldC;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        const std::string bytes = Bytes(data, size);
        CheckTabFile(bytes);
        SpreadsheetSeparator(bytes);
        BatchProgram program;
        program.Load(ParseTabFile(bytes));
        TabDocument& document = program.Main().document;
        Require(document.TabCount == document.NoOfPages * document.setup.TabsPerPage, "a document is whole pages");
        const std::string written = TabFileBytes(document, program.Settings(), program.Main().ui);
        BatchProgram again;
        again.Load(ParseTabFile(written));
        Require(SameTexts(again.Main().document, document), "what is written is read back");
    } catch (const Error&) {}
    return 0;
}
