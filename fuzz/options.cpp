// The batch program's command line, one argument per line, parsed and not run, and what its options hold.
#include "base/Text.h"
#include "batch/BatchProgram.h"
#include "batch/CommandLine.h"
#include "fuzz/Fuzz.h"
#include "print/NumberList.h"
#include "wizard/FieldWords.h"

#include <algorithm>
#include <sstream>

using namespace velmora;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = Bytes(data, size);
    std::vector<std::string> arguments;
    for (const std::string_view line : Split(text, '\n'))
        arguments.emplace_back(line.substr(0, line.find('\0')));
    std::ostringstream output;
    ParseCommandLine(arguments, output, output);
    for (const std::string& argument : arguments) {
        try {
            const std::string words = FieldWords(ParseFieldWords(argument));
            Require(FieldWords(ParseFieldWords(words)) == words, "a field's words are read back");
        } catch (const Error&) {}
        try {
            const std::vector<int> numbers = ParseNumberList(argument, 1365, {"page", "document"});
            Require(std::all_of(numbers.begin(), numbers.end(), [](int n) { return n >= 1 && n <= 1365; }),
                    "numbers of a list are within their bounds");
        } catch (const Error&) {}
    }
    return 0;
}
