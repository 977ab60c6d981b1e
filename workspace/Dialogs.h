// Questions and announcements that several procedures share, and the trapping of errors.
#pragma once

#include "platform/UserInterface.h"

#include <cstdint>
#include <exception>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// A box with an OK button, titled with the program's name, like all of these.
void Tell(UserInterface& ui, const std::string& text, Icon icon = Icon::Information);
/// A question with the question icon.
Answer Ask(UserInterface& ui, const std::string& text, Buttons buttons,
           std::optional<Answer> defaultButton = std::nullopt);

/// "Do you want to save the current document?"
Answer AskToSave(UserInterface& ui);
/// "2, 7, 9", the first ten of them, then "and 3 more".
std::string NumberList(const std::vector<std::int32_t>& numbers);
/// True for a path without a file, and for one that the person wants to be overwritten.
bool MayOverwrite(UserInterface& ui, const std::filesystem::path& path);
/// Says that no workbook can be read or written.
void TellNoSpreadsheets(UserInterface& ui);

/// How a procedure reports an error that it trapped: "cause", a line break and the place, in a critical box.
void ReportError(UserInterface& ui, std::string_view cause, std::string_view place);

/// Runs `work` and reports the error that ends it; false then.
template <typename Work> bool Trapped(UserInterface& ui, std::string_view place, Work work) {
    try {
        work();
        return true;
    } catch (const std::exception& error) {
        ReportError(ui, error.what(), place);
        return false;
    }
}

} // namespace velmora
