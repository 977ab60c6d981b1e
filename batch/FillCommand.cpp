#include "batch/BatchProgram.h"
#include "batch/Commands.h"
#include "wizard/AppendWizardTabs.h"
#include "wizard/NextNumber.h"
#include "wizard/Recipes.h"
#include "workspace/SaveDocument.h"

#include <algorithm>
#include <iostream>

namespace velmora {
namespace {

/// The settings that hold the recipes are no part of what is filled.
Recipe ReadStoredRecipe(const std::string& name, const std::string& ini) {
    BatchProgram program;
    program.UseOwnSettings(ini);
    return ReadRecipe(program.Settings(), name);
}

/// One field, and how the command line names it in an error.
struct FieldOption {
    std::string source;
    FieldSetting setting;
};

FieldOption ParseFieldOption(const std::string& text) {
    const std::string source = "--field " + OneLine(text);
    try {
        return {source, ParseFieldWords(text)};
    } catch (const Error& error) {
        throw UsageError(source + ": " + error.what());
    }
}

std::vector<FieldOption> ParseFields(const std::vector<std::string>& texts) {
    std::vector<FieldOption> options;
    for (const std::string& text : texts) {
        options.push_back(ParseFieldOption(text));
        for (std::size_t i = 0; i + 1 < options.size(); ++i)
            if (options[i].setting.fieldNo == options.back().setting.fieldNo)
                throw UsageError(options.back().source + ": this field has its values already");
    }
    return options;
}

/// The recipe's fields, but for those that have an option of their own. Its numbers go on from the document's.
void AddRecipe(std::vector<FieldOption>& options, const TabDocument& document, const FillArguments& arguments) {
    const std::string source = "--recipe " + OneLine(arguments.recipe);
    const std::vector<FieldOption> given = options;
    Recipe recipe = ReadStoredRecipe(arguments.recipe, arguments.ini);
    if (recipe.empty())
        throw UsageError(source + ": there is no such recipe");
    for (FieldSetting& setting : recipe) {
        setting.choice.numbers.first = FirstNumberAfter(document, setting.fieldNo - 1, setting.choice.numbers);
        if (std::none_of(given.begin(), given.end(),
                         [&](const FieldOption& option) { return option.setting.fieldNo == setting.fieldNo; }))
            options.push_back({source + ", field " + static_cast<char>('A' + setting.fieldNo - 1), setting});
    }
}

void CheckLength(const FieldSetting& setting, int fieldsInUse) {
    const auto most = static_cast<std::size_t>(MostCharacters(setting.fieldNo, fieldsInUse));
    if (setting.choice.kind == ValueKind::Text && CharacterCount(Trim(setting.choice.text)) > most)
        throw UsageError("value has more than " + std::to_string(most) + " characters");
}

void ChooseAndConfigure(WizardState& wizard, const TabDocument& document, const FieldOption& option) {
    try {
        if (option.setting.fieldNo > document.setup.NoOfFields)
            throw UsageError("fields per tab in this document: " + std::to_string(document.setup.NoOfFields));
        CheckLength(option.setting, document.setup.NoOfFields);
        GiveField(wizard, document, option.setting);
    } catch (const UsageError& error) {
        throw UsageError(option.source + ": " + error.what());
    } catch (const OverflowError& error) {
        throw UsageError(option.source + ": " + error.what());
    }
}

void Append(BatchProgram& program, const WizardState& wizard) {
    try {
        if (!AppendWizardTabs(program.Main(), wizard))
            throw UsageError("--count: " + program.Told());
    } catch (const OverflowError& error) {
        throw UsageError(std::string("--count: ") + error.what() + ": there is no tab beyond " +
                         std::to_string(kMostTabs));
    }
}

} // namespace

const int kMostTabsToFill = kMostNewTabs;

int RunFill(const FillArguments& arguments) {
    std::vector<FieldOption> options = ParseFields(arguments.fields);
    if (options.empty() && arguments.recipe.empty())
        throw UsageError("fill needs --field or --recipe");
    BatchProgram program;
    program.Load(arguments.file);
    MainModule& main = program.Main();
    if (arguments.start > main.document.TabCount + 1)
        throw UsageError("--start: the document has " + std::to_string(main.document.TabCount) + " tabs");
    if (!arguments.recipe.empty())
        AddRecipe(options, main.document, arguments);
    WizardState wizard;
    StartWizard(wizard);
    ConfirmCount(wizard, std::to_string(arguments.count));
    for (const FieldOption& option : options)
        ChooseAndConfigure(wizard, main.document, option);
    main.document.CurrentTab = static_cast<std::int16_t>(arguments.start);
    Append(program, wizard);
    const std::string bytes = TabFileBytes(main.document, program.Settings(), main.ui);
    WriteOutput(arguments.output, [&](const auto& sink) { sink(bytes); });
    WarnOfCommas(main);
    if (!program.Told().empty())
        std::cerr << "velmora-batch: " << program.Told() << '\n';
    return kDone;
}

int RunRecipes(const std::string& ini) {
    BatchProgram program;
    program.UseOwnSettings(ini);
    for (const std::string& name : RecipeNames(program.Settings()))
        std::cout << name << '\n';
    return kDone;
}

} // namespace velmora
