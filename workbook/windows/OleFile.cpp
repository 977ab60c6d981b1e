// By the system's structured storage, on memory.
#include "workbook/OleFile.h"

#include "base/windows/Com.h"
#include "workbook/WorkbookParts.h"

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

std::string BytesOf(ILockBytes& memory) {
    STATSTG facts{};
    HGLOBAL block = nullptr;
    if (FAILED(memory.Stat(&facts, STATFLAG_NONAME)) || FAILED(::GetHGlobalFromILockBytes(&memory, &block)))
        throw std::bad_alloc();
    const std::string bytes(static_cast<const char*>(::GlobalLock(block)), facts.cbSize.QuadPart);
    ::GlobalUnlock(block);
    return bytes;
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

std::string WriteOleFile(const char* name, std::string_view stream) {
    const Com<ILockBytes> memory = MemoryWith("");
    Com<IStorage> folder;
    Com<IStream> child;
    ULONG written = 0;
    if (FAILED(::StgCreateDocfileOnILockBytes(memory.Get(), kCreate, 0, folder.Out())) ||
        FAILED(folder->CreateStream(Wide(name).c_str(), kCreate, 0, 0, child.Out())) ||
        FAILED(child->Write(stream.data(), static_cast<ULONG>(stream.size()), &written)) || written != stream.size() ||
        FAILED(child->Commit(STGC_DEFAULT)) || FAILED(folder->Commit(STGC_DEFAULT)))
        throw WorkbookError("the workbook cannot be written");
    child.Reset();
    folder.Reset();
    return BytesOf(*memory);
}

} // namespace velmora
