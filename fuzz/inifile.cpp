// An INI file: what is written into any text is read back from it.
#include "fuzz/Fuzz.h"
#include "settings/IniText.h"

using namespace velmora;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes = Bytes(data, size);
    IniText ini(bytes);
    Require(ini.Bytes() == bytes, "nothing is changed by reading");
    ini.ListKeys("Settings");
    ini.ReadString("Settings", "Printer", "");
    ini.ReadInt("Settings", "OptType", 0);
    ini.Write("Settings", "Printer", "Office 1");
    Require(IniText(ini.Bytes()).ReadString("Settings", "Printer", "") == "Office 1", "a written value is read back");
    while (ini.Write("Settings", "Printer", std::nullopt)) {} // the same name may stand there again
    Require(IniText(ini.Bytes()).ReadString("Settings", "Printer", "none") == "none", "a removed key is gone");
    ini.ListSections();
    return 0;
}
