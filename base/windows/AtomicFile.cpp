#include "base/AtomicFile.h"

#include "base/FileNumber.h"
#include "base/Sibling.h"
#include "base/windows/SystemFile.h"

#include <algorithm>
#include <cerrno>
#include <chrono>

namespace velmora {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kBufferSize = std::size_t{256} * 1024;

std::uint64_t Whole(DWORD high, DWORD low) {
    return std::uint64_t{high} << 32U | low;
}

/// The system counts in 100 nanoseconds since 1601.
std::int64_t Nanoseconds(const FILETIME& time) {
    constexpr std::int64_t kUntil1970 = 116'444'736'000'000'000;
    return (static_cast<std::int64_t>(Whole(time.dwHighDateTime, time.dwLowDateTime)) - kUntil1970) * 100;
}

/// All of it, in place of what was there; nothing is cut off before. False on an error, which the system keeps.
bool Overwrite(const SystemFile& file, std::string_view bytes) {
    return ::SetFilePointerEx(file.Get(), {}, nullptr, FILE_BEGIN) != 0 && WriteAll(file, bytes) &&
           ::SetEndOfFile(file.Get()) != 0 && ::FlushFileBuffers(file.Get()) != 0;
}

/// Room on the disk for that many bytes; none is given back. False on an error, which the system keeps.
bool Reserve(const SystemFile& file, std::uint64_t old, std::size_t bytes) {
    LARGE_INTEGER end{};
    end.QuadPart = static_cast<LONGLONG>(std::max<std::uint64_t>(old, bytes));
    return ::SetFilePointerEx(file.Get(), end, nullptr, FILE_BEGIN) != 0 && ::SetEndOfFile(file.Get()) != 0;
}

/// Who may do what with the old file, the new one is told too. A disk without such lists has nothing to tell.
void TakeRights(const fs::path& file, const fs::path& old) {
    DWORD size = 0;
    ::GetFileSecurityW(old.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
    std::string list(size, '\0');
    if (size > 0 && ::GetFileSecurityW(old.c_str(), DACL_SECURITY_INFORMATION, list.data(), size, &size) != 0)
        ::SetFileSecurityW(file.c_str(), DACL_SECURITY_INFORMATION, list.data());
}

class WindowsReplacement : public Replacement {
public:
    explicit WindowsReplacement(const fs::path& path);

    void Write(std::string_view bytes) override;
    void Commit() override;

private:
    enum class Way { Rename, Overwrite, Straight };

    Way ChooseWay();
    Way ChooseWayOfExisting(DWORD attributes);
    void OpenSibling();
    void OverwriteTarget();
    [[noreturn]] void Fail() const { Fail(LastErrno()); }
    [[noreturn]] void Fail(int cause) const { throw FileAccessError(target_, cause); }

    fs::path target_; ///< with links resolved
    bool exists_ = false;
    SystemFile straight_;
    Way way_;
    Sibling sibling_;
};

WindowsReplacement::WindowsReplacement(const fs::path& path)
    : target_(ResolvedPath(path)), way_(ChooseWay()), sibling_(target_) {
    if (way_ != Way::Straight)
        OpenSibling();
}

WindowsReplacement::Way WindowsReplacement::ChooseWay() {
    const DWORD attributes = ::GetFileAttributesW(target_.c_str());
    exists_ = attributes != INVALID_FILE_ATTRIBUTES;
    if (exists_)
        return ChooseWayOfExisting(attributes);
    straight_.Reset(OpenFile(target_, GENERIC_WRITE, kShareAll)); // a device or a pipe
    if (straight_.IsOpen())
        return Way::Straight;
    if (const int cause = LastErrno(); cause != ENOENT)
        Fail(cause);
    return Way::Rename;
}

WindowsReplacement::Way WindowsReplacement::ChooseWayOfExisting(DWORD attributes) {
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
        Fail(EISDIR);
    // Not every system refuses the rename; the person who protected the file means it.
    if ((attributes & FILE_ATTRIBUTE_READONLY) != 0)
        Fail(EACCES);
    SystemFile file(OpenFile(target_, GENERIC_READ | GENERIC_WRITE, kShareAll));
    if (!file.IsOpen())
        file.Reset(OpenFile(target_, GENERIC_WRITE, kShareAll)); // one that may be written alone
    if (!file.IsOpen())
        Fail();
    if (::GetFileType(file.Get()) == FILE_TYPE_DISK) {
        BY_HANDLE_FILE_INFORMATION facts{};
        return ::GetFileInformationByHandle(file.Get(), &facts) != 0 && facts.nNumberOfLinks > 1 ? Way::Overwrite
                                                                                                 : Way::Rename;
    }
    straight_.Reset(OpenFile(target_, GENERIC_WRITE, kShareAll));
    return straight_.IsOpen() ? Way::Straight : Way::Rename;
}

void WindowsReplacement::OpenSibling() {
    if (sibling_.Create(target_.parent_path(), Readers::OwnerAlone))
        return;
    const int cause = LastErrno();
    std::error_code error;
    // A file that may be written in a folder that may not: its twin waits elsewhere.
    if (!exists_ || cause != EACCES || !sibling_.Create(fs::temp_directory_path(error), Readers::OwnerAlone))
        Fail(cause);
    way_ = Way::Overwrite;
}

void WindowsReplacement::Write(std::string_view bytes) {
    if (!WriteAll(way_ == Way::Straight ? straight_ : sibling_.File(), bytes))
        Fail();
}

void WindowsReplacement::Commit() {
    if (way_ == Way::Straight)
        return;
    if (way_ == Way::Rename && exists_)
        TakeRights(sibling_.Path(), target_);
    if (::FlushFileBuffers(sibling_.File().Get()) == 0)
        Fail();
    if (way_ == Way::Overwrite)
        OverwriteTarget();
    else if (!sibling_.TakePlaceOfTarget())
        Fail();
    sibling_.RemoveOlderCopies();
}

void WindowsReplacement::OverwriteTarget() {
    const std::string content = velmora::ReadFile(sibling_.Path());
    const std::string old = velmora::ReadFile(target_);
    const SystemFile target(OpenFile(target_, GENERIC_READ | GENERIC_WRITE, kShareAll));
    if (!target.IsOpen())
        Fail();
    // From here on a program that is killed leaves the twin as the whole copy, which the next opening offers.
    if (!sibling_.KeepAsWhole())
        Fail();
    auto hold = HoldInterruptions();
    if (Reserve(target, old.size(), content.size()) && Overwrite(target, content))
        return;
    const int cause = LastErrno();
    if (!Overwrite(target, old)) {
        hold.unlock(); // names are told under the same lock
        throw FileAccessError(target_, cause, sibling_.Leave());
    }
    Fail(cause);
}

} // namespace

std::string ReadFile(const fs::path& path, std::size_t most) {
    const SystemFile file(OpenFile(path, GENERIC_READ, kShareAll));
    if (!file.IsOpen()) {
        const int cause = LastErrno();
        std::error_code error;
        throw FileAccessError(path, fs::is_directory(path, error) ? EISDIR : cause);
    }
    std::string bytes;
    DWORD got = 0;
    LARGE_INTEGER size{};
    ::GetFileSizeEx(file.Get(), &size);
    bytes.reserve(std::min(most, static_cast<std::size_t>(size.QuadPart)));
    do {
        const std::size_t length = bytes.size();
        const std::size_t wanted = std::min(most - length, kBufferSize);
        bytes.resize(length + wanted);
        got = 0;
        if (wanted > 0 &&
            ::ReadFile(file.Get(), bytes.data() + length, static_cast<DWORD>(wanted), &got, nullptr) == 0 &&
            ::GetLastError() != ERROR_BROKEN_PIPE)
            throw FileAccessError(path, LastErrno());
        bytes.resize(length + got);
    } while (got > 0);
    return bytes;
}

std::unique_ptr<Replacement> NewReplacement(const fs::path& path, Readers /*readers*/) {
    return std::make_unique<WindowsReplacement>(path);
}

fs::path TargetOf(const fs::path& path) {
    return ResolvedPath(path);
}

std::uint64_t FileNumber(const fs::path& path) {
    const SystemFile file(OpenFile(path, 0, kShareAll));
    BY_HANDLE_FILE_INFORMATION facts{};
    return file.IsOpen() && ::GetFileInformationByHandle(file.Get(), &facts) != 0
               ? Whole(facts.nFileIndexHigh, facts.nFileIndexLow)
               : 0;
}

/// By the attributes alone: to open the file for its number takes a hundred times longer, and others could meet it
/// open.
FileIdentity IdentityOf(const fs::path& path) {
    WIN32_FILE_ATTRIBUTE_DATA facts{};
    if (::GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &facts) == 0)
        return {};
    const std::int64_t modified = Nanoseconds(facts.ftLastWriteTime);
    return {0, 0, static_cast<std::int64_t>(Whole(facts.nFileSizeHigh, facts.nFileSizeLow)), modified,
            std::max(modified, Nanoseconds(facts.ftCreationTime))};
}

} // namespace velmora
