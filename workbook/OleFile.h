// The OLE2 compound file, the container of .xls: a file system of sectors in one file.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace velmora {

bool IsOleFile(std::string_view bytes);
/// The bytes of a stream of the root folder; nullopt where there is none. Raises WorkbookError for a damaged container.
std::optional<std::string> ReadOleStream(std::string_view file, std::string_view name);
/// A compound file with one stream.
std::string WriteOleFile(const char* name, std::string_view stream);

} // namespace velmora
