// Undo and redo: the history of the document's changes. A step holds only what differs before and after, so that a
// change in a document of thousands of tabs costs what it touched.
#pragma once

#include "document/FontSettings.h"
#include "document/TabDocument.h"
#include "settings/mdlSettings.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>

namespace velmora {

class UndoStep;

/// What steps record and restore.
struct UndoState {
    TabDocument& document;
    FontSettings& fonts;
    SettingsStore& settings; ///< of which those that a document carries
};

/// Steps in the order they were made, those taken back last. Every change of the document goes through Type or an
/// UndoStep, or ends in Clear: then `DocChanged` is true whenever the document is not the one that was saved. It can be
/// true without a difference: EditBox and ShowChangedPages set it whatever came of the change (a text typed back, no
/// gap to close), until the next Undo, Redo or save says it anew.
/// File name, encoding, stamp and printer are not part of a step, nor is the page shown, which follows it.
class UndoHistory {
public:
    static constexpr std::size_t kMostBytes = std::size_t{64} * 1024 * 1024;

    /// Keeps no steps: nothing can be undone, and no operation costs more for it.
    UndoHistory();
    ~UndoHistory();
    UndoHistory(const UndoHistory&) = delete;
    UndoHistory& operator=(const UndoHistory&) = delete;

    /// From now on. Beyond `mostBytes` the oldest steps are dropped; the newest stays whatever its size.
    void KeepSteps(std::size_t mostBytes = kMostBytes) { mostBytes_ = mostBytes; }
    bool KeepsSteps() const { return mostBytes_ != 0; }

    /// A box of the page shown was typed in: puts its text into the document and lets `DocChanged` say whether this
    /// is the saved one. Further typing in the same box belongs to the same step, until something else happens; typed
    /// back to where it began, the step is gone. Raises SubscriptError, with nothing changed, for a tab outside the
    /// document.
    void Type(TabDocument& document, TabBox box, const std::string& text);

    bool CanUndo() const { return done_ > 0; }
    bool CanRedo() const { return done_ < steps_.size(); }
    /// "Typing" or the name of the operation; empty when there is none.
    std::string UndoName() const;
    std::string RedoName() const;

    /// Document, fonts and settings as they were before the step, and `CurrentPage` where it was made; no effect when
    /// there is no step. Gives the box when the step was typing, else nullopt. The editor's page must be in the
    /// document before (TakePageBack) and be shown anew after. Raises SubscriptError, with nothing changed, for a
    /// document that was changed without the history.
    std::optional<TabBox> Undo(const UndoState& state);
    /// The same, as it was after the step.
    std::optional<TabBox> Redo(const UndoState& state);

    /// The document as it is now is the saved one.
    void MarkSaved();
    /// Forgets all steps, and an UndoStep under way: the document was replaced. It is the saved one unless its
    /// `DocChanged` says otherwise.
    void Clear(const TabDocument& document);

    /// Memory that the steps take at most, each in the larger of its two states, with the allocator's part.
    std::size_t Bytes() const { return bytes_; }

private:
    friend class UndoStep;
    class Step;
    class TypingStep;
    class OperationStep;

    void Record(std::unique_ptr<Step> step);
    void DropNewest();
    void DropOldest();
    void KeepWithinBounds();
    void Forget();
    std::optional<TabBox> Move(const UndoState& state, bool undo);

    std::size_t mostBytes_ = 0; ///< 0: keeps no steps
    std::size_t bytes_ = 0;
    std::deque<std::unique_ptr<Step>> steps_;
    std::size_t done_ = 0;                 ///< steps not taken back
    std::optional<std::size_t> saved_ = 0; ///< `done_` of the saved document; nullopt: no step leads there
    TypingStep* typing_ = nullptr;         ///< the newest step while more typing may join it
    const UndoStep* open_ = nullptr;
};

/// Lives around an operation and records, as one step, what it changed in document, fonts and the settings that a
/// document carries; no step when all is as it was. Takes a copy of the document. Inside another UndoStep of the same
/// history it has no effect: the outer one records.
class UndoStep {
public:
    /// `name` as it follows "Undo" in the menu. What was typed last must be in the document (TakePageBack).
    UndoStep(UndoHistory& history, UndoState state, std::string name);
    /// Commits, also what an error cut short: the steps before fit only a document whose every change is recorded.
    ~UndoStep();
    UndoStep(const UndoStep&) = delete;
    UndoStep& operator=(const UndoStep&) = delete;

    /// Ends the step. One that holds a change is recorded, which is true then, and marks the document as changed.
    bool Commit();

private:
    friend class UndoHistory;
    struct Snapshot;

    UndoHistory& history_;
    UndoState state_;
    std::string name_;
    std::unique_ptr<Snapshot> before_;
};

} // namespace velmora
