// By the system's structured storage.
#include "workbook/OleFile.h"

#include "base/AtomicFile.h"
#include "base/TemporaryFile.h"
#include "base/windows/Com.h"
#include "workbook/WorkbookParts.h"

#include <cstdint>
#include <cstring>

namespace velmora {
namespace {

constexpr DWORD kRead = STGM_READ | STGM_SHARE_EXCLUSIVE;
constexpr DWORD kCreate = STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE;

/// A copy of the bytes, which goes with the object.
Com<ILockBytes> MemoryWith(std::string_view bytes) {
    Com<ILockBytes> memory;
    ULARGE_INTEGER size{};
    size.QuadPart = bytes.size();
    HGLOBAL block = nullptr;
    if (FAILED(::CreateILockBytesOnHGlobal(nullptr, TRUE, memory.Out())) || FAILED(memory->SetSize(size)) ||
        FAILED(::GetHGlobalFromILockBytes(memory.Get(), &block)))
        throw std::bad_alloc();
    if (!bytes.empty())
        std::memcpy(::GlobalLock(block), bytes.data(), bytes.size());
    ::GlobalUnlock(block);
    return memory;
}

/// When it was made: the same sheet is to be the same file, by which the program knows its own. Stands in the entries
/// of the first sector of the directory.
void ForgetTimes(std::string& file) {
    constexpr std::size_t kDirectoryAt = 0x30, kSector = 512, kEntry = 128, kTimesAt = 0x64, kTimes = 16;
    std::uint32_t sector = 0;
    std::memcpy(&sector, file.data() + kDirectoryAt, sizeof sector);
    const std::size_t start = (std::size_t{sector} + 1) * kSector;
    for (std::size_t entry = start; entry < start + kSector && entry + kEntry <= file.size(); entry += kEntry)
        file.replace(entry + kTimesAt, kTimes, kTimes, '\0');
}

std::string ReadAll(IStream& stream, std::size_t most) {
    STATSTG facts{};
    if (FAILED(stream.Stat(&facts, STATFLAG_NONAME)) || facts.cbSize.QuadPart > most)
        RaiseDamaged();
    std::string bytes(facts.cbSize.QuadPart, '\0');
    ULONG got = 0;
    if (FAILED(stream.Read(bytes.data(), static_cast<ULONG>(bytes.size()), &got)) || got != bytes.size())
        RaiseDamaged();
    return bytes;
}

} // namespace

std::optional<std::string> ReadOleStream(std::string_view file, std::string_view name) {
    const Com<ILockBytes> memory = MemoryWith(file);
    Com<IStorage> folder;
    if (FAILED(::StgOpenStorageOnILockBytes(memory.Get(), nullptr, kRead, nullptr, 0, folder.Out())))
        RaiseDamaged();
    Com<IStream> stream;
    const HRESULT opened = folder->OpenStream(Wide(name).c_str(), nullptr, kRead, 0, stream.Out());
    if (opened == STG_E_FILENOTFOUND)
        return std::nullopt;
    if (FAILED(opened))
        RaiseDamaged();
    return ReadAll(*stream, file.size());
}

/// By a file, since what is left open between the sectors of memory is whatever was there.
std::string WriteOleFile(const char* name, std::string_view stream) {
    const ScratchFolder scratch;
    const std::filesystem::path path = scratch.Path() / "workbook.xls";
    Com<IStorage> folder;
    Com<IStream> child;
    ULONG written = 0;
    if (FAILED(::StgCreateDocfile(path.c_str(), kCreate, 0, folder.Out())) ||
        FAILED(folder->CreateStream(Wide(name).c_str(), kCreate, 0, 0, child.Out())) ||
        FAILED(child->Write(stream.data(), static_cast<ULONG>(stream.size()), &written)) || written != stream.size() ||
        FAILED(child->Commit(STGC_DEFAULT)) || FAILED(folder->Commit(STGC_DEFAULT)))
        throw WorkbookError("the workbook cannot be written");
    child.Reset();
    folder.Reset();
    std::string file = ReadFile(path);
    ForgetTimes(file);
    return file;
}

} // namespace velmora
