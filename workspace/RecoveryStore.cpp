#include "workspace/RecoveryStore.h"

#include "base/AtomicFile.h"
#include "base/Paths.h"
#include "base/SystemLock.h"
#include "base/Text.h"
#include "workspace/RecoveryCopy.h"

#include <algorithm>
#include <charconv>
#include <future>
#include <random>

namespace velmora {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kExtension = ".recovery";
constexpr std::string_view kLock = ".lock";
constexpr std::string_view kLivePrefix = "Open-";
constexpr std::string_view kArchivePrefix = "Kept-";

/// nullopt for a file that can't be read. A pipe would never end, and a large file of somebody else's is not read
/// whole.
std::optional<std::string> ReadCopy(const fs::path& file) {
    try {
        std::error_code error;
        if (fs::is_regular_file(file, error) && ReadFile(file, kRecoveryMark.size()) == kRecoveryMark)
            return ReadFile(file);
    } catch (const FileAccessError&) {} // gone, or protected
    return std::nullopt;
}

std::string FirstTexts(const RecoveryCopy& copy) {
    constexpr int kTexts = 3;
    constexpr std::size_t kCharacters = 40;
    std::string texts;
    int found = 0;
    for (auto text = copy.texts.begin(); text != copy.texts.end() && found < kTexts; ++text)
        if (!Trim(*text).empty())
            texts += (found++ > 0 ? ", " : "") + OneLine(LeftCharacters(Trim(*text), kCharacters));
    return texts;
}

std::optional<RecoveredDocument> Describe(const fs::path& file) {
    const auto bytes = ReadCopy(file);
    const auto copy = bytes ? ParseRecoveryCopy(*bytes) : std::nullopt;
    if (!copy)
        return std::nullopt;
    return RecoveredDocument{file,  copy->path,       copy->time,       TabsFilled(*copy),
                             false, copy->contentSum, FirstTexts(*copy)};
}

bool IsCopy(const fs::path& file, std::string_view prefix) {
    const std::string name = PathText(file.filename());
    return name.starts_with(prefix) && name.ends_with(kExtension);
}

/// The files in the folder with this beginning and our extension.
std::vector<fs::path> FilesNamed(const fs::path& folder, std::string_view prefix) {
    std::vector<fs::path> files;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error))
        if (IsCopy(entry->path(), prefix))
            files.push_back(entry->path());
    return files;
}

/// The newest first.
void SortByTime(std::vector<RecoveredDocument>& documents) {
    std::stable_sort(documents.begin(), documents.end(),
                     [](const RecoveredDocument& a, const RecoveredDocument& b) { return a.Time > b.Time; });
}

/// The number in "Kept-number-..."; archived copies are numbered as they come, because a clock may be set back.
std::uint32_t ArchiveNumber(const fs::path& file) {
    const std::string name = PathText(file.filename()).substr(kArchivePrefix.size());
    std::uint32_t number = 0;
    std::from_chars(name.data(), name.data() + name.size(), number);
    return number;
}

/// Those written last first; without a sure order where the system does not tell.
std::vector<fs::path> NewestFirst(const std::vector<fs::path>& files) {
    std::vector<std::pair<fs::file_time_type, fs::path>> dated;
    std::error_code error;
    for (const fs::path& file : files)
        dated.emplace_back(fs::last_write_time(file, error), file);
    std::sort(dated.rbegin(), dated.rend());
    std::vector<fs::path> sorted;
    for (auto& [time, file] : dated)
        sorted.push_back(std::move(file));
    return sorted;
}

std::string RandomName() {
    std::random_device random;
    return std::to_string((std::uint64_t{random()} << 32) | random());
}

fs::path LockOf(const fs::path& file) {
    return fs::path(file) += PathOf(kLock);
}

/// A program makes its lock before its file, so a file without one has nobody.
bool IsInUse(const fs::path& file) {
    return SystemLock::IsHeld(LockOf(file));
}

/// A document as it is at one moment: nothing of it is shared with the document itself.
struct Snapshot {
    std::chrono::system_clock::time_point time;
    std::int16_t page;
    std::string content;
};

void WriteCopy(const fs::path& file, const Snapshot& copy, std::uint64_t sum) {
    AtomicFile target(file, Readers::OwnerAlone);
    target.Write(RecoveryHead(copy.time, copy.page, sum));
    target.Write(copy.content);
    target.Commit();
}

/// Gives the sum of what the file holds then. `last`: of what it held before.
std::uint64_t WriteIfNew(const fs::path& file, const Snapshot& copy, std::optional<std::uint64_t> last) {
    const std::uint64_t sum = ContentSum(copy.content);
    std::error_code error;
    if (sum != last || !fs::exists(file, error))
        WriteCopy(file, copy, sum);
    return sum;
}

} // namespace

/// This copy's file, the lock beside it, and the thread that writes, one copy at a time.
class RecoveryStore::LiveFile {
public:
    explicit LiveFile(const fs::path& folder)
        : path_(folder / PathOf(std::string(kLivePrefix) + RandomName() + std::string(kExtension))),
          lockPath_(LockOf(path_)), lock_(SystemLock::MakeFile(lockPath_)) {}

    const fs::path& Path() const { return path_; }
    const fs::path& Lock() const { return lockPath_; }
    bool HasCopy() const { return sum_.has_value(); }

    /// Nothing may be on its way. The thread gets all that it works on. Where none can be had, Finish writes.
    void Begin(Where where, Snapshot copy) {
        const auto policy = where == Where::Beside ? std::launch::async | std::launch::deferred : std::launch::deferred;
        writing_ = std::async(
            policy, [file = path_, copy = std::move(copy), last = sum_] { return WriteIfNew(file, copy, last); });
    }
    bool IsWriting() const {
        return writing_.valid() && writing_.wait_for(std::chrono::seconds(0)) == std::future_status::timeout;
    }
    void Wait() const noexcept {
        if (writing_.valid())
            writing_.wait();
    }
    /// False where there is nothing to wait for.
    bool Finish() {
        if (!writing_.valid())
            return false;
        sum_ = writing_.get();
        return true;
    }

private:
    fs::path path_;
    fs::path lockPath_;
    SystemLock lock_;
    std::optional<std::uint64_t> sum_;   ///< of the content in the file; nullopt: there is none yet
    std::future<std::uint64_t> writing_; ///< the last member: its end waits, while the lock is still held
};

std::string RecoveredDocument::Name() const {
    return DocFileName.empty() ? "Untitled" : PathText(DocFileName.filename());
}

RecoveryStore::RecoveryStore() = default;

RecoveryStore::~RecoveryStore() = default;

void RecoveryStore::Open(fs::path folder, Clock clock) {
    folder_ = std::move(folder);
    clock_ = std::move(clock);
    live_.reset();
    std::error_code error;
    if (fs::is_directory(folder_, error))
        fs::permissions(folder_, fs::perms::owner_all, error);
}

void RecoveryStore::Keep(const TabDocument& document, SettingsStore& settings) {
    try {
        Finish();
    } catch (const std::exception&) {} // what is kept now takes its place
    Begin(Where::Here, document, settings);
    Finish();
}

void RecoveryStore::KeepBeside(const TabDocument& document, SettingsStore& settings) {
    Finish();
    Begin(Where::Beside, document, settings);
}

void RecoveryStore::Begin(Where where, const TabDocument& document, SettingsStore& settings) {
    if (folder_.empty())
        return;
    if (!document.DocChanged) {
        Drop();
        failureNoted_ = false;
        return;
    }
    Snapshot copy{clock_(), document.CurrentPage, RecoveryContent(document, settings)};
    MakeLiveFile();
    live_->Begin(where, std::move(copy));
}

void RecoveryStore::MakeLiveFile() {
    MakePrivateFolder(folder_); // documents may come from folders that others can't read
    // Somebody emptied the folder; one that answers with an error may still hold the last copy.
    std::error_code error;
    if (live_ && !fs::exists(live_->Lock(), error) && !error)
        Drop();
    if (!live_)
        live_ = std::make_unique<LiveFile>(folder_);
}

bool RecoveryStore::IsWriting() const {
    return live_ && live_->IsWriting();
}

void RecoveryStore::Finish() {
    if (!live_)
        return;
    try {
        if (live_->Finish())
            failureNoted_ = false;
    } catch (...) {
        if (!live_->HasCopy())
            Drop(); // a lock alone would stay
        throw;
    }
}

void RecoveryStore::Drop() noexcept {
    if (!live_)
        return;
    live_->Wait();
    // The file first: without its lock it would be taken for one left behind.
    std::error_code error;
    fs::remove(live_->Path(), error);
    if (!error)
        fs::remove(live_->Lock(), error);
    live_.reset();
}

std::optional<fs::path> RecoveryStore::Archive(const TabDocument& document, SettingsStore& settings) {
    if (folder_.empty() || !document.DocChanged)
        return std::nullopt;
    const std::string content = RecoveryContent(document, settings);
    const std::uint64_t sum = ContentSum(content);
    // Before the new one comes: it may be taken back, and then none must be missing.
    const auto archived = Prune();
    const fs::path file = NextArchiveName(archived);
    const auto same = std::find_if(archived.begin(), archived.end(),
                                   [&](const RecoveredDocument& other) { return other.ContentSum == sum; });
    std::error_code error;
    if (same != archived.end())
        fs::rename(same->File, file, error);
    if (same != archived.end() && !error)
        return std::nullopt;
    MakePrivateFolder(folder_);
    WriteCopy(file, {clock_(), document.CurrentPage, content}, sum);
    return file;
}

std::vector<RecoveredDocument> RecoveryStore::List() const {
    std::vector<RecoveredDocument> documents = Archived(kArchivedDocuments);
    std::vector<RecoveredDocument> lost = Lost();
    documents.insert(documents.end(), lost.begin(), lost.end());
    SortByTime(documents);
    return documents;
}

std::vector<RecoveredDocument> RecoveryStore::Lost() const {
    std::vector<RecoveredDocument> documents;
    for (const fs::path& file : NewestFirst(FilesNamed(folder_, kLivePrefix))) {
        if (documents.size() == kMostLost)
            break;
        auto document = IsInUse(file) ? std::nullopt : Describe(file);
        if (!document)
            continue;
        document->LeftBehind = true;
        documents.push_back(*std::move(document));
    }
    SortByTime(documents);
    return documents;
}

bool RecoveryStore::Holds(const fs::path& file) const {
    return (IsCopy(file, kLivePrefix) || IsCopy(file, kArchivePrefix)) && IsSameFile(file.parent_path(), folder_);
}

void RecoveryStore::Settle(const RecoveredDocument& document) {
    if (!IsCopy(document.File, kLivePrefix) || IsInUse(document.File))
        return;
    std::error_code error;
    fs::rename(document.File, NextArchiveName(Prune()), error);
    if (!error)
        fs::remove(LockOf(document.File), error);
}

std::optional<std::string> RecoveryStore::Read(const RecoveredDocument& document) const {
    return ReadCopy(document.File);
}

void RecoveryStore::Forget(const fs::path& file) {
    const bool isLive = IsCopy(file, kLivePrefix);
    std::error_code error;
    if (isLive ? !IsInUse(file) : IsCopy(file, kArchivePrefix))
        fs::remove(file, error);
    if (isLive && !fs::exists(file, error))
        fs::remove(LockOf(file), error);
}

/// What was archived, the last one first.
std::vector<RecoveredDocument> RecoveryStore::Archived(std::size_t most) const {
    std::vector<std::pair<std::uint32_t, fs::path>> files;
    for (fs::path& file : FilesNamed(folder_, kArchivePrefix))
        files.emplace_back(ArchiveNumber(file), std::move(file));
    std::sort(files.rbegin(), files.rend());
    std::vector<RecoveredDocument> documents;
    for (auto file = files.begin(); file != files.end() && documents.size() < most; ++file)
        if (auto document = Describe(file->second))
            documents.push_back(*std::move(document));
    return documents;
}

/// Leaves the last ten, and of a great many some for the next times.
std::vector<RecoveredDocument> RecoveryStore::Prune() {
    std::vector<RecoveredDocument> archived = Archived(2 * kArchivedDocuments);
    for (; archived.size() > kArchivedDocuments; archived.pop_back())
        Forget(archived.back().File);
    return archived;
}

fs::path RecoveryStore::NextArchiveName(const std::vector<RecoveredDocument>& archived) const {
    const std::uint32_t number = archived.empty() ? 1 : ArchiveNumber(archived.front().File) + 1;
    return folder_ /
           PathOf(std::string(kArchivePrefix) + std::to_string(number) + "-" + RandomName() + std::string(kExtension));
}

} // namespace velmora
