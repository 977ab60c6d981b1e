// An exported registry: what is read can be written, and reads the same again.
#include "base/Error.h"
#include "fuzz/Fuzz.h"
#include "settings/RegistryText.h"

using namespace velmora;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string path = "SOFTWARE\\Corvane Series\\Velmora\\Settings";
    try {
        RegistryExport text(Bytes(data, size));
        if (const auto bytes = text.Bytes())
            Require(RegistryExport(*bytes).Values(path) == text.Values(path), "written values are read back");
        text.Set(path, "Printer", std::string("Office"));
        const RegistryItem* item = text.Find(path, "Printer");
        Require(item && item->value == RegistryValue(std::string("Office")), "a value that is set is found");
        text.RemoveValue(path, "Printer");
        Require(!text.Find(path, "Printer"), "a value that is removed is gone");
    } catch (const Error&) {}
    return 0;
}
