#include "wizard/ValueNotes.h"

#include "base/Error.h"
#include "base/Text.h"

#include <algorithm>

namespace velmora {
namespace {

/// The values among which the longest and the widest ones are.
std::vector<std::string> Candidates(const ValueSeries& series, std::int32_t count) {
    if (const auto* names = std::get_if<NameSeries>(&series))
        return names->names;
    return {ValueAt(series, count, count), ValueAt(series, 1, count)};
}

/// Of the texts that reach the tabs.
bool HoldsComma(const FieldChoice& choice, std::int16_t most) {
    const NumberSeries& numbers = choice.numbers;
    std::string texts;
    if (choice.kind == ValueKind::Text)
        texts = MakeTextSeries(choice.text, most).text;
    else if (choice.kind == ValueKind::Numeric && numbers.width > 0)
        texts = numbers.before + numbers.after;
    return texts.find(',') != std::string::npos;
}

void Add(std::string& sentences, const std::string& sentence) {
    sentences += (sentences.empty() ? "" : " ") + sentence;
}

/// A text that was typed is cut to what the field takes; texts around a number are not.
void WarnOfLength(std::string& warning, const FieldChoice& choice, std::int16_t most, const std::string& longest) {
    const std::string takes = "The field takes " + std::to_string(most) + " letters: ";
    const std::string kept = MakeTextSeries(choice.text, most).text;
    const std::size_t letters = CharacterCount(longest);
    if (choice.kind == ValueKind::Text && kept != Trim(OneLine(choice.text)))
        Add(warning, takes + "only \"" + kept + "\" will stand there.");
    else if (letters > static_cast<std::size_t>(most))
        Add(warning, takes + "\"" + longest + "\" has " + std::to_string(letters) + ".");
}

void WarnOfTexts(std::string& warning, const FieldChoice& choice, std::int16_t most) {
    const NumberSeries& numbers = choice.numbers;
    if (HoldsComma(choice, most))
        Add(warning, "In a file a comma ends the text: what follows it would become the next field.");
    if (choice.kind == ValueKind::Numeric && numbers.width == 0 && !(numbers.before + numbers.after).empty())
        Add(warning, "Without a number format texts are added only where that is ticked.");
}

void WarnOfPaper(std::string& warning, const std::vector<std::string>& values, int field, TabSample& sample) {
    for (const std::string& value : values)
        if (const std::string loss = LossText(sample.LossOf(field, value)); !loss.empty())
            return Add(warning, "When printed \"" + value + "\" " + loss + ".");
}

std::string PreviewOf(const ValueSeries& series, int fieldNo, std::int32_t count) {
    const auto* text = std::get_if<TextSeries>(&series);
    if (text && text->text.empty())
        return std::string("An empty text empties field ") + static_cast<char>('A' + fieldNo - 1) + ".";
    return PreviewText(series, count);
}

const std::string& LongestOf(const std::vector<std::string>& values) {
    return *std::max_element(values.begin(), values.end(), [](const std::string& a, const std::string& b) {
        return CharacterCount(a) < CharacterCount(b);
    });
}

void Count(ValueNotes& notes, std::size_t letters, std::int16_t most) {
    notes.letters = std::to_string(letters) + " of " + std::to_string(most);
    notes.isLong = letters > static_cast<std::size_t>(most);
}

} // namespace

ValueNotes NotesOn(const FieldChoice& choice, int fieldNo, std::int16_t most, std::int32_t count, TabSample& sample) {
    ValueNotes notes;
    const auto series = SeriesOf(choice, most);
    if (!series)
        return notes;
    try {
        notes.preview = PreviewOf(*series, fieldNo, count);
        const std::vector<std::string> values = Candidates(*series, count);
        const std::string& longest = LongestOf(values);
        const bool isText = choice.kind == ValueKind::Text;
        Count(notes, CharacterCount(isText ? Trim(OneLine(choice.text)) : longest), most);
        WarnOfLength(notes.warning, choice, most, longest);
        WarnOfTexts(notes.warning, choice, most);
        WarnOfPaper(notes.warning, values, fieldNo - 1, sample);
    } catch (const OverflowError&) {
        notes.preview = kOutOfRange;
    }
    return notes;
}

std::string FieldOverview(const WizardState& wizard, int fieldNo) {
    const auto field = static_cast<std::size_t>(fieldNo - 1);
    const auto& chosen = wizard.Chosen.at(field);
    if (!chosen)
        return "keeps its texts";
    const auto series = SeriesOf(*chosen, wizard.MostLetters[field]);
    const auto* text = std::get_if<TextSeries>(&*series);
    if (text && text->text.empty())
        return "will be emptied";
    try {
        return OverviewText(*series, wizard.NewTabCount);
    } catch (const OverflowError&) {
        return kOutOfRange;
    }
}

std::string FieldWarning(const WizardState& wizard, int fieldNo, TabSample& sample) {
    const auto field = static_cast<std::size_t>(fieldNo - 1);
    const auto& chosen = wizard.Chosen.at(field);
    return chosen ? NotesOn(*chosen, fieldNo, wizard.MostLetters[field], wizard.NewTabCount, sample).warning : "";
}

} // namespace velmora
