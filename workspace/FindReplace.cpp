#include "workspace/FindReplace.h"

#include "base/Text.h"
#include "workspace/Dialogs.h"
#include "workspace/Recovery.h"
#include "workspace/TakePageBack.h"

#include <algorithm>
#include <tuple>
#include <vector>

namespace velmora {
namespace {

/// Finds one text in many; the places are those of the text as it stands.
class Pattern {
public:
    explicit Pattern(const FindRequest& request)
        : matchCase_(request.matchCase), find_(matchCase_ ? request.find : FoldCase(request.find)) {}

    std::size_t In(const std::string& text, std::size_t from) const {
        if (find_.empty() || text.size() < from + find_.size())
            return std::string::npos;
        return matchCase_ ? text.find(find_, from) : FoldCase(text).find(find_, from);
    }
    std::size_t Length() const { return find_.size(); }

    std::vector<TextSpan> AllIn(const std::string& text) const {
        std::vector<TextSpan> all;
        for (std::size_t at = In(text, 0); at != std::string::npos; at = In(text, at + Length()))
            all.push_back({at, Length()});
        return all;
    }
    std::string ReplacedIn(const std::string& text, const std::string& with) const {
        std::string replaced;
        std::size_t from = 0;
        for (const TextSpan& match : AllIn(text)) {
            replaced.append(text, from, match.at - from) += with;
            from = match.at + match.length;
        }
        return replaced.append(text, from);
    }

private:
    bool matchCase_;
    std::string find_;
};

bool IsSearched(const FindRequest& request, int field) {
    return !request.field || *request.field == field;
}

/// A text that is too long already may stay so, but not grow.
std::size_t MostCharacters(const TabDocument& document, int field, const std::string& old) {
    return std::max(document.setup.Limits.Of(field), CharacterCount(old));
}

bool Fits(const TabDocument& document, int field, const std::string& old, const std::string& text) {
    return CharacterCount(text) <= MostCharacters(document, field, old);
}

constexpr int kMostShown = 10;

struct Replacements {
    std::vector<std::pair<TabBox, std::string>> texts;
    int tooLong = 0;     ///< texts left out
    std::string preview; ///< a line for each of the first of them

    void LeaveOut(const TabDocument& document, TabBox box, const std::string& text) {
        if (++tooLong > kMostShown)
            return;
        const std::string_view kept =
            LeftCharacters(text, MostCharacters(document, box.field, document.Field(box.field)(box.tab)));
        preview += "Tab " + std::to_string(box.tab) + ", field " + static_cast<char>('A' + box.field) + ": " +
                   std::string(kept) + "[" + text.substr(kept.size()) + "]\r\n";
    }
};

void PlanReplacement(Replacements& plan, const TabDocument& document, const Pattern& pattern, TabBox box,
                     const std::string& with) {
    const std::string& old = document.Field(box.field)(box.tab);
    if (pattern.In(old, 0) == std::string::npos)
        return;
    std::string text = pattern.ReplacedIn(old, with);
    if (text == old)
        return;
    if (Fits(document, box.field, old, text))
        plan.texts.emplace_back(box, std::move(text));
    else
        plan.LeaveOut(document, box, text);
}

Replacements PlanReplacements(const TabDocument& document, const FindRequest& request) {
    Replacements plan;
    const Pattern pattern(request);
    for (std::int32_t tab = 1; tab <= document.TabCount; ++tab)
        for (int field = 0; field < document.setup.NoOfFields; ++field)
            if (IsSearched(request, field))
                PlanReplacement(plan, document, pattern, {tab, field}, request.replaceWith);
    return plan;
}

void Put(MainModule& main, const std::vector<std::pair<TabBox, std::string>>& texts) {
    KeepRecoveryCopy(main);
    {
        const UndoStep step(main.history, main.State(), "Replace");
        for (const auto& [box, text] : texts)
            main.document.Field(box.field)(box.tab) = text;
        main.document.DocChanged = true;
    }
    main.editor->BringUp();
}

bool AgreesToLeaveOut(UserInterface& ui, const Replacements& plan) {
    const int more = plan.tooLong - kMostShown;
    return plan.tooLong == 0 ||
           Ask(ui,
               "Texts that would become longer than their field allows, by what is in brackets, and stay as they "
               "are: " +
                   std::to_string(plan.tooLong) + "\r\n" + plan.preview +
                   (more > 0 ? "and " + std::to_string(more) + " more\r\n" : "") + "Do you want to replace the others?",
               Buttons::YesNo) == Answer::Yes;
}

} // namespace

MatchFinder MatchesOf(const FindRequest& request) {
    return [request, pattern = Pattern(request)](int field, const std::string& text) {
        return IsSearched(request, field) ? pattern.AllIn(text) : std::vector<TextSpan>();
    };
}

Finder::Match Finder::Start() const {
    const TabDocument& document = main_.document;
    if (last_ && last_->box.tab == document.CurrentTab && last_->box.field < document.setup.NoOfFields)
        return {last_->box, last_->at + last_->length, 0};
    return {{std::clamp<std::int32_t>(document.CurrentTab, 1, document.TabCount), 0}, 0, 0};
}

/// Every box once from the start on, and what stands before the start in its own box last.
std::optional<Finder::Match> Finder::Search(const FindRequest& request, const Match& start) const {
    const TabDocument& document = main_.document;
    const Pattern pattern(request);
    TabBox box = start.box;
    std::size_t from = start.at;
    std::int64_t left = std::int64_t{document.TabCount} * document.setup.NoOfFields;
    for (; left >= 0; --left, from = 0) {
        if (IsSearched(request, box.field)) {
            const std::size_t at = pattern.In(document.Field(box.field)(box.tab), from);
            if (at != std::string::npos)
                return Match{box, at, pattern.Length()};
        }
        if (++box.field >= document.setup.NoOfFields)
            box = {box.tab % document.TabCount + 1, 0};
    }
    return std::nullopt;
}

MatchCount Finder::Count(const FindRequest& request) const {
    const TabDocument& document = main_.document;
    const MatchFinder find = MatchesOf(request);
    const auto place = [](TabBox box, std::size_t at) { return std::tuple(box.tab, box.field, at); };
    MatchCount count;
    for (std::int32_t tab = 1; tab <= document.TabCount; ++tab)
        for (int field = 0; field < document.setup.NoOfFields; ++field)
            for (const TextSpan& match : find(field, document.Field(field)(tab))) {
                ++count.of;
                if (last_ && place({tab, field}, match.at) <= place(last_->box, last_->at))
                    count.at = count.of;
            }
    return count;
}

FindOutcome Finder::GoTo(const std::optional<Match>& match, const Match& start) {
    last_ = match;
    if (!match)
        return FindOutcome::NotFound;
    main_.editor->ShowText(match->box, match->at, match->length);
    const auto place = [](const Match& of) { return std::tuple(of.box.tab, of.box.field, of.at); };
    return place(*match) < place(start) ? FindOutcome::FoundFromTop : FindOutcome::Found;
}

FindOutcome Finder::FindNext(const FindRequest& request) {
    TakePageBack(main_);
    const Match start = Start();
    return GoTo(Search(request, start), start);
}

FindOutcome Finder::Replace(const FindRequest& request) {
    TakePageBack(main_);
    const Match start = last_ ? *last_ : Start();
    if (!last_ || last_->box.tab != main_.document.CurrentTab || Search(request, start) != last_)
        return FindNext(request);
    const std::string& old = main_.document.Field(start.box.field)(start.box.tab);
    const std::string text = std::string(old).replace(start.at, start.length, request.replaceWith);
    if (!Fits(main_.document, start.box.field, old, text)) {
        main_.ui.Beep();
        Tell(main_.ui, "The text would become longer than its field allows: " +
                           std::to_string(main_.document.setup.Limits.Of(start.box.field)) + " characters.");
        return FindNext(request);
    }
    if (text != old)
        Put(main_, {{start.box, text}});
    last_->length = request.replaceWith.size();
    const FindOutcome outcome = FindNext(request);
    return outcome == FindOutcome::NotFound ? FindOutcome::LastReplaced : outcome;
}

int Finder::ReplaceAll(const FindRequest& request) {
    TakePageBack(main_);
    const Replacements plan = PlanReplacements(main_.document, request);
    if (!AgreesToLeaveOut(main_.ui, plan) || plan.texts.empty())
        return 0;
    Put(main_, plan.texts);
    main_.status->Tell({Counted(plan.texts.size(), "text") + " replaced", true});
    return static_cast<int>(plan.texts.size());
}

} // namespace velmora
