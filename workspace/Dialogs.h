// Questions and announcements that several procedures share, and the trapping of errors.
#pragma once

#include "workspace/mdlMain.h"

#include <exception>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace velmora {

/// A box with an OK button, titled with the application's name.
void Tell(MainModule& main, const std::string& text, Icon icon = Icon::Information);
/// A question with the question icon.
Answer Ask(MainModule& main, const std::string& text, Buttons buttons,
           std::optional<Answer> defaultButton = std::nullopt);

/// "Do you want to save the current document?"
Answer AskToSave(MainModule& main);
/// True for a path without a file, and for one that the person wants to be overwritten.
bool MayOverwrite(MainModule& main, const std::filesystem::path& path);
/// Says that no workbook can be read or written.
void TellNoSpreadsheets(MainModule& main);

/// How a procedure reports an error that it trapped: "cause", a line break and the place, in a critical box.
void ReportError(MainModule& main, std::string_view cause, std::string_view place);

/// Runs `work` and reports the error that ends it; false then.
template <typename Work> bool Trapped(MainModule& main, std::string_view place, Work work) {
    try {
        work();
        return true;
    } catch (const std::exception& error) {
        ReportError(main, error.what(), place);
        return false;
    }
}

} // namespace velmora
