#include "workspace/Undo.h"

#include "base/Error.h"
#include "document/TextRange.h"
#include "settings/GlobalConfiguration.h"

#include <algorithm>
#include <tuple>
#include <utility>
#include <vector>

namespace velmora {
namespace {

/// What steps restore of the document besides its texts. The struct is taken apart whole: with a new member this does
/// not compile until somebody decides whether the member belongs here.
template <typename Document> auto PropertiesOf(Document& document) {
    auto& [fieldA, fieldB, fieldC, tabCount, pages, currentPage, currentTab, setup, fileName, encoding, stamp,
           fileError, changed, foreign, findings] = document;
    return std::tie(tabCount, pages, setup);
}

template <typename... Members> std::tuple<Members...> ValuesOf(const std::tuple<Members&...>& members) {
    return members;
}

using Properties = decltype(ValuesOf(PropertiesOf(std::declval<TabDocument&>())));

/// The settings that follow the document. The printer is the machine's, though a file names it.
std::vector<SettingKey> MakeStoredKeys() {
    std::vector<SettingKey> keys = {kStationeryType, kPageSize,   kOptType,  kNoOfFields,
                                    kNoOfPages,      kMarginLeft, kMarginTop};
    for (int field = 0; field < kFieldsPerTab; ++field)
        for (int key = 0; key < kFontKeys; ++key)
            keys.push_back(FontSetting(key, field));
    return keys;
}

const std::vector<SettingKey>& StoredKeys() {
    static const std::vector<SettingKey> keys = MakeStoredKeys();
    return keys;
}

struct StoredText {
    std::size_t key;                 ///< in StoredKeys
    std::optional<std::string> text; ///< nullopt: the key was missing
};

std::size_t TextBytes(const std::optional<std::string>& text) {
    return text ? HeapBytes(*text) : 0;
}

std::size_t NameBytes(const FontSettings& fonts) {
    return HeapBytes(fonts[0].Name) + HeapBytes(fonts[1].Name) + HeapBytes(fonts[2].Name);
}

struct Place {
    std::int16_t page = 0;
    std::int16_t tab = 0;
};

Place PlaceOf(const TabDocument& document) {
    return {document.CurrentPage, document.CurrentTab};
}

void GoTo(const Place& place, TabDocument& document) {
    document.CurrentPage = place.page;
    document.CurrentTab = place.tab;
}

} // namespace

/// Holds the state that the document does not have: that before the step, or once it is taken back, that after it.
class UndoHistory::Step {
public:
    virtual ~Step() = default;
    virtual std::string Name() const = 0;
    virtual std::optional<TabBox> Box() const = 0;
    virtual std::size_t Bytes() const = 0;
    /// Exchanges the two states. Raises SubscriptError, before any change, when the document has no room for it.
    virtual void Exchange(const UndoState& state, bool undo) = 0;
};

class UndoHistory::TypingStep : public Step {
public:
    TypingStep(const TabDocument& document, TabBox box, std::string before)
        : box_(box), page_(document.CurrentPage), text_(std::move(before)) {}

    std::string Name() const override { return "Typing"; }
    std::optional<TabBox> Box() const override { return box_; }
    std::size_t Bytes() const override { return sizeof(*this) + kBlockBytes + textBytes_; }
    void Exchange(const UndoState& state, bool) override {
        std::swap(state.document.Field(box_.field)(box_.tab), text_);
        GoTo({page_, static_cast<std::int16_t>(box_.tab)}, state.document);
    }

    /// The box's text in the document has changed again. False when it is back where it began.
    bool Join(const std::string& typed) {
        textBytes_ = std::max(HeapBytes(text_), HeapBytes(typed));
        return typed != text_;
    }

private:
    TabBox box_;
    std::int16_t page_;
    std::string text_;
    std::size_t textBytes_ = 0; // fixed with the last typing, as text_ changes with every undo
};

struct UndoStep::Snapshot {
    explicit Snapshot(const UndoState& state)
        : texts{state.document.FieldA, state.document.FieldB, state.document.FieldC},
          properties(PropertiesOf(state.document)), fonts(state.fonts), place(PlaceOf(state.document)) {
        for (const SettingKey& row : StoredKeys())
            stored.push_back(Probe(state.settings, row));
    }

    std::array<FieldTexts, kFieldsPerTab> texts;
    Properties properties;
    FontSettings fonts;
    std::vector<std::optional<std::string>> stored;
    Place place;
};

class UndoHistory::OperationStep : public Step {
public:
    OperationStep(std::string name, UndoStep::Snapshot before, const UndoState& state)
        : name_(std::move(name)), before_(before.place), after_(PlaceOf(state.document)),
          properties_(std::move(before.properties)), fonts_(std::move(before.fonts)) {
        bytes_ = sizeof(*this) + kBlockBytes + HeapBytes(name_) + std::max(NameBytes(fonts_), NameBytes(state.fonts));
        for (std::size_t field = 0; field < ranges_.size(); ++field) {
            const FieldTexts& after = state.document.Field(static_cast<int>(field));
            ranges_[field] = Difference(before.texts[field], after);
            bytes_ += HeapBytes(ranges_[field], after);
        }
        for (std::size_t key = 0; key < before.stored.size(); ++key)
            KeepStored(key, std::move(before.stored[key]), Probe(state.settings, StoredKeys()[key]));
        bytes_ += stored_.capacity() * sizeof(StoredText) + kBlockBytes;
        changes_ = !stored_.empty() || fonts_ != state.fonts || properties_ != PropertiesOf(state.document) ||
                   !std::all_of(ranges_.begin(), ranges_.end(), [](const TextRange& range) { return range.Empty(); });
    }

    bool Changes() const { return changes_; }

    std::string Name() const override { return name_; }
    std::optional<TabBox> Box() const override { return std::nullopt; }
    std::size_t Bytes() const override { return bytes_; }
    void Exchange(const UndoState& state, bool undo) override {
        for (std::size_t field = 0; field < ranges_.size(); ++field)
            if (!ranges_[field].Fits(state.document.Field(static_cast<int>(field))))
                throw SubscriptError();
        for (std::size_t field = 0; field < ranges_.size(); ++field)
            velmora::Exchange(ranges_[field], state.document.Field(static_cast<int>(field)));
        Properties now = PropertiesOf(state.document);
        PropertiesOf(state.document) = std::exchange(properties_, std::move(now));
        GoTo(undo ? before_ : after_, state.document);
        std::swap(fonts_, state.fonts);
        ExchangeStored(state.settings);
    }

private:
    void KeepStored(std::size_t key, std::optional<std::string> before, const std::optional<std::string>& after) {
        if (before == after)
            return;
        bytes_ += std::max(TextBytes(before), TextBytes(after));
        stored_.push_back({key, std::move(before)});
    }

    void ExchangeStored(SettingsStore& store) {
        if (stored_.empty())
            return;
        const SettingsBatch batch(store);
        for (StoredText& stored : stored_) {
            const SettingKey& row = StoredKeys()[stored.key];
            const auto text = std::exchange(stored.text, Probe(store, row));
            // What was missing is stored with its default, as any reading of it would do.
            Write(store, row, text ? std::string_view(*text) : row.fallback);
        }
    }

    std::string name_;
    Place before_;
    Place after_;
    Properties properties_; // its texts are a few letters each and never leave the string
    FontSettings fonts_;
    std::array<TextRange, kFieldsPerTab> ranges_;
    std::vector<StoredText> stored_;
    std::size_t bytes_ = 0;
    bool changes_ = false;
};

UndoHistory::UndoHistory() = default;

UndoHistory::~UndoHistory() = default;

void UndoHistory::Type(TabDocument& document, TabBox box, const std::string& text) {
    std::string& held = document.Field(box.field)(box.tab);
    if (open_ || mostBytes_ == 0) { // a step that is open records this with the rest
        held = text;
        return;
    }
    if (held != text) {
        if (!typing_ || typing_->Box() != box) {
            auto step = std::make_unique<TypingStep>(document, box, held);
            TypingStep* typing = step.get();
            Record(std::move(step));
            typing_ = typing;
        }
        held = text;
        bytes_ -= typing_->Bytes();
        const bool changes = typing_->Join(held);
        bytes_ += typing_->Bytes();
        if (!changes)
            DropNewest();
        KeepWithinBounds();
    }
    document.DocChanged = saved_ != done_;
}

std::string UndoHistory::UndoName() const {
    return CanUndo() ? steps_[done_ - 1]->Name() : std::string();
}

std::string UndoHistory::RedoName() const {
    return CanRedo() ? steps_[done_]->Name() : std::string();
}

std::optional<TabBox> UndoHistory::Undo(const UndoState& state) {
    return CanUndo() ? Move(state, true) : std::nullopt;
}

std::optional<TabBox> UndoHistory::Redo(const UndoState& state) {
    return CanRedo() ? Move(state, false) : std::nullopt;
}

std::optional<TabBox> UndoHistory::Move(const UndoState& state, bool undo) {
    typing_ = nullptr;
    Step& step = *steps_[undo ? done_ - 1 : done_];
    step.Exchange(state, undo);
    done_ = undo ? done_ - 1 : done_ + 1;
    state.document.DocChanged = saved_ != done_;
    return step.Box();
}

void UndoHistory::MarkSaved() {
    typing_ = nullptr; // a step that went on would leave no way back to what was saved
    saved_ = done_;
}

void UndoHistory::Clear(const TabDocument& document) {
    Forget();
    if (!document.DocChanged)
        saved_ = 0;
}

void UndoHistory::Forget() {
    typing_ = nullptr;
    open_ = nullptr;
    steps_.clear();
    done_ = bytes_ = 0;
    saved_.reset();
}

void UndoHistory::Record(std::unique_ptr<Step> step) {
    typing_ = nullptr;
    while (CanRedo())
        DropNewest();
    bytes_ += step->Bytes() + sizeof(step);
    steps_.push_back(std::move(step));
    ++done_;
    KeepWithinBounds();
}

void UndoHistory::DropNewest() {
    typing_ = nullptr;
    bytes_ -= steps_.back()->Bytes() + sizeof(steps_.back());
    steps_.pop_back();
    if (saved_ > steps_.size())
        saved_.reset();
    done_ = std::min(done_, steps_.size());
}

void UndoHistory::DropOldest() {
    bytes_ -= steps_.front()->Bytes() + sizeof(steps_.front());
    steps_.pop_front();
    --done_;
    if (saved_ == 0U)
        saved_.reset();
    else if (saved_)
        --*saved_;
}

void UndoHistory::KeepWithinBounds() {
    while (bytes_ > mostBytes_ && steps_.size() > 1)
        DropOldest();
}

UndoStep::UndoStep(UndoHistory& history, UndoState state, std::string name)
    : history_(history), state_(state), name_(std::move(name)) {
    if (history.mostBytes_ == 0 || history.open_)
        return;
    before_ = std::make_unique<Snapshot>(state);
    history.open_ = this;
}

UndoStep::~UndoStep() {
    try {
        Commit();
    } catch (...) { // out of memory: the steps do not lead to this document any more
        history_.Forget();
    }
}

bool UndoStep::Commit() {
    if (history_.open_ != this)
        return false;
    history_.open_ = nullptr;
    auto step = std::make_unique<UndoHistory::OperationStep>(std::move(name_), std::move(*before_), state_);
    before_.reset();
    if (!step->Changes())
        return false;
    history_.Record(std::move(step));
    state_.document.DocChanged = true;
    return true;
}

} // namespace velmora
