// The way from the about box to the machine's system-information tool.
#pragma once

#include "platform/Desktop.h"
#include "workspace/mdlMain.h"

#include <string>
#include <vector>

namespace velmora {

/// Reads a value of the machine-wide hive. False, with `result` untouched, for a missing key or value and for a text of
/// 1024 characters or more. A number comes in decimal after a detour through its bytes in hexadecimal, each without
/// padding: deliberate, though 0x00010203 thus comes out as that of 0x0123. Of any other type the result is empty.
bool GetKeyValue(const Registry& registry, const std::string& keyName, const std::string& valueName,
                 std::string& result);

/// What somebody on the telephone asks for, one fact in a line: behind the `first` ones (title, toolkit, desktop) the
/// printers with A4 and DL paper and their state, the folders. A print server that does not answer is one of the facts.
std::string ProgramDetails(const MainModule& main, const std::vector<std::string>& first);

/// Starts the tool that the registry names, or else the desktop's own; says so when there is none.
void StartSysInfo(MainModule& main, Desktop& desktop);

} // namespace velmora
