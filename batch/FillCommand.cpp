#include "batch/BatchProgram.h"
#include "batch/Commands.h"
#include "batch/FieldOption.h"
#include "wizard/AppendWizardTabs.h"
#include "workspace/SaveDocument.h"

#include <iostream>

namespace velmora {
namespace {

std::vector<FieldOption> ParseFields(const std::vector<std::string>& texts) {
    std::vector<FieldOption> options;
    for (const std::string& text : texts) {
        options.push_back(ParseFieldOption(text));
        for (std::size_t i = 0; i + 1 < options.size(); ++i)
            if (options[i].fieldNo == options.back().fieldNo)
                throw UsageError("--field " + options.back().source + ": this field has its values already");
    }
    return options;
}

std::vector<TickBox> TickBoxes(const WizardState& wizard, const FieldOption& option) {
    std::vector<TickBox> boxes;
    for (const std::string& caption : TickCaptions(wizard))
        boxes.push_back({option.upper ? UpperCaption(caption) : caption, option.ticked[boxes.size()]});
    return boxes;
}

/// What a person does on the wizard's pages for one field.
void Configure(WizardState& wizard, const FieldOption& option) {
    ChooseKind(wizard, option.kind);
    if (option.kind == ValueKind::Numeric) {
        FillNumbers(wizard, option.numbers);
    } else if (option.kind == ValueKind::Text) {
        if (CharacterCount(Trim(option.text)) > static_cast<std::size_t>(wizard.FieldMaxLen))
            throw UsageError("value has more than " + std::to_string(wizard.FieldMaxLen) + " characters");
        FillText(wizard, option.text);
    } else {
        ChooseStyle(wizard, option.style);
        FillNames(wizard, TickBoxes(wizard, option));
    }
}

void ChooseAndConfigure(WizardState& wizard, const TabDocument& document, const FieldOption& option) {
    try {
        if (option.fieldNo > document.setup.NoOfFields)
            throw UsageError("fields per tab in this document: " + std::to_string(document.setup.NoOfFields));
        ChooseField(wizard, document, option.fieldNo);
        Configure(wizard, option);
    } catch (const UsageError& error) {
        throw UsageError("--field " + option.source + ": " + error.what());
    } catch (const OverflowError& error) {
        throw UsageError("--field " + option.source + ": " + error.what());
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
    const std::vector<FieldOption> options = ParseFields(arguments.fields);
    BatchProgram program;
    program.Load(arguments.file);
    MainModule& main = program.Main();
    if (arguments.start > main.document.TabCount + 1)
        throw UsageError("--start: the document has " + std::to_string(main.document.TabCount) + " tabs");
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

} // namespace velmora
