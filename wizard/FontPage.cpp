#include "wizard/FontPage.h"

#include "base/Error.h"
#include "base/Text.h"
#include "workspace/Dialogs.h"
#include "workspace/TakePageBack.h"
#include "workspace/Undo.h"

#include <algorithm>
#include <array>

namespace velmora {
namespace {

// Stored codes in the order of the buttons.
constexpr std::array<std::int16_t, 3> kHorizontalCodes = {kAlignLeft, kAlignCentre, kAlignRight};
constexpr std::array<std::int16_t, 3> kVerticalCodes = {kAlignTop, kAlignMiddle, kAlignBottom};

void Press(const std::array<std::int16_t, 3>& codes, int button, std::int16_t& alignment) {
    if (button >= 1 && button <= static_cast<int>(codes.size()))
        alignment = codes[static_cast<std::size_t>(button - 1)];
}

/// The button of the code, or `other`.
int ButtonOf(const std::array<std::int16_t, 3>& codes, std::int16_t code, int other) {
    const auto found = std::find(codes.begin(), codes.end(), code);
    return found == codes.end() ? other : static_cast<int>(found - codes.begin()) + 1;
}

/// Runs `work`; an error is told in the words that a person can do something with, not in its own.
template <typename Work> void TellFailure(UserInterface& ui, const char* words, const char* place, Work work) {
    try {
        work();
    } catch (const std::exception&) {
        ReportError(ui, words, place);
    }
}

} // namespace

void StoreFonts(MainModule& main, const FontSettings& fonts) {
    main.document.DocChanged = main.document.DocChanged || main.fonts != fonts; // the file's header carries them
    main.fonts = fonts;
    SaveFontSettings(main.settings, fonts);
}

FontPage::FontPage(MainModule& main, const FontCatalogue& catalogue)
    : main_(main), catalogue_(catalogue), draft_(main.fonts) {
    TellFailure(main_.ui, "Please reinstall the printer fonts.", "Called from Sub: FillFontType",
                [&] { FillFontType(); });
    TellFailure(main_.ui, "Printer error.  Please check the printer.", "Called from Sub: FillFontSize",
                [&] { FillFontSize(); });
    TellFailure(main_.ui,
                "Problem getting printer information from the system. Make sure the printer is set up correctly.",
                "Called from Sub: Load Wizard 7", [&] { LoadFontSettings(main_.settings, draft_); });
}

void FontPage::FillFontType() {
    families_ = catalogue_.Families();
    if (families_.empty())
        throw Error("No fonts are installed");
}

void FontPage::FillFontSize() {
    sizes_ = {6, 7, 8, 9, 10, 11, 12, 14, 16, 18, 20, 22, 24, 26, 28, 36, 48, 72};
}

std::vector<std::string> FontPage::Typefaces(int field) const {
    std::vector<std::string> names = families_;
    const std::string& own = Font(field).Name;
    if (IsInstalled(own))
        return names;
    const auto after = std::find_if(names.begin(), names.end(),
                                    [&](const std::string& name) { return FoldCase(name) > FoldCase(own); });
    names.insert(after, own);
    return names;
}

bool FontPage::IsInstalled(const std::string& name) const {
    return std::any_of(families_.begin(), families_.end(),
                       [&](const std::string& family) { return FoldCase(family) == FoldCase(name); });
}

std::string FontPage::MissingText() const {
    std::string text;
    for (const FieldFont& font : draft_) {
        const auto nearest = catalogue_.Match({font.Name, font.Bold, font.Italic});
        const std::string line =
            font.Name + " is not installed" + (nearest ? ": " + nearest->family + " is printed in its place." : ".");
        if (!IsInstalled(font.Name) && text.find(line) == std::string::npos)
            text += (text.empty() ? "" : "\n") + line;
    }
    return text;
}

std::vector<std::int16_t> FontPage::Sizes(int field) const {
    std::vector<std::int16_t> sizes = sizes_;
    const std::int16_t own = Font(field).Size;
    const auto place = std::lower_bound(sizes.begin(), sizes.end(), own);
    if (place == sizes.end() || *place != own)
        sizes.insert(place, own);
    return sizes;
}

void FontPage::PressStyle(int field, int button, bool pressed) {
    FieldFont& font = Draft(field);
    switch (button) {
    case 3: font.Bold = pressed; break;
    case 4: font.Italic = pressed; break;
    case 5: font.Underline = pressed; break;
    default: break;
    }
}

void FontPage::PressHorizontal(int field, int button) {
    Press(kHorizontalCodes, button, Draft(field).HorizontalAlignment);
}

void FontPage::PressVertical(int field, int button) {
    Press(kVerticalCodes, button, Draft(field).VerticalAlignment);
}

int FontPage::HorizontalButton(int field) const {
    return ButtonOf(kHorizontalCodes, Font(field).HorizontalAlignment, 1);
}

int FontPage::VerticalButton(int field) const {
    return ButtonOf(kVerticalCodes, Font(field).VerticalAlignment, 2);
}

void FontPage::Store() {
    TakePageBack(main_);
    UndoStep step(main_.history, main_.State(), "Fonts");
    StoreFonts(main_, draft_);
    step.Commit();
    main_.editor->BringUp();
}

} // namespace velmora
