// The floors: minimal programs that do only the work, with no settings, checks or progress.
#pragma once

#include <array>
#include <filesystem>
#include <string>
#include <vector>

namespace velmora::floors {

using Arrays = std::array<std::vector<std::string>, 3>;

/// A file of LF or CR LF lines into three arrays.
Arrays Open(const std::filesystem::path& path);
/// Three arrays into a file: temporary sibling, flush, rename.
void Save(const std::filesystem::path& path, const std::string& header, const Arrays& tabs);
/// "No.00001/x" and so on: only the texts are made, in one array.
std::vector<std::string> Fill(int count);
struct FontFiles {
    std::filesystem::path bold; ///< for the first field
    std::filesystem::path regular;
};
/// 24 tabs on a sheet, in fonts that are embedded as subsets.
void Pdf(const std::filesystem::path& path, const Arrays& tabs, const FontFiles& fontFiles);

void WriteAll(const std::filesystem::path& path, const std::string& bytes, bool flush);

} // namespace velmora::floors
