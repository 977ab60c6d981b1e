#include "workspace/Dialogs.h"

#include "base/Paths.h"
#include "base/Validate.h"
#include "base/Version.h"

#include <algorithm>

namespace velmora {
namespace {

constexpr std::size_t kNumbersNamed = 10;

} // namespace

void Tell(UserInterface& ui, const std::string& text, Icon icon) {
    ui.Show({text, kProgramName, icon});
}

Answer Ask(UserInterface& ui, const std::string& text, Buttons buttons, std::optional<Answer> defaultButton) {
    return ui.Show({text, kProgramName, Icon::Question, buttons, defaultButton});
}

Answer AskToSave(UserInterface& ui) {
    return Ask(ui, "Do you want to save the current document?", Buttons::YesNoCancel);
}

std::string NumberList(const std::vector<std::int32_t>& numbers) {
    const std::size_t named = std::min(numbers.size(), kNumbersNamed);
    std::string list;
    for (std::size_t i = 0; i < named; ++i)
        list += (i == 0 ? "" : ", ") + std::to_string(numbers[i]);
    return named == numbers.size() ? list : list + " and " + std::to_string(numbers.size() - named) + " more";
}

bool MayOverwrite(UserInterface& ui, const std::filesystem::path& path) {
    return !FileExists(path) || Ask(ui, "Do you want to overwrite the following file?\r\n[" + PathText(path) + "]",
                                    Buttons::YesNo, Answer::No) == Answer::Yes;
}

void TellNoSpreadsheets(UserInterface& ui) {
    Tell(ui,
         "You have to have Microsoft Excel 2000 (or latter) installed on your PC if you want to open or import an "
         "Excel file!",
         Icon::Critical);
}

void ReportError(UserInterface& ui, std::string_view cause, std::string_view place) {
    Tell(ui, std::string(cause) + "\r\n" + std::string(place), Icon::Critical);
}

} // namespace velmora
