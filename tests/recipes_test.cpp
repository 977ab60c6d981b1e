// What the wizard remembers: choices in words, the last run and recipes; and what it says of entries beforehand.
#include "base/Error.h"
#include "base/Text.h"
#include "tests/support/Documents.h"
#include "tests/support/InstalledFonts.h"
#include "tests/support/TestProgram.h"
#include "wizard/NextNumber.h"
#include "wizard/Recipes.h"
#include "wizard/ValueNotes.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

TEST(FieldWords, ComeBackAsTheyWere) {
    for (const char* words :
         {"A=number,first=1,width=4,before=2026/", "C=number,first=-3",
          "B=number,first=4,width=1,before=\"Tab \",repeat=25",
          "A=number,first=7,width=2,before=\"a,\"\"b\"\"\",after=/x", "B=month,style=4,names=3+12,upper,repeat=2",
          "B=day,style=1", "C=text,value=\" x, \"", "C=text"})
        EXPECT_EQ(FieldWords(ParseFieldWords(words)), words);
    EXPECT_EQ(FieldWords({1, {}}), "A=number,first=1");
    for (const char* words : {"A=number,repeat=0", "A=text,repeat=2", "B=day,names="})
        EXPECT_THROW(ParseFieldWords(words), Error) << words;
}

TEST(FieldWords, AFirstTextCountsOnFromItsLastNumber) {
    const std::pair<const char*, const char*> cases[] = {{"2026/0001", "A=number,first=1,width=4,before=2026/"},
                                                         {" Tab 3 ", "A=number,first=3,width=1,before=\"Tab \""},
                                                         {"10", "A=number,first=10"},
                                                         {"007", "A=number,first=7,width=3"},
                                                         {"No.7/x", "A=text,value=No.7/x"},
                                                         {"99999999999", "A=text,value=99999999999"},
                                                         {"0000000000000001", "A=text,value=0000000000000001"}};
    for (const auto& [text, words] : cases) {
        const FieldChoice choice = ChoiceOfFirstText(text);
        EXPECT_EQ(FieldWords({1, choice}), words);
        EXPECT_EQ(FirstTextOf(choice), Trim(text));
    }
}

struct RecipesTest : testing::Test {
    TestProgram program{[](const std::string& text) { ADD_FAILURE() << text; }};
    MainModule& main = program.main;
    WizardState wizard;

    void SetUp() override {
        MakePages(main, 1, 3, 0,
                  [](int field, int tab) { return field == 0 ? "2026/" + std::to_string(1000 + tab) : ""; });
        ConfirmCount(wizard, "30");
    }
    void Give(const std::string& words) { GiveField(wizard, main.document, ParseFieldWords(words)); }
};

TEST_F(RecipesTest, AreKeptByNameAndGoOnFromTheDocument) {
    for (const char* words : {"A=number,first=1,width=4,before=2026/", "B=month,style=1,names=3", "C=text,value=Meyer"})
        Give(words);
    SaveRecipe(main.settings, "Monthly", RecipeOf(wizard));
    SaveRecipe(main.settings, "b", {{2, {}}});
    EXPECT_EQ(RecipeNames(main.settings), (std::vector<std::string>{"Monthly", "b"}));
    EXPECT_EQ(program.Stored("Recipes", "Monthly B"), "B=month,style=1,names=3");
    WizardState other;
    ConfirmCount(other, "2");
    GiveField(other, main.document, {1, {}});
    main.document.setup.NoOfFields = 2;
    TakeRecipe(other, main.document, ReadRecipe(main.settings, "monthly"));
    EXPECT_EQ(other.WizFieldA(2), "2026/1026");
    EXPECT_EQ(other.WizFieldB(2), "March");
    EXPECT_FALSE(other.Chosen[2] || other.WizFieldUsed[2]) << "not in use here";
    TakeRecipe(other, main.document, ReadRecipe(main.settings, "b"));
    EXPECT_EQ(other.WizFieldB(2), "2") << "this document has none of its numbers";
    EXPECT_FALSE(other.FieldDone[0]) << "not in this recipe";
    SaveRecipe(main.settings, "MONTHLY", {{3, {}}});
    EXPECT_EQ(ReadRecipe(main.settings, "Monthly").size(), 1U) << "in place of the old one";
    DeleteRecipe(main.settings, "Monthly");
    EXPECT_EQ(RecipeNames(main.settings), std::vector<std::string>{"b"});
    program.Store("Recipes", "b A", "A=year");
    EXPECT_THROW(ReadRecipe(main.settings, "b"), Error);
}

TEST_F(RecipesTest, TheLastRunIsRemembered) {
    EXPECT_TRUE(LastRun(main.settings).empty() && LastCount(main.settings).empty());
    Give("C=text,value=\"Meyer and Sons\"");
    Give("A=number,first=5,width=2,before=" + std::string(120, 'x'));
    RememberRun(main.settings, wizard);
    EXPECT_EQ(LastCount(main.settings), "30");
    EXPECT_EQ(program.Stored("AutoRepeat Wizard", "A"), "") << "too long to be kept";
    EXPECT_EQ(program.Stored("AutoRepeat Wizard", "C"), "C=text,value=\"Meyer and \"") << "as it was filled";
    EXPECT_EQ(LastRun(main.settings).size(), 1U);
    ForgetField(wizard, 3);
    Give("B=number,first=2147483600"); // in 300 tabs too many
    ConfirmCount(wizard, "300");
    RememberRun(main.settings, wizard);
    EXPECT_TRUE(LastRun(main.settings).empty()) << "neither an older run's field nor one without values";
    program.Store("AutoRepeat Wizard", "B", "B=year");
    EXPECT_TRUE(LastRun(main.settings).empty());
    for (const std::string& name : std::vector<std::string>{"", " a", "a=b", ";a", "[a", "a\nb", std::string(41, 'x')})
        EXPECT_TRUE(RefuseRecipe(name, {})) << name;
    EXPECT_EQ(RefuseRecipe("ok", RecipeOf(wizard)), "The texts of field A are too long to be kept.");
}

TEST_F(RecipesTest, AnOverflowChangesNothing) {
    Give("B=day,style=1");
    EXPECT_THROW(TakeRecipe(wizard, main.document, {{3, {.numbers = {2147483647}}}}), OverflowError);
    EXPECT_EQ(wizard.WizFieldB(30), "Tuesday");
    EXPECT_TRUE(wizard.FieldDone[1]);
}

TEST_F(RecipesTest, EntriesSayWhatTheyMakeAndLose) {
    const InstalledFonts catalogue;
    TabSample sample(catalogue, main.document.setup, main.settings, main.fonts);
    EXPECT_EQ(sample.Fields().size(), 3U);
    for (const PlacedText& field : sample.Fields())
        EXPECT_TRUE(sample.Tab().Holds(field.box, 1));
    const std::string comma = "In a file a comma ends the text: what follows it would become the next field.";
    const struct {
        const char *words, *preview, *letters;
        std::string warning;
    } cases[] = {{"C=number,first=9,width=1,before=\"Tab \"", "Tab 9, Tab 10, Tab 11 ... Tab 38", "6 of 10", ""},
                 {"C=number,first=1,width=2,before=\"Meyer and Sons Limited \"",
                  "Meyer and Sons Limited 01, Meyer and Sons Limited 02, Meyer and Sons Limited 03 ... Meyer and Sons "
                  "Limited 30",
                  "25 of 10",
                  "The field takes 10 letters: \"Meyer and Sons Limited 30\" has 25. When printed \"Meyer and Sons "
                  "Limited 30\" will be cut off."},
                 {"C=number,first=1,width=1,after=\", x\"", "1, x, 2, x, 3, x ... 30, x", "5 of 10", comma},
                 {"C=number,first=2147483640", kOutOfRange, "", ""},
                 {"C=text,value=\"Meyer, and Sons Limited\"", "Meyer, and on every tab", "23 of 10",
                  "The field takes 10 letters: only \"Meyer, and\" will stand there. " + comma},
                 {"C=text,value=\"Meyer and Sons, Ltd\"", "Meyer and  on every tab", "19 of 10",
                  "The field takes 10 letters: only \"Meyer and \" will stand there."},
                 {"C=text", "An empty text empties field C.", "0 of 10", ""},
                 {"C=day,style=1,names=1+2,repeat=2", "Monday, Monday, Tuesday ... Monday", "7 of 10", ""}};
    for (const auto& c : cases) {
        const ValueNotes notes = NotesOn(ParseFieldWords(c.words).choice, 3, 10, 30, sample);
        EXPECT_EQ(notes.preview, c.preview);
        EXPECT_EQ(notes.letters, c.letters);
        EXPECT_EQ(notes.warning, c.warning);
        EXPECT_EQ(notes.isLong, notes.letters.size() > std::string("9 of 10").size());
    }
    GiveFirstText(wizard, main.document, 2, "2147483640"); // in 30 tabs too many
    ConfirmCount(wizard, "5");
    EXPECT_EQ(FieldWarning(wizard, 2, sample), "");
    FieldChoice unused{.numbers = {1, 0, "Tab"}};
    EXPECT_NE(NotesOn(unused, 1, 20, 3, sample).warning, "") << "texts without effect";
    unused.kind = ValueKind::Month;
    EXPECT_EQ(NotesOn(unused, 1, 20, 3, sample).preview, "") << "nothing ticked";
}

TEST_F(RecipesTest, TheChooserShowsWhatTheFieldsWillHold) {
    EXPECT_EQ(FieldOverview(wizard, 1), "keeps its texts");
    const std::pair<const char*, const char*> cases[] = {
        {"A=number,first=1,width=4,before=2026/", "2026/0001 ... 2026/0030"},
        {"A=month,style=1,names=3", "March, March ..."},
        {"A=text", "will be emptied"}};
    for (const auto& [words, overview] : cases) {
        Give(words);
        EXPECT_EQ(FieldOverview(wizard, 1), overview);
    }
    Give("A=number,first=2147483600");
    ConfirmCount(wizard, "300");
    EXPECT_EQ(FieldOverview(wizard, 1), kOutOfRange);
}

} // namespace
} // namespace velmora
