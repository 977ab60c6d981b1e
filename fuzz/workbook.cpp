// A workbook of any format, read to its end.
#include "base/TemporaryFile.h"
#include "document/Worksheet.h"
#include "fuzz/Fuzz.h"
#include "workbook/LibraryWorkbooks.h"

using namespace velmora;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    TemporaryFile file(".xls");
    file.Write(Bytes(data, size));
    try {
        const auto workbook = LibraryWorkbooks().Open(file.Path(), {});
        for (const std::string& name : workbook->SheetNames())
            ReadWorksheet(*workbook, name, {});
    } catch (const Error&) {}
    return 0;
}
