// The main window as the core sees it: five status panels, what was just done, and a caption.
#pragma once

#include <filesystem>
#include <string>

namespace velmora {

inline constexpr int kStatusPanels = 5;

/// What was just done, in a few words, and what a button beside them does about it.
struct DoneMessage {
    std::string text;
    bool undo = false;            ///< takes back the step that the operation records
    std::filesystem::path file{}; ///< is shown in the desktop's program for it; empty: none was written
    bool printerMargins = false;  ///< takes the margins that the printer was calibrated to
};

/// Itself it shows nothing: what a program without a window has.
class MainWindowStatus {
public:
    virtual ~MainWindowStatus() = default;
    /// `panel` counts from 1 to 5.
    virtual void SetPanel(int /*panel*/, const std::string& /*text*/) {}
    /// Stays until something else is done, so it comes last: another command, a move to another page, and typing where
    /// the button would take that back.
    virtual void Tell(const DoneMessage& /*done*/) {}
    virtual void SetCaption(const std::string& /*caption*/) {}
};

} // namespace velmora
