// An INI file: what is written into any text is read back from it.
#include "app/settings/IniText.h"
#include "fuzz/Fuzz.h"

using namespace velmora;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    IniText ini(Bytes(data, size));
    ini.ListKeys("Settings");
    ini.ReadString("Settings", "Printer", "");
    ini.ReadInt("Settings", "OptType", 0);
    ini.Write("Settings", "Printer", "Office");
    Require(ini.ReadString("Settings", "Printer", "") == "Office", "a written value is read back");
    ini.Write("Settings", "Printer", std::nullopt);
    ini.DeleteSection("Settings");
    ini.ListSections();
    return 0;
}
