// What the wizard's pages have collected, and the rules of the pages: what a choice does, what must be said, and which
// page comes next. A page shows this and has no rule of its own.
#pragma once

#include "wizard/FieldChoice.h"
#include "workspace/mdlMain.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

enum class WizardPage { Introduction, Count, Chooser, Type, Numbers, Style, Ticks, Text, Fonts };

/// Fonts are stored by the font page at once, and are part of what Finish does.
struct FontsBefore {
    FontSettings fonts;
    bool docChanged = false;
};

struct WizardState {
    std::int16_t NewTabCount = 0;
    FieldTexts WizFieldA; ///< `NewTabCount` values each
    FieldTexts WizFieldB;
    FieldTexts WizFieldC;

    std::int16_t CurrentFieldNo = 0; ///< 1 to 3; 0 before the first choice
    std::string CurrentFieldKey;     ///< "FieldA", "FieldB" or "FieldC"
    std::int16_t FieldMaxLen = 0;    ///< characters of a fixed text
    bool MonthMode = false;          ///< names of months, else of days
    std::int16_t MonthStyle = 1;     ///< 1 to 4, always that of the days too
    std::int16_t DayStyle = 1;
    std::string LastFillFlag; ///< "Num_Yes", "Yes_Mon", "Yes_Day" or "Yes_Text"; empty before the first values

    bool BehindLast = false; ///< fills from behind the last text, else from the tab in use
    /// The entries of each field's pages, whether they have become values or not.
    std::array<FieldChoice, kFieldsPerTab> Entries;
    std::array<std::optional<FieldChoice>, kFieldsPerTab> Chosen; ///< what "Next Field" took of them
    std::array<std::int16_t, kFieldsPerTab> MostLetters = {};     ///< `FieldMaxLen` of each field
    std::optional<FontsBefore> Fonts;                             ///< what the font page has changed; nullopt: nothing

    std::array<std::string, kFieldsPerTab> FieldKind;  ///< "Numeric", "Month", "Day" or "Text"
    std::array<bool, kFieldsPerTab> WizFieldUsed = {}; ///< was chosen: its values go into the document
    std::array<bool, kFieldsPerTab> FieldDone = {};    ///< has its values: its button is magenta
    std::array<bool, kFieldsPerTab> FieldSeen = {};    ///< its pages were open, or a recipe gave it values

    /// The values of field 0, 1 or 2.
    FieldTexts& Buffer(int field) { return field == 0 ? WizFieldA : field == 1 ? WizFieldB : WizFieldC; }
    const FieldTexts& Buffer(int field) const { return field == 0 ? WizFieldA : field == 1 ? WizFieldB : WizFieldC; }
    /// Of the current field. Raises std::out_of_range without one.
    FieldChoice& Entry() { return Entries.at(static_cast<std::size_t>(CurrentFieldNo - 1)); }
    const FieldChoice& Entry() const { return Entries.at(static_cast<std::size_t>(CurrentFieldNo - 1)); }
};

/// Next on the introduction: no field is used yet.
void StartWizard(WizardState& wizard);

inline constexpr int kMostNewTabs = 32766;
/// The message for a text that is no whole number of tabs; nullopt for one that is.
std::optional<std::string> CheckCount(std::string_view text);
/// Next on the count page: makes the buffers anew and fills them again with what was chosen before; a field whose
/// numbers would leave the 32-bit range is not done any more. Gives CheckCount's message, with nothing changed, where
/// there is one.
std::optional<std::string> ConfirmCount(WizardState& wizard, std::string_view text);

/// Field 1 to 3 is the one to configure. Raises SubscriptError for a field that is not in use.
void ChooseField(WizardState& wizard, const TabDocument& document, int fieldNo);
/// Gives the page that asks for the values.
WizardPage ChooseKind(WizardState& wizard, ValueKind kind);
/// Style 1 to 4. Raises SubscriptError for any other.
void ChooseStyle(WizardState& wizard, int style);

/// The entries of the number page; `textsToo`: the texts are added without a format too. A first number that is no
/// number is 1. Raises OverflowError for one outside the 32-bit range.
NumberSeries ReadNumberPage(std::string_view first, std::string_view format, std::string_view before,
                            std::string_view after, bool textsToo = false);

/// Characters that a fixed text of field 1 to 3 may have.
std::int16_t MostCharacters(int fieldNo, int fieldsInUse);

/// "Next Field" on the page of values: the current field gets its values and is done. Gives the message, with nothing
/// changed, when no name is ticked. No effect without a current field. Raises OverflowError, with nothing changed.
std::optional<std::string> GiveValues(WizardState& wizard, const FieldChoice& choice);
/// The field was never chosen.
void ForgetField(WizardState& wizard, int fieldNo);

/// True when every field in use has its values.
bool AllFieldsDone(const WizardState& wizard, const TabDocument& document);
/// Where "Next Field", and Next on the chooser, lead.
WizardPage PageAfterField(const WizardState& wizard, const TabDocument& document);
/// What Previous shows; nullopt before the introduction.
std::optional<WizardPage> PageBefore(WizardPage page);

struct PageTexts {
    std::string heading;            ///< may be empty
    std::vector<std::string> lines; ///< sentences and questions, from top to bottom
};
PageTexts TextsOfPage(WizardPage page, const WizardState& wizard);
/// Next and Finish on the wizard's font page: stores fonts, which Cancel takes back and Finish makes part of its step.
void StoreWizardFonts(MainModule& main, WizardState& wizard, const FontSettings& fonts);
void PutFontsBack(MainModule& main, const FontsBefore& before);

/// Cancel: true when the person confirms; fonts stored on the way are then taken back, and the state is as new.
bool ConfirmCancel(MainModule& main, WizardState& wizard, WizardPage page);

} // namespace velmora
