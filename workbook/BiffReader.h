// The two layers below the cells of an .xls workbook: records, and the strings that run on over several of them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

struct BiffRecord {
    int id = 0;
    std::string_view data;
};

/// Both raise WorkbookError where a record or a string ends in the middle. The stream must outlive them.
class RecordReader {
public:
    RecordReader(std::string_view stream, std::size_t at) : stream_(stream), at_(at) {}
    /// False at the end of the stream.
    bool Next(BiffRecord& record);
    /// The data of a record and of those that continue it.
    std::vector<std::string_view> WithContinuations(const BiffRecord& record);

private:
    std::string_view stream_;
    std::size_t at_;
};

/// Reads BIFF8 strings out of a record and its continuations.
class StringReader {
public:
    explicit StringReader(std::vector<std::string_view> pieces) : pieces_(std::move(pieces)) {}

    bool AtEnd();
    /// A little-endian number of 1 to 4 bytes.
    std::uint32_t Number(int bytes);
    /// A string whose length stands in `lengthBytes`, with all that may be attached to it, as UTF-8.
    std::string Text(int lengthBytes);

private:
    void Settle();
    unsigned char Byte();
    void Skip(std::size_t count);

    std::vector<std::string_view> pieces_;
    std::size_t piece_ = 0;
    std::size_t at_ = 0;
};

} // namespace velmora
