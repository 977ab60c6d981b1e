// What the wizard's pages have collected, and the rules of the pages: what a choice does, what must be said, and which
// page comes next. A page shows this and has no rule of its own.
#pragma once

#include "wizard/ValueSeries.h"
#include "workspace/mdlMain.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

enum class WizardPage { Introduction, Count, Chooser, Type, Numbers, Style, Ticks, Text, Fonts };

enum class ValueKind { Numeric, Month, Day, Text };

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
    int FontSteps = 0;        ///< times that the font page was stored with other fonts
    std::string LastFillFlag; ///< "Num_Yes", "Yes_Mon", "Yes_Day" or "Yes_Text"; empty before the first values

    std::array<std::string, kFieldsPerTab> FieldKind;  ///< "Numeric", "Month", "Day" or "Text"
    std::array<bool, kFieldsPerTab> WizFieldUsed = {}; ///< was chosen: its values go into the document
    std::array<bool, kFieldsPerTab> FieldDone = {};    ///< has its values: its button is magenta

    /// The values of field 0, 1 or 2.
    FieldTexts& Buffer(int field) { return field == 0 ? WizFieldA : field == 1 ? WizFieldB : WizFieldC; }
    const FieldTexts& Buffer(int field) const { return field == 0 ? WizFieldA : field == 1 ? WizFieldB : WizFieldC; }
};

/// A check box of the page that picks months or days, in the order of the calendar.
struct TickBox {
    std::string caption;
    bool ticked = false;
};

/// Next on the introduction: no field is used yet.
void StartWizard(WizardState& wizard);

inline constexpr int kMostNewTabs = 32766;
/// The message for a text that is no number of tabs; nullopt for one that is.
std::optional<std::string> CheckCount(std::string_view text);
/// Next on the count page: makes the buffers anew, all empty. Gives CheckCount's message, with nothing changed, where
/// there is one.
std::optional<std::string> ConfirmCount(WizardState& wizard, std::string_view text);

/// Field 1 to 3 is the one to configure. Raises SubscriptError for a field that is not in use.
void ChooseField(WizardState& wizard, const TabDocument& document, int fieldNo);
/// Gives the page that asks for the values.
WizardPage ChooseKind(WizardState& wizard, ValueKind kind);
/// Style 1 to 4. Raises SubscriptError for any other.
void ChooseStyle(WizardState& wizard, int style);
/// The 12 months or 7 days in the style chosen.
std::vector<std::string> TickCaptions(const WizardState& wizard);

/// What the number page asks for. A first number that is no number is 1. Raises OverflowError for one outside the
/// 32-bit range.
NumberSeries ReadNumberPage(std::string_view first, std::string_view format, std::string_view before,
                            std::string_view after);
/// The ticked captions in turn; nullopt when none is ticked.
std::optional<NameSeries> ReadTicks(const std::vector<TickBox>& boxes);

/// What the number page will make of `count` tabs, in one line, or in words why it cannot.
std::string PreviewNumberPage(std::string_view first, std::string_view format, std::string_view before,
                              std::string_view after, std::int32_t count);

/// "Next Field" on the page of values: the current field gets its values and is done. No effect without a current
/// field. Raises OverflowError, with nothing changed.
void FillNumbers(WizardState& wizard, const NumberSeries& series);
/// Gives the message, with nothing changed, when no box is ticked.
std::optional<std::string> FillNames(WizardState& wizard, const std::vector<TickBox>& boxes);
void FillText(WizardState& wizard, std::string_view input);

/// What the text page's box holds at first.
inline constexpr std::string_view kInitialText = "12345678901234567890";

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
/// The file name of the picture that marks the current field; empty without a current field.
std::string FieldPicture(const WizardState& wizard);

/// Cancel: true when the person confirms; fonts stored on the way are then taken back, and the state is as new.
bool ConfirmCancel(MainModule& main, WizardState& wizard, WizardPage page);

} // namespace velmora
