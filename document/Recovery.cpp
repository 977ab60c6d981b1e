#include "document/Recovery.h"

#include "base/AtomicFile.h"
#include "document/OpenDocument.h"
#include "document/TabFile.h"
#include "document/Transaction.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <exception>
#include <fcntl.h>
#include <random>
#include <sys/file.h>
#include <unistd.h>

namespace velmora {
namespace {

namespace fs = std::filesystem;

// A copy is four lines - the mark with the version, the milliseconds since 1970, the page shown, the check sum in hex -
// and the content. The content is texts, each as its length in bytes, a colon, its bytes and a line feed: path and
// encoding of the document, size and time stamp of its file (empty where unknown), the header as in a tab file, the
// number of tabs, and the three fields of each. The check sum is of the content and then of the two lines before it.
constexpr std::string_view kMark = "Velmora recovery 1";
constexpr std::string_view kExtension = ".recovery";
constexpr std::string_view kLock = ".lock";
constexpr std::string_view kLivePrefix = "Open-";
constexpr std::string_view kArchivePrefix = "Kept-";
constexpr std::int32_t kMostTabs = 32767;

constexpr std::uint64_t kSumStart = 0xcbf29ce484222325U;

/// FNV-1a, 64 bits.
std::uint64_t Sum(std::string_view text, std::uint64_t sum = kSumStart) {
    for (const char c : text)
        sum = (sum ^ static_cast<unsigned char>(c)) * 0x100000001b3U;
    return sum;
}

std::string Hex(std::uint64_t number) {
    std::array<char, 16> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number, 16).ptr;
    return {digits.data(), end};
}

template <typename Number> std::optional<Number> ParseNumber(std::string_view text) {
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

void Append(std::string& content, std::string_view text) {
    std::array<char, 20> digits;
    content.append(digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), text.size()).ptr);
    content += ':';
    content += text;
    content += '\n';
}

/// The header as a save would write it. Reading settings writes defaults, which a copy has no business with.
std::string HeaderText(SettingsStore& settings) {
    SettingsBatch batch(settings);
    std::string header = SaveData(settings);
    batch.Discard();
    return header;
}

std::string Content(MainModule& main) {
    const TabDocument& document = main.document;
    std::string content;
    Append(content, document.DocFileName.string());
    Append(content, EncodingName(document.FileEncoding));
    Append(content, document.Stamp ? std::to_string(document.Stamp->size) : "");
    Append(content, document.Stamp ? std::to_string(document.Stamp->written.time_since_epoch().count()) : "");
    Append(content, HeaderText(main.settings));
    Append(content, std::to_string(document.TabCount));
    for (std::int32_t tab = 1; tab <= document.TabCount; ++tab)
        for (int field = 0; field < kFieldsPerTab; ++field)
            Append(content, document.Field(field)(tab));
    return content;
}

/// A copy taken apart; its texts are views into the bytes.
struct Copy {
    std::chrono::system_clock::time_point time;
    std::int16_t page = 1;
    std::uint64_t contentSum = 0;
    std::string_view path;
    Encoding encoding = Encoding::Utf8;
    std::optional<FileStamp> stamp;
    std::string_view header;
    std::int32_t tabs = 0;
    std::vector<std::string_view> texts; ///< three for each tab
};

class CopyReader {
public:
    explicit CopyReader(std::string_view bytes) : rest_(bytes) {}

    /// Nothing where the bytes are no whole copy.
    std::optional<Copy> Read() {
        Copy copy;
        if (!ReadHead(copy) || !ReadDocument(copy))
            return std::nullopt;
        while (whole_ && copy.texts.size() < static_cast<std::size_t>(copy.tabs) * kFieldsPerTab)
            copy.texts.push_back(Text());
        return whole_ && rest_.empty() ? std::optional(std::move(copy)) : std::nullopt;
    }

private:
    bool ReadHead(Copy& copy) {
        const bool marked = Cut('\n') == kMark;
        const std::string_view time = Cut('\n');
        const std::string_view page = Cut('\n');
        const std::string_view sum = Cut('\n');
        if (!marked || !whole_)
            return false;
        copy.contentSum = Sum(rest_);
        copy.time =
            std::chrono::system_clock::time_point(std::chrono::duration_cast<std::chrono::system_clock::duration>(
                std::chrono::milliseconds(Number<std::int64_t>(time, -kMostMilliseconds, kMostMilliseconds))));
        copy.page = Number<std::int16_t>(page, 0, INT16_MAX);
        return whole_ && sum == Hex(Sum(page, Sum(time, copy.contentSum)));
    }

    bool ReadDocument(Copy& copy) {
        copy.path = Text();
        copy.encoding = Text() == EncodingName(Encoding::Windows1252) ? Encoding::Windows1252 : Encoding::Utf8;
        const auto size = ParseNumber<std::uintmax_t>(Text());
        const auto written = ParseNumber<fs::file_time_type::rep>(Text());
        if (size && written)
            copy.stamp = {*size, fs::file_time_type(fs::file_time_type::duration(*written))};
        copy.header = Text();
        copy.tabs = Number<std::int32_t>(Text(), 0, kMostTabs);
        return whole_;
    }

    std::string_view Text() {
        const auto length = ParseNumber<std::size_t>(Cut(':'));
        if (!length || *length >= rest_.size() || rest_[*length] != '\n')
            whole_ = false;
        if (!whole_)
            return {};
        const std::string_view text = rest_.substr(0, *length);
        rest_.remove_prefix(*length + 1);
        return text;
    }

    std::string_view Cut(char end) {
        const std::size_t length = rest_.find(end);
        if (length == std::string_view::npos) {
            whole_ = false;
            return {};
        }
        const std::string_view part = rest_.substr(0, length);
        rest_.remove_prefix(length + 1);
        return part;
    }

    template <typename Value> Value Number(std::string_view text, Value least, Value most) {
        const auto number = ParseNumber<Value>(text);
        whole_ = whole_ && number && *number >= least && *number <= most;
        return whole_ ? *number : least;
    }

    static constexpr std::int64_t kMostMilliseconds = 4'000'000'000'000; // far enough, and fits nanoseconds

    std::string_view rest_;
    bool whole_ = true;
};

std::int32_t CountFilled(const Copy& copy) {
    std::int32_t filled = 0;
    for (std::size_t text = 0; text < copy.texts.size(); text += kFieldsPerTab)
        if (!copy.texts[text].empty() || !copy.texts[text + 1].empty() || !copy.texts[text + 2].empty())
            ++filled;
    return filled;
}

/// Nothing for a file that can't be read. A pipe would never end, and a large file of somebody else's is not read
/// whole.
std::optional<std::string> ReadCopy(const fs::path& file) {
    try {
        std::error_code error;
        if (fs::is_regular_file(file, error) && ReadFile(file, kMark.size()) == kMark)
            return ReadFile(file);
    } catch (const FileAccessError&) {} // gone, or protected
    return std::nullopt;
}

std::optional<RecoveredDocument> Describe(const fs::path& file) {
    const auto bytes = ReadCopy(file);
    const auto copy = bytes ? CopyReader(*bytes).Read() : std::nullopt;
    if (!copy)
        return std::nullopt;
    return RecoveredDocument{file, copy->path, copy->time, CountFilled(*copy), false, copy->contentSum};
}

bool IsCopy(const fs::path& file, std::string_view prefix) {
    return file.extension() == kExtension && file.filename().string().starts_with(prefix);
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

/// The number in "Kept-number-..."; archived copies are numbered as they come, because a clock may be set back.
std::uint32_t ArchiveNumber(const fs::path& file) {
    const std::string name = file.filename().string().substr(kArchivePrefix.size());
    return ParseNumber<std::uint32_t>(std::string_view(name).substr(0, name.find('-'))).value_or(0);
}

std::string RandomName() {
    std::random_device random;
    return Hex((std::uint64_t{random()} << 32) | random());
}

fs::path LockOf(const fs::path& file) {
    return fs::path(file) += kLock;
}

/// A program makes its lock before its file, so a file without one has nobody. A lock that can't be tried is taken for
/// held.
bool IsInUse(const fs::path& file) {
    const int lock = ::open(LockOf(file).c_str(), O_RDONLY | O_CLOEXEC);
    if (lock < 0)
        return errno != ENOENT;
    const bool isFree = ::flock(lock, LOCK_SH | LOCK_NB) == 0;
    ::close(lock);
    return !isFree;
}

LoadOutcome Load(MainModule& main, const Copy& copy) {
    Transaction transaction(main);
    TabFile file = ParseTabFile(std::string(copy.header));
    if (!file.header)
        throw Error("The recovery copy has no header");
    // Whole pages of empty tabs first; their texts may hold what a tab file can't.
    file.tabsAt = file.text.size();
    file.lines = kHeaderLines + std::max(1, copy.tabs);
    if (LoadDocument(main, file) == LoadOutcome::NoPrinter)
        return LoadOutcome::NoPrinter;
    TabDocument& document = main.document;
    auto text = copy.texts.begin();
    for (std::int32_t tab = 1; tab <= copy.tabs; ++tab)
        for (int field = 0; field < kFieldsPerTab; ++field)
            document.Field(field)(tab) = *text++;
    document.CurrentPage = std::clamp<std::int16_t>(copy.page, 1, document.NoOfPages);
    document.DocFileName = copy.path;
    document.Foreign = WorkbookFormatOf(copy.path).has_value();
    document.FileEncoding = copy.encoding;
    document.Stamp = copy.stamp;
    document.DocChanged = true;
    transaction.Commit();
    return LoadOutcome::Loaded;
}

} // namespace

/// This copy's file and the lock beside it, which the system frees when the program ends in any way.
class RecoveryStore::LiveFile {
public:
    explicit LiveFile(const fs::path& folder)
        : path_(folder / (std::string(kLivePrefix) + RandomName() + std::string(kExtension))), lockPath_(LockOf(path_)),
          lock_(::open(lockPath_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600)) {
        if (lock_ >= 0 && ::flock(lock_, LOCK_EX | LOCK_NB) == 0)
            return;
        const int cause = errno;
        if (lock_ >= 0) {
            ::unlink(lockPath_.c_str());
            ::close(lock_);
        }
        throw FileAccessError(lockPath_, cause);
    }
    ~LiveFile() { ::close(lock_); }
    LiveFile(const LiveFile&) = delete;
    LiveFile& operator=(const LiveFile&) = delete;

    const fs::path& Path() const { return path_; }
    const fs::path& Lock() const { return lockPath_; }

private:
    fs::path path_;
    fs::path lockPath_;
    int lock_;
};

std::string RecoveredDocument::Name() const {
    return DocFileName.empty() ? "Untitled" : DocFileName.filename().string();
}

RecoveryStore::RecoveryStore(fs::path folder, Clock clock) : folder_(std::move(folder)), clock_(std::move(clock)) {}

RecoveryStore::~RecoveryStore() = default;

void RecoveryStore::Keep(MainModule& main) {
    SaveLabel(main, main.document.CurrentPage, main.document.TabsPerPage);
    if (!main.document.DocChanged)
        return Drop();
    const std::string content = Content(main);
    const std::uint64_t sum = Sum(content);
    std::error_code error;
    if (live_ && sum == liveSum_ && fs::exists(live_->Path(), error))
        return;
    MakeFolder();
    if (live_ && !fs::exists(live_->Lock(), error)) // somebody emptied the folder
        Drop();
    const bool isNew = !live_;
    if (isNew)
        live_ = std::make_unique<LiveFile>(folder_);
    try {
        Write(live_->Path(), main, content);
    } catch (const Error&) {
        if (isNew)
            Drop();
        throw;
    }
    liveSum_ = sum;
}

void RecoveryStore::Drop() noexcept {
    if (!live_)
        return;
    // The file first: without its lock it would be taken for one left behind.
    if (::unlink(live_->Path().c_str()) == 0 || errno == ENOENT)
        ::unlink(live_->Lock().c_str());
    live_.reset();
}

std::optional<fs::path> RecoveryStore::Archive(MainModule& main) {
    SaveLabel(main, main.document.CurrentPage, main.document.TabsPerPage);
    if (!main.document.DocChanged)
        return std::nullopt;
    const std::string content = Content(main);
    const std::uint64_t sum = Sum(content);
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
    MakeFolder();
    Write(file, main, content);
    return file;
}

std::vector<RecoveredDocument> RecoveryStore::List() const {
    std::vector<RecoveredDocument> documents = Archived();
    documents.resize(std::min(documents.size(), kArchivedDocuments));
    std::vector<RecoveredDocument> left = LeftBehind();
    documents.insert(documents.end(), left.begin(), left.end());
    std::stable_sort(documents.begin(), documents.end(),
                     [](const RecoveredDocument& a, const RecoveredDocument& b) { return a.Time > b.Time; });
    return documents;
}

void RecoveryStore::Settle(const RecoveredDocument& document) {
    if (!IsCopy(document.File, kLivePrefix) || IsInUse(document.File))
        return;
    std::error_code error;
    fs::rename(document.File, NextArchiveName(Prune()), error);
    if (!error)
        fs::remove(LockOf(document.File), error);
}

LoadOutcome RecoveryStore::Restore(MainModule& main, const RecoveredDocument& document) {
    const auto bytes = ReadCopy(document.File); // whole, before the archive moves on
    const auto copy = bytes ? CopyReader(*bytes).Read() : std::nullopt;
    if (!copy)
        throw Error("The recovery copy is gone or damaged: " + document.File.string());
    const auto replaced = Archive(main);
    if (main.editor)
        main.editor->TakeDown();
    LoadOutcome outcome = LoadOutcome::NoPrinter;
    std::exception_ptr failure;
    try {
        outcome = Load(main, *copy);
    } catch (...) {
        failure = std::current_exception();
    }
    RefreshDocumentStatus(main);
    ShowCaption(main);
    if (main.editor)
        main.editor->BringUp();
    if (outcome == LoadOutcome::Loaded)
        Settle(document);
    else if (replaced)
        Forget(*replaced);
    if (failure)
        std::rethrow_exception(failure);
    return outcome;
}

void RecoveryStore::Forget(const fs::path& file) {
    const bool isLive = IsCopy(file, kLivePrefix);
    std::error_code error;
    if (isLive ? !IsInUse(file) : IsCopy(file, kArchivePrefix))
        fs::remove(file, error);
    if (isLive && !fs::exists(file, error))
        fs::remove(LockOf(file), error);
}

/// All archived, the last one first.
std::vector<RecoveredDocument> RecoveryStore::Archived() const {
    std::vector<fs::path> files = FilesNamed(folder_, kArchivePrefix);
    std::sort(files.begin(), files.end(),
              [](const fs::path& a, const fs::path& b) { return ArchiveNumber(a) > ArchiveNumber(b); });
    std::vector<RecoveredDocument> documents;
    for (const fs::path& file : files)
        if (auto document = Describe(file))
            documents.push_back(*std::move(document));
    return documents;
}

std::vector<RecoveredDocument> RecoveryStore::LeftBehind() const {
    std::vector<RecoveredDocument> documents;
    for (const fs::path& file : FilesNamed(folder_, kLivePrefix)) {
        auto document = IsInUse(file) ? std::nullopt : Describe(file);
        if (!document)
            continue;
        document->LeftBehind = true;
        documents.push_back(*std::move(document));
    }
    return documents;
}

/// Leaves the last ten.
std::vector<RecoveredDocument> RecoveryStore::Prune() {
    std::vector<RecoveredDocument> archived = Archived();
    for (; archived.size() > kArchivedDocuments; archived.pop_back())
        Forget(archived.back().File);
    return archived;
}

fs::path RecoveryStore::NextArchiveName(const std::vector<RecoveredDocument>& archived) const {
    const std::uint32_t number = archived.empty() ? 1 : ArchiveNumber(archived.front().File) + 1;
    return folder_ /
           (std::string(kArchivePrefix) + std::to_string(number) + "-" + RandomName() + std::string(kExtension));
}

void RecoveryStore::Write(const fs::path& file, const MainModule& main, const std::string& content) {
    const auto now = std::chrono::duration_cast<std::chrono::milliseconds>(clock_().time_since_epoch());
    const std::string time = std::to_string(now.count());
    const std::string page = std::to_string(main.document.CurrentPage);
    AtomicFile target(file);
    target.Write(std::string(kMark) + "\n" + time + "\n" + page + "\n" + Hex(Sum(page, Sum(time, Sum(content)))) +
                 "\n");
    target.Write(content);
    target.Commit();
}

void RecoveryStore::MakeFolder() const {
    std::error_code error;
    if (fs::create_directories(folder_, error))
        fs::permissions(folder_, fs::perms::owner_all, error); // documents may come from folders that others can't read
    else if (error)
        throw FileAccessError(folder_, error.value());
}

} // namespace velmora
