// The wizard without its windows: the values it makes, the rules of its pages, and what becomes of the document.
#include "base/Text.h"
#include "tests/support/Documents.h"
#include "tests/support/FakeEditor.h"
#include "tests/support/FewFonts.h"
#include "tests/support/TestProgram.h"
#include "wizard/AppendWizardTabs.h"
#include "wizard/FontPage.h"
#include "wizard/NewTabs.h"
#include "wizard/NextNumber.h"
#include "workspace/Pages.h"
#include "workspace/Undo.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

/// "a|b|c"
std::string Joined(const FieldTexts& texts, int first, int last) {
    std::string joined;
    for (int tab = first; tab <= last; ++tab)
        joined += (tab > first ? "|" : "") + texts(tab);
    return joined;
}

std::string Made(const ValueSeries& series, int count) {
    FieldTexts buffer;
    buffer.ReDim(count);
    FillBuffer(series, buffer);
    for (int tab = 1; tab <= count; ++tab)
        EXPECT_EQ(ValueAt(series, tab, count), buffer(tab)) << "the preview tells what will be made";
    return Joined(buffer, 1, count);
}

FieldChoice Text(const std::string& text) {
    return {.kind = ValueKind::Text, .text = text};
}

TEST(ValueSeries, NumbersFollowTheNumberPage) {
    const struct {
        const char *first, *before, *after;
        int digits;
        const char* wanted;
    } cases[] = {{"7", "No.", "", 3, "No.007|No.008|No.009"},
                 {"7", "No.", "/x", 0, "7|8|9"}, // without a format the texts around are left out
                 {"99", "", "/x", 2, "99/x|100/x|101/x"},
                 {"abc", "", "", 0, "1|2|3"},
                 {" 2.5 ", "", "", 0, "2|3|4"},
                 {"2,5", "", "", 0, "2|3|4"},
                 {"-1", "n", "", 2, "n-01|n00|n01"},
                 {"2147483645", "", "", 15, "000002147483645|000002147483646|000002147483647"}};
    for (const auto& c : cases) {
        const std::string format = c.digits == 0 ? "No, I donot require any number formatting."
                                                 : "Make each number at least " + std::to_string(c.digits) +
                                                       " digits long - eg " +
                                                       std::string(static_cast<std::size_t>(c.digits - 1), '0') + "1";
        EXPECT_EQ(kNumberFormats[FormatOfWidth(c.digits)], format);
        EXPECT_EQ(Made(ReadNumberPage(c.first, format, c.before, c.after), 3), c.wanted);
    }
    EXPECT_THROW(ReadNumberPage("2147483648", "", "", ""), OverflowError);
    EXPECT_THROW(PreviewText(NumberSeries{2147483646, 0, "", ""}, 3), OverflowError);
    EXPECT_EQ(Made(NumberSeries{2147483646, 0, "", "", 2}, 4), "2147483646|2147483646|2147483647|2147483647");
}

TEST(ValueSeries, CapitalsAreThoseOfTheNamesAlone) {
    const auto check = [](const auto& table) {
        for (const auto& style : table)
            for (const std::string_view name : style) {
                EXPECT_EQ(UpperCaption(name), ToUpper(name));
                EXPECT_EQ(LowerCaption(ToUpper(name)), name);
            }
    };
    check(MonthNameTable);
    check(DayNameTable);
    EXPECT_EQ(UpperCaption("Mei."), "MEI.");
    EXPECT_EQ(UpperCaption("Select All") + LowerCaption("CANCEL") + UpperCaption("may"), "Select AllCANCELmay");
}

TEST(ValueSeries, TheNextNumberFollowsTheLastOne) {
    const struct {
        std::vector<const char*> texts;
        std::optional<NumberSeries> wanted;
    } cases[] = {{{"No.006/x", "No.007/x", "", " "}, NumberSeries{8, 3, "No.", "/x"}},
                 {{"3", "9", "no number"}, NumberSeries{10, 0, "", ""}},
                 {{"007", "2024-1"}, NumberSeries{8, 3, "", ""}}, // two numbers are no number
                 {{"Box 9", "99999999999"}, NumberSeries{10, 1, "Box ", ""}},
                 {{"Tab 12"}, NumberSeries{13, 1, "Tab ", ""}},
                 {{"2147483647", "ë"}, std::nullopt}};
    for (const auto& c : cases) {
        TabDocument document;
        document.FieldB.ReDim(static_cast<std::int32_t>(c.texts.size()));
        for (std::size_t i = 0; i < c.texts.size(); ++i)
            document.FieldB(static_cast<std::int32_t>(i) + 1) = c.texts[i];
        EXPECT_EQ(NextNumberInDocument(document, 1), c.wanted) << c.texts[0];
        EXPECT_EQ(NextNumberInDocument(document, 0), std::nullopt);
    }
}

struct WizardTest : testing::Test {
    TestProgram program{[](const std::string& text) { ADD_FAILURE() << text; }};
    MainModule& main = program.main;
    TabDocument& document = program.main.document;
    UndoHistory& history = main.history;
    WizardState wizard;

    /// Tab n holds "an", "bn" and "cn".
    void MakeDocument(int pages, int fields, int type = 0) {
        MakePages(main, pages, fields, type,
                  [](int field, int tab) { return static_cast<char>('a' + field) + std::to_string(tab); });
        history.Clear(document);
        history.KeepSteps();
    }
    /// The wizard with numbers from 1 in field A.
    void Number(const char* count) {
        StartWizard(wizard);
        ASSERT_EQ(ConfirmCount(wizard, count), std::nullopt);
        ChooseField(wizard, document, 1);
        GiveValues(wizard, {});
    }
    std::string State() {
        return Joined(document.FieldA, 1, document.FieldA.Count()) +
               Joined(document.FieldB, 1, document.FieldB.Count()) + std::to_string(document.NoOfPages) + "," +
               std::to_string(document.TabCount) + "," + std::to_string(document.CurrentPage) + "," +
               program.Stored("Settings", "No Of Pages");
    }
};

TEST_F(WizardTest, TheNumberOfFieldsDecidesOnFieldsAndLimits) {
    const struct {
        int inUse, field, limit;
    } cases[] = {{1, 1, 20}, {2, 1, 20}, {2, 2, 20}, {3, 1, 20}, {3, 2, 10}, {3, 3, 10}};
    ConfirmCount(wizard, "1");
    for (const auto& c : cases) {
        document.setup.NoOfFields = static_cast<std::int16_t>(c.inUse);
        EXPECT_THROW(ChooseField(wizard, document, c.inUse + 1), SubscriptError);
        ChooseField(wizard, document, c.field);
        const std::string name = std::string("Field ") + static_cast<char>('A' + c.field - 1);
        EXPECT_EQ(TextsOfPage(WizardPage::Text, wizard).lines.back(),
                  name + " will be set to a LIMITED amount of " + std::to_string(c.limit) + " characters.");
        EXPECT_EQ(TextsOfPage(WizardPage::Type, wizard).lines[0],
                  name + " can be set to one of four type of settings.");
        GiveValues(wizard, Text("  ëëëëëëëëëëëëëëëëëëëëëëëëë "));
        EXPECT_EQ(CharacterCount(wizard.Buffer(c.field - 1)(1)), static_cast<std::size_t>(c.limit));
    }
    GiveValues(wizard, Text("  Hello  "));
    EXPECT_EQ(wizard.WizFieldC(1), "Hello");
}

TEST_F(WizardTest, AnotherCountKeepsWhatWasChosen) {
    document.setup.NoOfFields = 2;
    Number("5");
    ChooseField(wizard, document, 2);
    GiveValues(wizard, {.numbers = {2147483643}});
    EXPECT_NE(ConfirmCount(wizard, "0"), std::nullopt);
    EXPECT_EQ(PageAfterField(wizard, document), WizardPage::Fonts) << "what is no count changes nothing";
    StartWizard(wizard); // back over the introduction
    EXPECT_EQ(ConfirmCount(wizard, "6"), std::nullopt);
    EXPECT_EQ(Joined(wizard.WizFieldA, 1, 6) + wizard.LastFillFlag, "1|2|3|4|5|6");
    EXPECT_TRUE(wizard.WizFieldUsed[0]);
    EXPECT_EQ(PageAfterField(wizard, document), WizardPage::Chooser) << "field B would overflow";
    EXPECT_EQ(ConfirmCount(wizard, "3"), std::nullopt);
    EXPECT_EQ(wizard.WizFieldB(3), "2147483645");
}

TEST_F(WizardTest, TickedNamesComeInTurn) {
    document.setup.NoOfFields = 1;
    ConfirmCount(wizard, "5");
    ChooseField(wizard, document, 1);
    const struct {
        ValueKind kind;
        int style;
        std::vector<std::size_t> ticked;
        const char *wanted, *flag;
    } cases[] = {{ValueKind::Month, 1, {2, 5}, "March|June|March|June|March", "Yes_Mon"},
                 {ValueKind::Month, 3, {4}, "May|May|May|May|May", "Yes_Mon"},
                 {ValueKind::Month, 4, {4, 2, 9, 11, 0, 7}, "Jan.|Mrt.|Mei|Aug.|Okt.", "Yes_Mon"},
                 {ValueKind::Day, 4, {5, 6}, "Sat.|Son.|Sat.|Son.|Sat.", "Yes_Day"},
                 {ValueKind::Day, 2, {6}, "Sondag|Sondag|Sondag|Sondag|Sondag", "Yes_Day"}};
    for (const auto& c : cases) {
        EXPECT_EQ(ChooseKind(wizard, c.kind), WizardPage::Style);
        ChooseStyle(wizard, c.style);
        FieldChoice choice = wizard.Entry();
        EXPECT_EQ(GiveValues(wizard, choice), "Please make a selection before you click next or click on Cancel.");
        EXPECT_EQ(wizard.FieldDone[0], &c != cases) << "a refusal changes nothing";
        for (const std::size_t box : c.ticked)
            (c.kind == ValueKind::Month ? choice.months[box] : choice.days[box]) = true;
        EXPECT_EQ(GiveValues(wizard, choice), std::nullopt);
        EXPECT_EQ(Joined(wizard.WizFieldA, 1, 5), c.wanted);
        EXPECT_EQ(wizard.LastFillFlag, c.flag);
        wizard.Entries[0] = {};
        EXPECT_EQ(wizard.Entries[1].style, c.style) << "what comes next is in the same language";
    }
    wizard.FieldDone[1] = true;
    ChooseStyle(wizard, 1);
    EXPECT_EQ(wizard.Entries[1].style, 2) << "a field that has its values keeps its style";
}

TEST_F(WizardTest, AppendingGrowsByWholePagesFromTheTabInUse) {
    const struct {
        int pages, currentTab;
        const char* count;
        int pagesAfter, shown;
    } cases[] = {{1, 0, "30", 2, 1}, // an empty document has no tab in use
                 {2, 40, "20", 3, 2},
                 {3, 24, "2", 3, 1},
                 {3, 25, "24", 3, 2}, // a run that ends early keeps the rest
                 {1, 25, "1", 2, 2}};
    for (const auto& c : cases) {
        MakeDocument(c.pages, 3);
        document.CurrentTab = static_cast<std::int16_t>(c.currentTab);
        const TabDocument before = document;
        const std::string state = State();
        Number(c.count);
        ASSERT_TRUE(AppendWizardTabs(main, wizard));
        const int start = std::max(1, c.currentTab);
        EXPECT_EQ(document.NoOfPages, c.pagesAfter);
        EXPECT_EQ(document.TabCount, c.pagesAfter * 24);
        EXPECT_EQ(document.CurrentPage, c.shown);
        EXPECT_EQ(program.Stored("Settings", "No Of Pages"), std::to_string(c.pagesAfter));
        EXPECT_TRUE(document.DocChanged);
        for (int tab = 1; tab <= document.TabCount; ++tab) {
            const bool existed = tab <= before.TabCount;
            const bool filled = tab >= start && tab < start + wizard.NewTabCount;
            EXPECT_EQ(document.FieldA(tab), filled    ? std::to_string(tab - start + 1)
                                            : existed ? before.FieldA(tab)
                                                      : "");
            EXPECT_EQ(document.FieldB(tab), existed ? before.FieldB(tab) : "") << "not used";
            EXPECT_EQ(document.FieldC(tab), existed ? before.FieldC(tab) : "");
        }
        EXPECT_EQ(history.UndoName(), "AutoRepeat Wizard");
        UndoChange(main);
        EXPECT_EQ(State(), state);
        EXPECT_FALSE(history.CanUndo() || document.DocChanged);
    }
}

TEST_F(WizardTest, NewTabsMayStandBehindTheLastText) {
    MakeDocument(3, 2);
    document.CurrentTab = 28;
    for (int tab = 50; tab <= 72; ++tab)
        document.FieldA(tab) = document.FieldB(tab) = "";
    EXPECT_EQ(FromTabInUse(document) + "|" + FromBehindLast(document),
              "from tab 28, where you are|behind the last text, from tab 50");
    EXPECT_EQ(PlaceOf(document, false, 30).place, "These will be tabs 28 to 57.");
    EXPECT_EQ(PlaceOf(document, false, 30).warning, "22 of them hold texts, which will be replaced.");
    EXPECT_EQ(PlaceOf(document, true, 30).warning, "");
    Number("30");
    wizard.BehindLast = true;
    EXPECT_EQ(TextsOfNewTab(document, wizard, 1), (TabTexts{"1", "", ""}));
    EXPECT_EQ(TextsOfNewTab(document, wizard, 2, NumberSeries{7}), (TabTexts{"8", "", ""})) << "as it is entered";
    ASSERT_TRUE(AppendWizardTabs(main, wizard));
    EXPECT_EQ(Joined(document.FieldA, 49, 51) + Joined(document.FieldA, 79, 80), "a49|1|230|");
    EXPECT_EQ(document.CurrentTab, 50);
    EXPECT_EQ(document.CurrentPage, 3);
    EXPECT_EQ(document.TabCount, 96);
}

TEST_F(WizardTest, TheNumberAdvisedIsTheMostThatIsAccepted) {
    for (const int type : {0, 3, 5})
        for (const int start : {1, 2, 24, 25, 32700}) {
            MakeDocument(1, 1, type);
            const auto refusal = RefuseNewTabs(document, start, 32766);
            ASSERT_TRUE(refusal);
            const int most = std::stoi(refusal->substr(refusal->rfind(' ')));
            EXPECT_FALSE(RefuseNewTabs(document, start, most));
            EXPECT_TRUE(RefuseNewTabs(document, start, most + 1));
            EXPECT_LT(start + most - 1, 32767);
        }
    EXPECT_TRUE(RefuseNewTabs(document, 2, 32766)->ends_with(" 32759"));
    EXPECT_EQ(PlaceOf(document, false, 32766).warning, RefuseNewTabs(document, 1, 32766));
}

TEST_F(WizardTest, FontsArePartOfItsOneStep) {
    for (const bool changed : {false, true}) {
        MakeDocument(1, 1);
        document.DocChanged = changed;
        const FontSettings before = main.fonts;
        FontSettings chosen = before;
        chosen[0].Bold = !chosen[0].Bold;
        Number("2");
        StoreWizardFonts(main, wizard, chosen);
        StoreWizardFonts(main, wizard, before);
        StoreWizardFonts(main, wizard, chosen);
        program.ui.Expect(
            "If you cancel this wizard, none of the settings will be saved.  Are you sure you want to cancel?",
            Icon::Question, Buttons::YesNo, Answer::Yes, Answer::No);
        EXPECT_TRUE(ConfirmCancel(main, wizard, WizardPage::Fonts));
        EXPECT_TRUE(main.fonts == before && document.DocChanged == changed);
        EXPECT_FALSE(history.CanUndo() || history.CanRedo());
        Number("2");
        StoreWizardFonts(main, wizard, chosen);
        ASSERT_TRUE(AppendWizardTabs(main, wizard));
        EXPECT_TRUE(main.fonts == chosen);
        EXPECT_EQ(program.Stored("Font Settings", "Font Bold 1"), chosen[0].Bold ? "True" : "False");
        UndoChange(main);
        EXPECT_TRUE(main.fonts == before && !history.CanUndo());
        EXPECT_EQ(document.FieldA(1), "a1");
        RedoChange(main);
        EXPECT_TRUE(main.fonts == chosen);
        wizard = {};
    }
}

TEST_F(WizardTest, NumbersGoOnWithTheirTextsAsTheDocumentHasThem) {
    MakeDocument(1, 2);
    ChooseField(wizard, document, 1);
    EXPECT_EQ(wizard.Entry().numbers.width, kTextsAlone) << "the document ends in \"a24\"";
    wizard.Entry().numbers.width = 0;
    ChooseField(wizard, document, 1);
    EXPECT_EQ(wizard.Entry().numbers.width, 0) << "as it was left";
    EXPECT_EQ(ReadNumberPage("3", kNumberFormats[0], "Tab ", "", true).width, kTextsAlone);
    EXPECT_EQ(ReadNumberPage("3", kNumberFormats[1], "Tab ", "", true).width, 2);
    EXPECT_EQ(FormatOfWidth(kTextsAlone), 0U);
}

TEST_F(WizardTest, AppendingTakesThePageOnScreen) {
    MakeDocument(2, 2);
    FakeEditor editor;
    editor.texts = {{"typed", "", ""}};
    main.editor.Take(editor);
    document.CurrentPage = 2;
    Number("3");
    EXPECT_TRUE(AppendWizardTabs(main, wizard));
    EXPECT_EQ(document.FieldA(25), "typed");
    main.editor.Leave();
}

TEST_F(WizardTest, WhatIsTooLargeLeavesAllAsItWas) {
    const struct {
        int type, currentTab;
        const char *count, *pages, *labels;
    } refused[] = {
        {5, 0, "32766", "2730", "32760"}, {0, 24, "32738", "1365", "32737"}, {3, 2, "32725", "606", "32723"}};
    for (const auto& c : refused) {
        MakeDocument(2, 2, c.type);
        document.CurrentTab = static_cast<std::int16_t>(c.currentTab);
        const std::string state = State();
        Number(c.count);
        program.ui.Expect(std::string("The maximum number of pages for this type on label is: ") + c.pages +
                              "\r\nPlease change your number of labels to " + c.labels,
                          Icon::Information);
        EXPECT_FALSE(AppendWizardTabs(main, wizard));
        EXPECT_EQ(document.CurrentTab, std::max(1, c.currentTab));
        document.CurrentTab = 3;
        Number("32766");
        EXPECT_THROW(AppendWizardTabs(main, wizard), OverflowError);
        EXPECT_EQ(State(), state);
        EXPECT_FALSE(document.DocChanged || history.CanUndo());
    }
    EXPECT_EQ(program.ui.beeps, 3);
    Number("32724");
    document.CurrentTab = 1;
    EXPECT_TRUE(AppendWizardTabs(main, wizard)) << "the most that fits";
    EXPECT_EQ(document.FieldA(32724), "32724");
}

TEST_F(WizardTest, WhatIsStoredCanBeChosenOnTheFontPage) {
    MakeDocument(1, 3);
    main.fonts[0].Name = "Garamond";
    main.fonts[0].Size = 13;
    main.fonts[1].Name = "bitter";
    main.fonts[2].Name = "Zilla";
    main.fonts[2].HorizontalAlignment = 9;
    SaveFontSettings(main.settings, main.fonts);
    const auto captions = [](const FontPage& page, int field) {
        std::string joined;
        for (const std::string& name : page.Typefaces(field))
            joined += name + "|";
        return joined;
    };
    const FewFonts few({"Arimo", "Bitter", "Tinos"}), none;
    const FontPage page(main, few);
    const char* wanted[] = {"Arimo|Bitter|Garamond|Tinos|", "Arimo|Bitter|Tinos|", "Arimo|Bitter|Tinos|Zilla|"};
    for (int field = 0; field < 3; ++field)
        EXPECT_EQ(captions(page, field), wanted[field]);
    EXPECT_EQ(page.Sizes(0),
              (std::vector<std::int16_t>{6, 7, 8, 9, 10, 11, 12, 13, 14, 16, 18, 20, 22, 24, 26, 28, 36, 48, 72}));
    EXPECT_EQ(page.MissingText(), "Garamond is not installed: Arimo is printed in its place.\n"
                                  "Zilla is not installed: Arimo is printed in its place.");
    EXPECT_EQ(page.HorizontalButton(2), 1) << "an unknown code is printed left";
    for (const bool changed : {false, true}) {
        document.DocChanged = changed;
        FontPage(main, few).Store();
        EXPECT_EQ(document.DocChanged, changed) << "equal fonts are no change, and take none away";
    }
    program.ui.Expect("Please reinstall the printer fonts.\r\nCalled from Sub: FillFontType", Icon::Critical);
    const FontPage bare(main, none);
    EXPECT_EQ(captions(bare, 0), "Garamond|");
    EXPECT_EQ(bare.MissingText(), "Garamond is not installed.\nbitter is not installed.\nZilla is not installed.");
}

} // namespace
} // namespace velmora
