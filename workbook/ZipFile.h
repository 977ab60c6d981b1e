// The parts of a zip file, unpacked piece by piece. Sizes are those of the directory; a part that unpacks to more is
// damaged. What is handed out is counted over all parts, whatever the directory calls them.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace velmora {

class ZipFile {
public:
    /// Raises WorkbookError for what is no zip file, for XML parts of more than kMostWorkbookBytes in all, and for more
    /// parts than any workbook has. `watch`, perhaps empty, is called for each piece that is handed on.
    explicit ZipFile(std::string bytes, std::function<void()> watch = {});
    ~ZipFile();
    ZipFile(ZipFile&&) noexcept;

    bool Has(const std::string& name) const;
    /// Hands the part on in pieces until the sink returns false. Raises WorkbookError for a missing, damaged or
    /// encrypted part, and where all that was handed out of different parts is more than kMostWorkbookBytes.
    void Read(const std::string& name, const std::function<bool(std::string_view piece)>& sink) const;

private:
    struct Archive;
    std::unique_ptr<Archive> archive_;
    std::function<void()> watch_;
};

} // namespace velmora
