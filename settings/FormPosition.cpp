#include "settings/FormPosition.h"

#include "base/Error.h"
#include "base/Numbers.h"
#include "base/Text.h"

#include <optional>
#include <string>

namespace velmora {
namespace {

FormPosition Centred(const FormPosition& window, int screenWidth, int screenHeight) {
    return {(screenWidth - window.width) / 2, (screenHeight - window.height) / 2, window.width, window.height};
}

/// nullopt for a text that is not four numbers; what follows a fourth comma does not count.
std::optional<FormPosition> Parse(std::string_view text) {
    const auto parts = Split(text, ',');
    if (parts.size() < 4)
        return std::nullopt;
    try {
        const auto number = [&](std::size_t i) { return ToInt32(ToDouble(parts[i])); };
        const FormPosition position = {number(0), number(1), number(2), number(3)};
        return position.width > 0 && position.height > 0 ? std::optional(position) : std::nullopt;
    } catch (const Error&) {
        return std::nullopt;
    }
}

} // namespace

void SaveFormPosition(SettingsStore& store, std::string_view key, const FormPosition& position) {
    const std::string text = std::to_string(position.left) + "," + std::to_string(position.top) + "," +
                             std::to_string(position.width) + "," + std::to_string(position.height);
    SaveSetting(store, kFormPositions, key, text);
}

FormPosition RestoreFormPosition(SettingsStore& store, std::string_view key, const FormPosition& window,
                                 int screenWidth, int screenHeight) {
    const auto stored = Parse(Read(store, {kFormPositions, key}));
    if (!stored || screenWidth < stored->left || screenHeight < stored->top)
        return Centred(window, screenWidth, screenHeight);
    return *stored;
}

} // namespace velmora
