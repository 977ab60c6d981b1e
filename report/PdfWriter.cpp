#include "report/PdfWriter.h"

#include "base/Error.h"

#include <zlib.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <numeric>
#include <utility>

namespace velmora {
namespace {

constexpr std::size_t kPieceBytes = std::size_t{64} * 1024;
// Higher levels take a tenth more time for a file that is a twentieth smaller.
constexpr int kCompressionLevel = 3;
constexpr double kFarthestPoints = 3e6; // a good kilometre, within the numbers every reader takes

void AppendNumber(std::string& out, std::int64_t number) {
    std::array<char, 24> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    out.append(digits.data(), end);
}

} // namespace

std::string PdfReference(int object) {
    return std::to_string(object) + " 0 R";
}

void AppendHundredths(std::string& out, std::int64_t hundredths) {
    std::array<char, 24> digits; // written from the last one on
    char* first = digits.data() + digits.size();
    std::int64_t rest = hundredths < 0 ? -hundredths : hundredths;
    const auto put = [&](std::int64_t count) {
        for (; count > 0; --count, rest /= 10)
            *--first = static_cast<char>('0' + rest % 10);
    };
    if (rest % 100 != 0) {
        rest /= rest % 10 == 0 ? 10 : 1;
        put(hundredths % 10 == 0 ? 1 : 2);
        *--first = '.';
    } else {
        rest /= 100;
        put(1);
    }
    while (rest > 0)
        put(1);
    if (hundredths < 0)
        *--first = '-';
    out.append(first, digits.data() + digits.size());
}

std::int64_t ToHundredths(double number) {
    if (std::isnan(number))
        return 0;
    return std::llround(std::clamp(number, -kFarthestPoints, kFarthestPoints) * 100);
}

std::string Utf16Hex(std::u32string_view characters) {
    constexpr char32_t kFirstSupplementary = 0x10000;
    std::string hex;
    const auto append = [&](unsigned unit) {
        std::array<char, 5> digits;
        std::snprintf(digits.data(), digits.size(), "%04X", unit & 0xFFFFU);
        hex += digits.data();
    };
    for (const char32_t character : characters) {
        if (character < kFirstSupplementary) {
            append(character);
        } else {
            append(0xD800U + ((character - kFirstSupplementary) >> 10));
            append(0xDC00U + ((character - kFirstSupplementary) & 0x3FFU));
        }
    }
    return hex;
}

void PdfWriter::EndDeflate::operator()(z_stream_s* stream) const {
    deflateEnd(stream);
    delete stream;
}

PdfWriter::PdfWriter(PdfSink sink) : sink_(std::move(sink)) {
    auto stream = std::make_unique<z_stream>();
    if (deflateInit(stream.get(), kCompressionLevel) != Z_OK)
        throw Error("Out of memory");
    deflate_.reset(stream.release());
    // The second line tells programs that move files about that this one is not text.
    Put("%PDF-1.7\n%\xE2\xE3\xCF\xD3\n");
}

PdfWriter::~PdfWriter() = default;

int PdfWriter::Reserve() {
    places_.emplace_back();
    return static_cast<int>(places_.size());
}

void PdfWriter::Put(std::string_view bytes) {
    pending_ += bytes;
    if (pending_.size() >= kPieceBytes)
        Flush();
}

void PdfWriter::Flush() {
    sink_(pending_);
    checksum_ = static_cast<std::uint32_t>(
        ::crc32(checksum_, reinterpret_cast<const Bytef*>(pending_.data()), static_cast<uInt>(pending_.size())));
    flushed_ += pending_.size();
    pending_.clear();
}

void PdfWriter::BeginObject(int object) {
    places_.at(static_cast<std::size_t>(object - 1)) = {flushed_ + pending_.size()};
    AppendNumber(pending_, object);
    Put(" 0 obj\n");
}

void PdfWriter::Write(int object, std::string_view body) {
    BeginObject(object);
    Put(body);
    Put("\nendobj\n");
}

void PdfWriter::WritePacked(int object, std::string_view body) {
    places_.at(static_cast<std::size_t>(object - 1)) = {packed_++, true};
    AppendNumber(packedPlaces_, object);
    packedPlaces_ += ' ';
    AppendNumber(packedPlaces_, static_cast<std::int64_t>(packedBodies_.size()));
    packedPlaces_ += ' ';
    packedBodies_ += body;
    packedBodies_ += '\n';
}

void PdfWriter::WriteStream(int object, std::string_view entries, const std::vector<std::string_view>& data) {
    const std::string_view bytes = Compress(data);
    BeginObject(object);
    Put("<<");
    Put(entries);
    Put("/Filter/FlateDecode/Length ");
    AppendNumber(pending_, static_cast<std::int64_t>(bytes.size()));
    Put(">>stream\n");
    Put(bytes);
    Put("\nendstream\nendobj\n");
}

std::string_view PdfWriter::Compress(const std::vector<std::string_view>& data) {
    deflateReset(deflate_.get());
    const std::size_t total = std::accumulate(data.begin(), data.end(), std::size_t{0},
                                              [](std::size_t sum, std::string_view s) { return sum + s.size(); });
    if (const std::size_t bound = deflateBound(deflate_.get(), total); compressed_.size() < bound)
        compressed_.resize(bound);
    deflate_->next_out = reinterpret_cast<Bytef*>(compressed_.data());
    deflate_->avail_out = static_cast<uInt>(compressed_.size());
    for (const std::string_view piece : data) {
        deflate_->next_in = reinterpret_cast<Bytef*>(const_cast<char*>(piece.data()));
        deflate_->avail_in = static_cast<uInt>(piece.size());
        deflate(deflate_.get(), Z_NO_FLUSH);
    }
    deflate(deflate_.get(), Z_FINISH);
    return {compressed_.data(), deflate_->total_out};
}

/// Sixteen bytes in hexadecimal digits that other contents, or another moment, make others.
std::string PdfWriter::FileId() const {
    constexpr std::uint64_t kFnvStart = 14695981039346656037ULL, kFnvPrime = 1099511628211ULL;
    std::uint64_t hash = kFnvStart;
    for (const Place& place : places_)
        hash = (hash ^ place.at) * kFnvPrime;
    std::array<char, 33> id;
    std::snprintf(id.data(), id.size(), "%016llX%08X%08X", static_cast<unsigned long long>(hash), checksum_,
                  static_cast<unsigned>(flushed_));
    return id.data();
}

void PdfWriter::WriteObjectStream(int object) {
    WriteStream(object, "/Type/ObjStm/N " + std::to_string(packed_) + "/First " + std::to_string(packedPlaces_.size()),
                {packedPlaces_, packedBodies_});
}

/// A row for each object from 0 on, which is none: its kind in a byte, in eight the byte of the file or the stream that
/// it is packed in, and in two which one it is there.
std::string PdfWriter::Table(int objectStream) const {
    std::string table;
    const auto appendRow = [&](char kind, std::uint64_t at, std::uint64_t index) {
        table += kind;
        for (int shift = 56; shift >= 0; shift -= 8)
            table += static_cast<char>(at >> shift & 0xFFU);
        for (const int shift : {8, 0})
            table += static_cast<char>(index >> shift & 0xFFU);
    };
    appendRow(0, 0, 0xFFFF);
    for (const Place& place : places_) {
        if (place.packed)
            appendRow(2, static_cast<std::uint64_t>(objectStream), place.at);
        else
            appendRow(1, place.at, 0);
    }
    return table;
}

void PdfWriter::Finish(int catalog, int information) {
    const int objectStream = Reserve(), table = Reserve();
    WriteObjectStream(objectStream);
    Flush();
    places_.back() = {flushed_}; // it lists itself
    const std::string id = FileId();
    WriteStream(table,
                "/Type/XRef/Size " + std::to_string(places_.size() + 1) + "/W[1 8 2]/Root " + PdfReference(catalog) +
                    "/Info " + PdfReference(information) + "/ID[<" + id + "><" + id + ">]",
                {Table(objectStream)});
    Put("startxref\n" + std::to_string(places_.back().at) + "\n%%EOF\n");
    Flush();
}

} // namespace velmora
