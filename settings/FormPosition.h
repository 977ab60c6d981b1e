// Every window remembers where it was.
#pragma once

#include "settings/mdlSettings.h"

#include <string_view>

namespace velmora {

/// In the window system's units; a point left of or above the screen is allowed.
struct FormPosition {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    bool operator==(const FormPosition&) const = default;
};

inline constexpr std::string_view kFormPositions = "Form Position";
/// Behind a window's key: it filled the screen, and its position is what it goes back to.
inline constexpr std::string_view kMaximizedKey = " Maximized";

/// Stores the position under the window's key in section "Form Position".
void SaveFormPosition(SettingsStore& store, std::string_view key, const FormPosition& position);

/// Where the window belongs: as stored, or in the middle of the screen with the size of `window` when no usable place
/// is stored, or the stored corner lies beyond the screen's right or lower edge.
FormPosition RestoreFormPosition(SettingsStore& store, std::string_view key, const FormPosition& window,
                                 int screenWidth, int screenHeight);

} // namespace velmora
