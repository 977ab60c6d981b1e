#include "wizard/WizardState.h"

#include "base/Error.h"
#include "base/Numbers.h"
#include "base/Text.h"
#include "wizard/FontPage.h"
#include "wizard/NextNumber.h"
#include "workspace/Dialogs.h"

#include <algorithm>

namespace velmora {
namespace {

constexpr std::int16_t kLongText = 20;
constexpr std::int16_t kShortText = 10;

/// "Field A" for "FieldA".
std::string FieldName(const WizardState& wizard) {
    const std::string& key = wizard.CurrentFieldKey;
    return key.empty() ? key : "Field " + key.substr(key.size() - 1);
}

bool HasCurrentField(const WizardState& wizard) {
    return wizard.CurrentFieldNo >= 1 && wizard.CurrentFieldNo <= kFieldsPerTab;
}

/// Its numbers have texts without a format where the document's have: "Tab 3" goes on as "Tab 4".
void SeeField(WizardState& wizard, const TabDocument& document, int field) {
    const auto index = static_cast<std::size_t>(field);
    if (wizard.FieldSeen[index])
        return;
    wizard.FieldSeen[index] = true;
    const auto next = NextNumberInDocument(document, field);
    wizard.Entries[index].numbers.width = next && next->width == kTextsAlone ? kTextsAlone : 0;
}

std::string FillFlag(ValueKind kind) {
    static constexpr std::array<const char*, 4> kFlags = {"Num_Yes", "Yes_Mon", "Yes_Day", "Yes_Text"};
    return kFlags.at(static_cast<std::size_t>(kind));
}

/// The series that was chosen for a field before, into its new buffer.
void FillAgain(WizardState& wizard, int field) {
    const auto index = static_cast<std::size_t>(field);
    if (!wizard.Chosen[index])
        return;
    try {
        FillBuffer(*SeriesOf(*wizard.Chosen[index], wizard.MostLetters[index]), wizard.Buffer(field));
        wizard.WizFieldUsed[index] = wizard.FieldDone[index] = true;
    } catch (const OverflowError&) { // its page will say so
    }
}

std::string CancelQuestion(WizardPage page) {
    const std::string start = "If you cancel this wizard, none of the settings will be saved.";
    switch (page) {
    case WizardPage::Style:
    case WizardPage::Fonts: return start + "  Are you sure you want to cancel?";
    case WizardPage::Introduction:
    case WizardPage::Text:
    case WizardPage::Ticks: return start + "  Are you sure you want to cancel ?";
    default: return start + " Are you sure you want to cancel ?";
    }
}

} // namespace

std::int16_t MostCharacters(int fieldNo, int fieldsInUse) {
    return fieldNo == 1 || (fieldNo == 2 && fieldsInUse == 2) ? kLongText : kShortText;
}

void StartWizard(WizardState& wizard) {
    wizard.WizFieldUsed = {};
}

std::optional<std::string> CheckCount(std::string_view text) {
    constexpr const char* kNumericsOnly = "Please use numerics only!";
    if (!IsNumeric(text))
        return kNumericsOnly;
    const double count = ToDouble(text);
    if (count < 1 || count > kMostNewTabs)
        return "The value must be between 1 and " + std::to_string(kMostNewTabs);
    return count == RoundHalfEven(count) ? std::nullopt : std::optional<std::string>(kNumericsOnly);
}

std::optional<std::string> ConfirmCount(WizardState& wizard, std::string_view text) {
    if (auto message = CheckCount(text))
        return message;
    wizard.LastFillFlag.clear();
    wizard.NewTabCount = ToInt16(ToDouble(text));
    for (int field = 0; field < kFieldsPerTab; ++field)
        wizard.Buffer(field).ReDim(wizard.NewTabCount);
    wizard.FieldDone = {};
    for (int field = 0; field < kFieldsPerTab; ++field)
        FillAgain(wizard, field);
    return std::nullopt;
}

void ChooseField(WizardState& wizard, const TabDocument& document, int fieldNo) {
    if (fieldNo < 1 || fieldNo > document.setup.NoOfFields)
        throw SubscriptError();
    wizard.CurrentFieldNo = static_cast<std::int16_t>(fieldNo);
    wizard.WizFieldUsed[static_cast<std::size_t>(fieldNo - 1)] = true;
    wizard.CurrentFieldKey = std::string("Field") + static_cast<char>('A' + fieldNo - 1);
    wizard.FieldMaxLen = MostCharacters(fieldNo, document.setup.NoOfFields);
    wizard.MostLetters[static_cast<std::size_t>(fieldNo - 1)] = wizard.FieldMaxLen;
    SeeField(wizard, document, fieldNo - 1);
}

WizardPage ChooseKind(WizardState& wizard, ValueKind kind) {
    static constexpr std::array<const char*, 4> kNames = {"Numeric", "Month", "Day", "Text"};
    if (HasCurrentField(wizard)) {
        wizard.FieldKind[static_cast<std::size_t>(wizard.CurrentFieldNo - 1)] = kNames[static_cast<std::size_t>(kind)];
        wizard.Entry().kind = kind;
        wizard.MonthStyle = wizard.DayStyle = static_cast<std::int16_t>(wizard.Entry().style);
    }
    if (kind == ValueKind::Numeric)
        return WizardPage::Numbers;
    if (kind == ValueKind::Text)
        return WizardPage::Text;
    wizard.MonthMode = kind == ValueKind::Month;
    return WizardPage::Style;
}

void ChooseStyle(WizardState& wizard, int style) {
    if (style < 1 || style > kNameStyles)
        throw SubscriptError();
    wizard.MonthStyle = wizard.DayStyle = static_cast<std::int16_t>(style);
    for (std::size_t field = 0; field < wizard.Entries.size(); ++field)
        if (!wizard.FieldDone[field] || static_cast<int>(field) + 1 == wizard.CurrentFieldNo)
            wizard.Entries[field].style = style; // what comes next is likely to be in the same language
}

NumberSeries ReadNumberPage(std::string_view first, std::string_view format, std::string_view before,
                            std::string_view after, bool textsToo) {
    const std::string typed = WithDecimalPoint(first);
    const std::int32_t number = IsNumeric(typed) ? ToInt32(ToDouble(typed)) : 1;
    return {number, std::max(FormatWidth(format), textsToo ? kTextsAlone : 0), OneLine(before), OneLine(after)};
}

std::optional<std::string> GiveValues(WizardState& wizard, const FieldChoice& choice) {
    if (!HasCurrentField(wizard))
        return std::nullopt;
    const auto series = SeriesOf(choice, wizard.FieldMaxLen);
    if (!series)
        return "Please make a selection before you click next or click on Cancel.";
    FillBuffer(*series, wizard.Buffer(wizard.CurrentFieldNo - 1));
    const auto field = static_cast<std::size_t>(wizard.CurrentFieldNo - 1);
    wizard.Entries[field] = choice;
    wizard.Chosen[field] = choice;
    wizard.FieldDone[field] = true;
    wizard.LastFillFlag = FillFlag(choice.kind);
    return std::nullopt;
}

void ForgetField(WizardState& wizard, int fieldNo) {
    const auto field = static_cast<std::size_t>(fieldNo - 1);
    wizard.Chosen[field].reset();
    wizard.WizFieldUsed[field] = wizard.FieldDone[field] = false;
}

bool AllFieldsDone(const WizardState& wizard, const TabDocument& document) {
    const auto begin = wizard.FieldDone.begin();
    return std::all_of(begin, begin + document.setup.NoOfFields, [](bool done) { return done; });
}

WizardPage PageAfterField(const WizardState& wizard, const TabDocument& document) {
    return AllFieldsDone(wizard, document) ? WizardPage::Fonts : WizardPage::Chooser;
}

std::optional<WizardPage> PageBefore(WizardPage page) {
    switch (page) {
    case WizardPage::Introduction: break;
    case WizardPage::Count: return WizardPage::Introduction;
    case WizardPage::Chooser: return WizardPage::Count;
    case WizardPage::Type:
    case WizardPage::Fonts: return WizardPage::Chooser;
    case WizardPage::Numbers:
    case WizardPage::Style:
    case WizardPage::Text: return WizardPage::Type;
    case WizardPage::Ticks: return WizardPage::Style;
    }
    return std::nullopt;
}

PageTexts TextsOfPage(WizardPage page, const WizardState& wizard) {
    const std::string field = FieldName(wizard);
    const std::string names = wizard.MonthMode ? "MONTH SETTINGS" : "DAY SETTINGS";
    switch (page) {
    case WizardPage::Introduction:
        return {"",
                {"This wizard is designed to help you automatically  create a batch of  labels. This is mainly used "
                 "when you want for example, to print 50 lables with the same  text or if you want numbered lables eg. "
                 "( No.1, No.2, No.3, ...)",
                 "Please note that all the new lables that are created will appear at the end of the file.   ( i.e. if "
                 "you have 10 pages of lables and this wizard add's one, it will be page 11)"}};
    case WizardPage::Count:
        return {"",
                {"How many  tabs do you want to automatically create ?", "Example of a tab",
                 "The above picture is a simple tab layout, broken down into three fields. You will be required to "
                 "answer basic questions to help assist you in custom designing your lables to meet your requirements. "
                 "All printing in each field, begins from left to right."}};
    case WizardPage::Chooser:
        return {"",
                {"Please choose in which field you would like a wizard to assist you in customizing your tab layout."}};
    case WizardPage::Type: return {"", {field + " can be set to one of four type of settings."}};
    case WizardPage::Numbers:
        return {"NUMBER SETTINGS",
                {"What would you like the first number of the tab to be ?",
                 "What type of tab numbering format would you like ?",
                 "You can add any text before and/or after the number !"}};
    case WizardPage::Style: return {names, {field + " can be set to one of two LANGUAGE and STYLES selections."}};
    case WizardPage::Ticks: return {names, {}};
    case WizardPage::Text:
        return {"TEXT SETTINGS",
                {"Text fields will be set to a LIMITED amount of characters.  Font size 10 was used to determine this "
                 "limited.  The text may not fit on the label if you use a larger font.",
                 field + " will be set to a LIMITED amount of " + std::to_string(wizard.FieldMaxLen) + " characters."}};
    case WizardPage::Fonts: break;
    }
    return {};
}

void StoreWizardFonts(MainModule& main, WizardState& wizard, const FontSettings& fonts) {
    if (!wizard.Fonts && main.fonts != fonts)
        wizard.Fonts = {main.fonts, main.document.DocChanged};
    StoreFonts(main, fonts);
    main.editor->BringUp();
}

void PutFontsBack(MainModule& main, const FontsBefore& before) {
    StoreFonts(main, before.fonts);
    main.document.DocChanged = before.docChanged;
}

bool ConfirmCancel(MainModule& main, WizardState& wizard, WizardPage page) {
    if (Ask(main.ui, CancelQuestion(page), Buttons::YesNo, Answer::No) != Answer::Yes)
        return false;
    // The font page stores at once; the question promises that none of the settings will be saved.
    if (wizard.Fonts) {
        PutFontsBack(main, *wizard.Fonts);
        main.editor->BringUp();
    }
    wizard = {};
    return true;
}

} // namespace velmora
