#include "report/ReplacedFonts.h"

#include "platform/FontWidths.h"

namespace velmora {

std::optional<std::string> ReplacementOf(const FieldFont& font, const FontCatalogue& catalogue) {
    const auto file = catalogue.Match({font.Name, font.Bold, font.Italic});
    if (!file || WidthsOf(font.Name) == WidthsOf(file->family))
        return std::nullopt;
    return file->family;
}

} // namespace velmora
