// The content of a recovery copy, under a check sum that fits: it is refused, or becomes a whole document.
#include "batch/BatchProgram.h"
#include "fuzz/Fuzz.h"
#include "workspace/RecoveryCopy.h"
#include "workspace/RestoreDocument.h"

using namespace velmora;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string content = Bytes(data, size);
    const std::string bytes = RecoveryHead({}, 1, ContentSum(content)) + content;
    const auto copy = ParseRecoveryCopy(bytes);
    if (!copy)
        return 0;
    for (const std::string_view text : copy->texts)
        Require(text.empty() ||
                    (text.data() >= bytes.data() && text.data() + text.size() <= bytes.data() + bytes.size()),
                "texts are parts of the copy");
    try {
        BatchProgram program;
        LoadCopy(program.Main(), *copy);
        const TabDocument& document = program.Main().document;
        Require(document.TabCount == document.NoOfPages * document.setup.TabsPerPage, "a document is whole pages");
        Require(document.TabCount >= copy->tabs, "no tab is lost");
    } catch (const Error&) {}
    return 0;
}
