// The font page: a draft of the three fields' fonts, what each of its controls does to it, and its storing.
#pragma once

#include "platform/FontCatalogue.h"
#include "workspace/mdlMain.h"

#include <cstdint>
#include <string>
#include <vector>

namespace velmora {

/// As the document's fonts and in the settings, which makes no step of undo.
void StoreFonts(MainModule& main, const FontSettings& fonts);

class FontPage {
public:
    /// Loads the stored fonts and fills the lists. What fails is reported, and the lists hold what there is.
    FontPage(MainModule& main, const FontCatalogue& catalogue);

    const FieldFont& Font(int field) const { return draft_.at(static_cast<std::size_t>(field)); }
    /// The installed families, and the field's own typeface where it is none of them.
    std::vector<std::string> Typefaces(int field) const;
    /// "Arial is not installed: Arimo is printed in its place.", a line for each such typeface that is chosen.
    std::string MissingText() const;
    /// The usual sizes in points, and the field's own, in ascending order.
    std::vector<std::int16_t> Sizes(int field) const;

    void ChooseName(int field, const std::string& name) { Draft(field).Name = name; }
    void ChooseSize(int field, std::int16_t points) { Draft(field).Size = points; }
    /// Toolbar1: 3 is bold, 4 italic, 5 underline; no effect for any other button.
    void PressStyle(int field, int button, bool pressed);
    /// Toolbar2: 1 left, 2 centre, 3 right; no effect for any other button.
    void PressHorizontal(int field, int button);
    /// Toolbar3: 1 top, 2 middle, 3 bottom; no effect for any other button.
    void PressVertical(int field, int button);
    /// The button that stands for the field's alignment; any other code than the known ones counts as their default.
    int HorizontalButton(int field) const;
    int VerticalButton(int field) const;

    /// Stores the draft as the document's fonts, as the step "Fonts", and shows the editor anew.
    void Store();
    const FontSettings& Fonts() const { return draft_; }

private:
    FieldFont& Draft(int field) { return draft_.at(static_cast<std::size_t>(field)); }
    bool IsInstalled(const std::string& name) const;
    void FillFontType();
    void FillFontSize();

    MainModule& main_;
    const FontCatalogue& catalogue_;
    FontSettings draft_;
    std::vector<std::string> families_;
    std::vector<std::int16_t> sizes_;
};

} // namespace velmora
