#include "workbook/ZipFile.h"

#include "base/LateLibrary.h"
#include "base/Text.h"
#include "workbook/WorkbookParts.h"

#include <algorithm>
#include <array>
#include <map>
#include <zip.h>

namespace velmora {
namespace {

const LateLibrary& ZipLibrary() {
    static const LateLibrary library(VELMORA_ZIP);
    return library;
}

#define ZIP_CALL(function) VELMORA_LATE(ZipLibrary(), function)

constexpr int kMostParts = 20000;

struct CloseZip {
    void operator()(zip_t* zip) const { ZIP_CALL(zip_discard)(zip); }
};
struct ClosePart {
    void operator()(zip_file_t* part) const { ZIP_CALL(zip_fclose)(part); }
};

[[noreturn]] void RaiseNoZip() {
    throw WorkbookError("the file is no workbook, or its end is missing");
}

[[noreturn]] void RaiseTooMuchUnpacked() {
    throw WorkbookError("the workbook unpacks to more than 256 MB");
}

/// Told before the directory is read, which costs ten times the room that it has in the file.
bool HasTooManyParts(std::string_view bytes) {
    constexpr std::string_view kEntry = "PK\x01\x02";
    int count = 0;
    for (std::size_t at = bytes.find(kEntry); at != std::string_view::npos; at = bytes.find(kEntry, at + 1))
        if (++count > kMostParts)
            return true;
    return false;
}

} // namespace

struct ZipFile::Archive {
    explicit Archive(std::string content) : bytes(std::move(content)) {
        if (HasTooManyParts(bytes))
            RaiseTooLarge();
        zip_source_t* source = ZIP_CALL(zip_source_buffer_create)(bytes.data(), bytes.size(), 0, nullptr);
        if (source)
            zip.reset(ZIP_CALL(zip_open_from_source)(source, ZIP_RDONLY, nullptr));
        if (source && !zip)
            ZIP_CALL(zip_source_free)(source);
        if (!zip)
            RaiseNoZip();
    }

    /// `upTo` bytes of the part are unpacked; reading them again is not counted.
    void Count(zip_uint64_t index, std::uint64_t upTo) {
        std::uint64_t& counted = handedOut[index];
        total += upTo - std::min(counted, upTo);
        counted = std::max(counted, upTo);
        if (total > kMostWorkbookBytes)
            RaiseTooMuchUnpacked();
    }

    const std::string bytes;
    std::unique_ptr<zip_t, CloseZip> zip;
    std::map<zip_uint64_t, std::uint64_t> handedOut; ///< of each part
    std::uint64_t total = 0;
};

ZipFile::ZipFile(std::string bytes, std::function<void()> watch)
    : archive_(std::make_unique<Archive>(std::move(bytes))), watch_(std::move(watch)) {
    zip_t* const zip = archive_->zip.get();
    std::uint64_t total = 0;
    for (zip_int64_t i = ZIP_CALL(zip_get_num_entries)(zip, 0); i-- > 0;) {
        zip_stat_t part;
        if (ZIP_CALL(zip_stat_index)(zip, static_cast<zip_uint64_t>(i), 0, &part) != 0)
            RaiseDamaged();
        if (EndsWithNoCase(part.name, ".xml") || EndsWithNoCase(part.name, ".rels"))
            total += std::min<std::uint64_t>(part.size, kMostWorkbookBytes + 1);
    }
    if (total > kMostWorkbookBytes)
        RaiseTooMuchUnpacked();
}

ZipFile::~ZipFile() = default;
ZipFile::ZipFile(ZipFile&&) noexcept = default;

bool ZipFile::Has(const std::string& name) const {
    return ZIP_CALL(zip_name_locate)(archive_->zip.get(), name.c_str(), 0) >= 0;
}

void ZipFile::Read(const std::string& name, const std::function<bool(std::string_view)>& sink) const {
    zip_t* const zip = archive_->zip.get();
    zip_stat_t part;
    if (ZIP_CALL(zip_stat)(zip, name.c_str(), 0, &part) != 0)
        throw WorkbookError("the workbook has no part " + name);
    if (part.encryption_method != ZIP_EM_NONE)
        throw WorkbookError("the workbook is protected by a password");
    if (part.comp_method != ZIP_CM_STORE && part.comp_method != ZIP_CM_DEFLATE) // all that the formats allow
        RaiseDamaged();
    const std::unique_ptr<zip_file_t, ClosePart> file(ZIP_CALL(zip_fopen_index)(zip, part.index, 0));
    if (!file)
        RaiseDamaged();
    std::array<char, 65536> piece{};
    for (std::uint64_t size = 0;;) {
        const zip_int64_t got = ZIP_CALL(zip_fread)(file.get(), piece.data(), piece.size());
        size += static_cast<std::uint64_t>(std::max<zip_int64_t>(got, 0));
        if (got < 0 || size > part.size) // size and checksum at the end are compared by libzip
            RaiseDamaged();
        archive_->Count(part.index, size);
        if (watch_)
            watch_();
        if (got == 0 || !sink({piece.data(), static_cast<std::size_t>(got)}))
            return;
    }
}

} // namespace velmora
