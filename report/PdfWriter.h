// The frame of a PDF file: numbered objects, compressed streams and the table of where they are. Streams
// leave at once, so that of a page no more stays in memory than where it is.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

struct z_stream_s;

namespace velmora {

using PdfSink = std::function<void(std::string_view)>;

/// "12 0 R".
std::string PdfReference(int object);
/// A number given in hundredths, written as short as can be: 1250 is "12.5".
void AppendHundredths(std::string& out, std::int64_t hundredths);
/// The nearest number of hundredths, for a length too: beyond a kilometre it is cut.
std::int64_t ToHundredths(double number);
/// A string as UTF-16 in hexadecimal digits, without a byte order mark.
std::string Utf16Hex(std::u32string_view characters);

class PdfWriter {
public:
    /// `sink` takes the bytes in order, in pieces of some size; what it raises passes through.
    explicit PdfWriter(PdfSink sink);
    ~PdfWriter();

    /// The number of an object that is written later.
    int Reserve();
    void Write(int object, std::string_view body);
    /// One of many small ones, at most 65,535, which are compressed together at the end.
    void WritePacked(int object, std::string_view body);
    /// The pieces of `data` one after the other, compressed. `entries` are those of the dictionary beside the
    /// length and the filter.
    void WriteStream(int object, std::string_view entries, const std::vector<std::string_view>& data);
    /// The end of the file; nothing can be written after it.
    void Finish(int catalog, int information);

private:
    void Put(std::string_view bytes);
    void Flush();
    std::string FileId() const;
    void BeginObject(int object);
    void WriteObjectStream(int object);
    std::string Table(int objectStream) const;
    std::string_view Compress(const std::vector<std::string_view>& data);

    /// A byte of the file, or which of the packed objects it is.
    struct Place {
        std::uint64_t at = 0;
        bool packed = false;
    };
    struct EndDeflate {
        void operator()(z_stream_s* stream) const;
    };

    PdfSink sink_;
    std::string pending_;
    std::uint64_t flushed_ = 0;
    std::uint32_t checksum_ = 0; ///< of what was flushed
    std::vector<Place> places_;  ///< of object 1 onwards
    std::size_t packed_ = 0;     ///< how many wait to be compressed together
    std::string packedPlaces_, packedBodies_;
    std::unique_ptr<z_stream_s, EndDeflate> deflate_;
    std::string compressed_;
};

} // namespace velmora
