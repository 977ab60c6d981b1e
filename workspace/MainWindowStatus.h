// The main window as the core sees it: five status panels and a caption.
#pragma once

#include <string>

namespace velmora {

inline constexpr int kStatusPanels = 5;

/// Itself it shows nothing: what a program without a window has.
class MainWindowStatus {
public:
    virtual ~MainWindowStatus() = default;
    /// `panel` counts from 1 to 5.
    virtual void SetPanel(int /*panel*/, const std::string& /*text*/) {}
    virtual void SetCaption(const std::string& /*caption*/) {}
};

} // namespace velmora
