#include "settings/IniFile.h"

#include "base/AtomicFile.h"
#include "base/Encoding.h"
#include "base/Paths.h"
#include "base/SystemLock.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <functional>
#include <thread>
#include <utility>

namespace velmora {
namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;

constexpr std::string_view kUtf16Marks[] = {"\xFF\xFE", "\xFE\xFF"};

constexpr milliseconds kPatience{5000};

/// The error names the file for which the folder is held.
std::optional<SystemLock> TryFolder(const fs::path& folder, const fs::path& file) {
    try {
        return SystemLock::TryFolder(folder);
    } catch (const FileAccessError& error) {
        throw FileAccessError(file, error.Number());
    }
}

/// Holds the folder of a file against other programs, so that no lock file is left behind for anybody to wonder about.
/// A program that was stopped while it held the lock must not freeze all others: after a while it is an error. Where
/// many write in turn nobody is stopped, however long the turn is in coming: `getOn` is asked while waiting whether the
/// others have got on since it was asked last.
SystemLock LockFolderOf(const fs::path& file, milliseconds patience, const std::function<bool()>& getOn) {
    std::error_code error;
    const fs::path folder = fs::weakly_canonical(fs::absolute(file, error), error).parent_path();
    auto deadline = std::chrono::steady_clock::now() + patience;
    while (true) {
        if (auto lock = TryFolder(folder, file))
            return *std::move(lock);
        const auto now = std::chrono::steady_clock::now();
        if (now > deadline && !getOn())
            throw FileAccessError(file, EBUSY); // "Device or resource busy"
        if (now > deadline)
            deadline = now + kPatience;
        std::this_thread::sleep_for(milliseconds(1));
    }
}

/// A file changed just now may change again without a new time stamp: on kernels before 6.13 those advance in
/// steps of some milliseconds.
bool IsYoung(std::int64_t changed) {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::nanoseconds(changed) > now - milliseconds(50);
}

/// A missing file is an empty one.
std::string ReadIfPresent(const fs::path& path) {
    try {
        return ReadIniFile(path);
    } catch (const FileAccessError& error) {
        if (error.Number() != ENOENT)
            throw;
        return {};
    }
}

std::string AsUtf8(std::string_view text) {
    return IsValidUtf8(text) ? std::string(text) : Decode(std::string(text)).text;
}

} // namespace

std::string ReadIniFile(const fs::path& path) {
    if (IdentityOf(path).size > kMostIniBytes)
        throw Error(PathText(path) + ": larger than 256 KB");
    return ReadFile(path);
}

void IniFile::Open(const fs::path& path) {
    if (path == path_)
        return;
    Flush();
    path_ = path;
    stuck_.reset();
    stored_ = IniText();
    encoding_ = Encoding::Utf8;
    mark_ = foreign_ = false;
    read_.reset();
}

void IniFile::CopyToMemory(const fs::path& path) {
    Open(path);
    Refresh();
    IniText copy = std::move(stored_);
    Open({});
    stored_ = std::move(copy);
}

const IniText& IniFile::Text() {
    Refresh();
    return collected_.empty() ? stored_ : shown_;
}

void IniFile::Write(std::string_view section, std::string_view key, std::optional<std::string_view> value) {
    Make({AsUtf8(section), AsUtf8(key), value ? std::optional(AsUtf8(*value)) : std::nullopt});
}

void IniFile::Write(Edit edit) {
    Change change;
    change.edit = std::move(edit);
    Make(std::move(change));
}

void IniFile::WriteDefault(std::string_view section, std::string_view key, std::string_view value) {
    Change change{AsUtf8(section), AsUtf8(key), AsUtf8(value), true};
    if (InBatch())
        return Collect(std::move(change));
    // Most defaults stand in the file already, and then no lock is worth taking.
    IniText text = Text();
    if (Apply(text, change))
        Submit({std::move(change)});
}

void IniFile::Make(Change change) {
    if (InBatch())
        Collect(std::move(change));
    else
        Submit({std::move(change)});
}

void IniFile::Collect(Change change) {
    Refresh();
    if (collected_.empty())
        shown_ = stored_;
    if (Apply(shown_, change))
        collected_.push_back(std::move(change));
}

void IniFile::Submit(const std::vector<Change>& changes) {
    try {
        Commit(changes);
    } catch (const Error&) {
        if (!std::all_of(changes.begin(), changes.end(), [](const Change& change) { return change.isDefault; }))
            throw;
    }
}

bool IniFile::Apply(IniText& text, const Change& change) {
    if (change.edit)
        return change.edit(text);
    // Another program may have set the key since it was found missing.
    if (change.isDefault && text.ReadString(change.section, change.key, *change.value) != *change.value)
        return false;
    return text.Write(change.section, change.key, change.value);
}

void IniFile::Rebuild() {
    if (collected_.empty())
        return;
    shown_ = stored_;
    for (const Change& change : collected_)
        Apply(shown_, change);
}

std::size_t IniFile::BeginBatch() {
    ++depth_;
    return collected_.size();
}

void IniFile::EndBatch() {
    if (--depth_ == 0)
        Flush();
}

void IniFile::AbandonBatch(std::size_t mark) {
    if (mark < collected_.size()) {
        collected_.resize(mark);
        Rebuild();
    }
    --depth_; // nothing is left to write: the outermost one's mark is the beginning
}

void IniFile::Flush() {
    const std::vector<Change> changes = std::exchange(collected_, {});
    if (!changes.empty())
        Submit(changes);
}

void IniFile::Refresh() {
    if (path_.empty())
        return;
    const FileIdentity now = IdentityOf(path_);
    if (read_ == now)
        return;
    try {
        Load();
    } catch (const Error&) {
        stored_ = IniText(); // as the private-profile functions do: every key is missing
    }
    // A file that was replaced after the look is met by the next one.
    read_ = IsYoung(now.changed) ? std::nullopt : std::optional(now);
    Rebuild();
}

void IniFile::Load() {
    std::string bytes = ReadIfPresent(path_);
    foreign_ = bytes.starts_with(kUtf16Marks[0]) || bytes.starts_with(kUtf16Marks[1]);
    const bool marked = bytes.starts_with(kUtf8Mark);
    DecodedText decoded = Decode(std::move(bytes));
    encoding_ = decoded.encoding;
    mark_ = marked && encoding_ == Encoding::Utf8;
    stored_ = IniText(decoded.text);
}

void IniFile::Commit(const std::vector<Change>& changes) {
    std::optional<SystemLock> lock;
    if (!path_.empty()) {
        FileIdentity seen = IdentityOf(path_);
        // Who met a lock that was never released does not wait again, or a start would freeze at every setting.
        const milliseconds patience = stuck_ == seen ? milliseconds(0) : kPatience;
        lock.emplace(LockFolderOf(path_, patience, [&] {
            stuck_ = IdentityOf(path_);
            return std::exchange(seen, *stuck_) != *stuck_;
        }));
        stuck_.reset();
        Load();
    }
    IniText text = stored_;
    bool changed = false;
    for (const Change& change : changes)
        changed = Apply(text, change) || changed;
    if (changed && !path_.empty()) {
        if (foreign_)
            throw Error(PathText(path_) + ": neither UTF-8 nor Windows-1252");
        ReplaceFile(path_, Encoded(text.Bytes()), Readers::OwnerAlone);
    }
    stored_ = std::move(text);
    read_.reset();
}

std::string IniFile::Encoded(const std::string& text) const {
    // Some Windows-1252 bytes would be read as UTF-8 the next time, so the way back is tried.
    if (const auto bytes = Encode(text, encoding_); bytes && !mark_ && Decode(*bytes).text == text)
        return *bytes;
    return mark_ ? std::string(kUtf8Mark) + text : text;
}

} // namespace velmora
