// Unsaved work outlives a crash, a power cut and an ending without saving: each running copy of the program keeps its
// document in a file of its own beside the settings, and what was replaced without asking is kept for a while.
#pragma once

#include "document/TabDocument.h"
#include "settings/mdlSettings.h"

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace velmora {

inline constexpr std::size_t kArchivedDocuments = 10;
/// As many as a person looks through, and a start reads.
inline constexpr std::size_t kMostLost = 100;

/// One document that can be had back.
struct RecoveredDocument {
    std::filesystem::path File;        ///< the copy, which names it in every call
    std::filesystem::path DocFileName; ///< the document's own; empty: untitled
    std::chrono::system_clock::time_point Time;
    std::int32_t TabsFilled = 0;  ///< as for a RecoveryCopy
    bool LeftBehind = false;      ///< by a copy of the program that has ended, and not offered yet
    std::uint64_t ContentSum = 0; ///< equal for copies of the same document in the same state
    std::string FirstTexts{};     ///< up to three, by which a person knows it; empty where all are

    /// The file name without folder, or "Untitled".
    std::string Name() const;
};

/// The folder of recovery copies, as one running copy of the program uses it. Its own file is locked while the store
/// lives, and the end of the store leaves the file behind: whose lock is free was left by a program that has ended.
/// What was left so is never deleted here, however much there is, before a person has seen it and settled it. Files
/// that are damaged or none of ours are never listed and never deleted.
class RecoveryStore {
public:
    using Clock = std::function<std::chrono::system_clock::time_point()>;

    /// Keeps no copies and knows of none.
    RecoveryStore();
    ~RecoveryStore();
    RecoveryStore(const RecoveryStore&) = delete;
    RecoveryStore& operator=(const RecoveryStore&) = delete;

    /// From now on, as a program that has just started. The folder is made with the first copy, for this person alone;
    /// one that is there and open to others is closed to them.
    void Open(std::filesystem::path folder, Clock clock);

    /// Brings this copy's file up to date: written where the document changed since the last call, removed where it has
    /// no unsaved changes. Document and settings stay as they are. Raises Error when it can't be written; the file of
    /// the last call remains then.
    void Keep(const TabDocument& document, SettingsStore& settings);
    /// As Keep, of the document as it is now, but a thread writes, beside what the caller goes on with. Until Finish
    /// its error is kept; every other call that touches this copy's file, and the end of the store, wait for it.
    void KeepBeside(const TabDocument& document, SettingsStore& settings);
    bool IsWriting() const;
    /// Waits for what is being written. Raises Error where it could not be.
    void Finish();
    /// Whether no Keep has failed since the last that succeeded: a folder that takes nothing is reported once. Asked
    /// after a failure.
    bool IsFirstFailure() { return !std::exchange(failureNoted_, true); }
    /// Removes this copy's file, as after a save or when the person gives the changes up. What can't be removed is
    /// offered once too often.
    void Drop() noexcept;

    /// Keeps what is about to be replaced among the last ten; Forget takes it back if the replacing fails. nullopt
    /// for a document without unsaved changes, or one that is there already, which becomes the last. Raises Error.
    std::optional<std::filesystem::path> Archive(const TabDocument& document, SettingsStore& settings);

    /// The last ten archived and what Lost gives, newest first. Every other call may rename copies, so a list serves
    /// one choice. A file that can't be read raises no error.
    std::vector<RecoveredDocument> List() const;
    /// What was left behind, newest first. Of more than kMostLost the newest; the others when these are settled.
    std::vector<RecoveredDocument> Lost() const;
    /// Whether the path names a copy in this folder, of any kind.
    bool Holds(const std::filesystem::path& file) const;
    /// Puts what was left behind among the last ten, so that it isn't offered again. No effect on other documents.
    void Settle(const RecoveredDocument& document);
    /// The bytes of a listed copy; nullopt where it can't be read any more.
    std::optional<std::string> Read(const RecoveredDocument& document) const;
    /// Deletes a listed copy. No effect on the file of a running program.
    void Forget(const std::filesystem::path& file);

    /// While one lives the document may be half changed, and no copy of it is to be kept.
    class Pause {
    public:
        explicit Pause(RecoveryStore& store) : store_(store) { ++store_.pauses_; }
        ~Pause() { --store_.pauses_; }
        Pause(const Pause&) = delete;
        Pause& operator=(const Pause&) = delete;

    private:
        RecoveryStore& store_;
    };
    bool IsPaused() const { return pauses_ > 0; }

private:
    class LiveFile;

    enum class Where { Here, Beside };

    void Begin(Where where, const TabDocument& document, SettingsStore& settings);
    void MakeLiveFile();

    std::vector<RecoveredDocument> Archived(std::size_t most) const;
    std::vector<RecoveredDocument> Prune();
    std::filesystem::path NextArchiveName(const std::vector<RecoveredDocument>& archived) const;

    std::filesystem::path folder_; ///< empty before Open
    Clock clock_;
    std::unique_ptr<LiveFile> live_; ///< null while there is no unsaved work
    bool failureNoted_ = false;
    int pauses_ = 0;
};

} // namespace velmora
