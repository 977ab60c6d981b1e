// What an import asks the person, as the core sees it: forms stand behind it, and scripts in tests.
#pragma once

#include "document/TextList.h"
#include "document/Worksheet.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace velmora {

/// How to read a sheet or list without a header. `delimiter` and `encoding` are those of a list.
struct ImportChoice {
    WorksheetOptions cells; ///< three columns; 0 leaves a field empty
    char delimiter = ',';
    ListEncoding encoding = ListEncoding::Utf8;
};

struct ImportRequest {
    std::string name;                    ///< of the worksheet or the file
    std::vector<ListEncoding> encodings; ///< that a list may be in, likeliest first; empty for a worksheet
    /// The first rows, read as the choice says, its heading among them.
    std::function<std::vector<std::vector<std::string>>(const ImportChoice& choice)> preview;
    std::int32_t hiddenRows = 0; ///< of a worksheet, which the person may leave out
};

/// Itself it asks nobody: then only one sheet can be meant, and a guessed choice stands.
class ImportDialogs {
public:
    virtual ~ImportDialogs() = default;
    /// The name of the chosen worksheet, empty when none was chosen. The only one of a workbook is chosen by itself.
    virtual std::string SelectSheet(const std::vector<std::string>& names) {
        return names.size() == 1 ? names.front() : "";
    }
    /// What the person made of `choice`; nullopt when cancelled.
    virtual std::optional<ImportChoice> ChooseImport(const ImportRequest&, const ImportChoice& choice) {
        return choice;
    }
};

} // namespace velmora
