#include "app/SystemInformation.h"

#include "base/Paths.h"
#include "base/Text.h"
#include "base/Validate.h"
#include "base/Version.h"
#include "print/PrintSheets.h"
#include "report/rptVelmor.h"

#include <charconv>
#include <utility>
#include <variant>

namespace velmora {
namespace {

constexpr std::size_t kBufferCharacters = 1024;

/// The bytes from the highest to the lowest, without padding, read as one hexadecimal number.
std::string DecimalOfBytes(std::uint32_t number) {
    std::string digits;
    for (int shift = 24; shift >= 0; shift -= 8) {
        char byte[2];
        const auto end = std::to_chars(byte, byte + 2, (number >> shift) & 0xFFu, 16).ptr;
        digits.append(byte, end);
    }
    std::uint32_t value = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
    return std::to_string(static_cast<std::int32_t>(value));
}

/// The program that the registry names; empty where it names none.
std::string NamedTool(const Registry& registry) {
    const std::string shared = "SOFTWARE\\Microsoft\\Shared Tools";
    std::string tool;
    if (GetKeyValue(registry, shared + "\\MSINFO", "PATH", tool))
        return tool;
    if (!GetKeyValue(registry, shared + " Location", "MSINFO", tool))
        return "";
    tool += "\\MSINFO32.EXE";
    return FileExists(PathOf(tool)) ? tool : "";
}

} // namespace

bool GetKeyValue(const Registry& registry, const std::string& keyName, const std::string& valueName,
                 std::string& result) {
    RegistryValue value;
    const RegistryCode code = registry.Query(keyName, valueName, value);
    if (code == RegistryCode::AccessDenied) { // the value is there, and neither a text nor a number
        result.clear();
        return true;
    }
    if (code != RegistryCode::Success)
        return false;
    if (const auto* number = std::get_if<std::uint32_t>(&value)) {
        result = DecimalOfBytes(*number);
        return true;
    }
    std::string text = std::get<std::string>(value);
    if (text.ends_with('\0'))
        text.pop_back();
    if (CharacterCount(text) >= kBufferCharacters)
        return false;
    result = text;
    return true;
}

namespace {

std::string PrinterDetails(const PrintSystem& printers, const std::string& printer) {
    std::string line = "Printer: " + printer;
    for (const auto& [stationery, layout] : {std::pair("A4", "A4"), {"DL", "DL_h"}})
        line += (SupportOf(printers, printer, SheetPaper(stationery, layout)).listed ? ", " : ", no ") +
                std::string(stationery);
    const std::string state = StateText(printer, printers.StateOf(printer));
    return line + (state.empty() ? "" : ". " + std::string(Trim(OneLine(state)))) + "\n";
}

} // namespace

std::string ProgramDetails(const MainModule& main, const std::vector<std::string>& first) {
    std::string details;
    for (const std::string& line : first)
        details += line + "\n";
    try {
        for (const std::string& printer : main.printers.Printers())
            details += PrinterDetails(main.printers, printer);
    } catch (const PrinterError& error) {
        details += "Printers: " + std::string(error.what()) + "\n";
    }
    details += "Printer in use: " + main.globals.PrinterName + "\n";
    for (const auto& [name, folder] : {std::pair("Settings", main.settings.IniFile),
                                       {"Pictures", main.globals.ImagesPath},
                                       {"Documents", main.globals.TabsPath}})
        details += std::string(name) + ": " + PathText(folder) + "\n";
    return details;
}

void StartSysInfo(MainModule& main, Desktop& desktop) {
    const std::string tool = NamedTool(main.settings.Keys);
    if ((tool.empty() || !desktop.StartProgram(PathOf(tool))) && !desktop.StartSystemInformation())
        main.ui.Show({"System Information Is Unavailable At This Time", kProgramName});
}

} // namespace velmora
