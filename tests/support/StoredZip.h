// A zip file made of texts, each stored as it is, for tests of what is inside.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace velmora {

inline std::string LittleEndianBytes(std::initializer_list<std::pair<std::uint32_t, int>> numbers) {
    std::string bytes;
    for (const auto& [value, size] : numbers)
        for (int i = 0; i < size; ++i)
            bytes += static_cast<char>(value >> (8 * i) & 0xFF);
    return bytes;
}

inline std::uint32_t Crc32(const std::string& bytes) {
    std::uint32_t crc = 0xFFFFFFFF;
    for (const char byte : bytes) {
        crc ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = crc >> 1 ^ (crc & 1 ? 0xEDB88320u : 0);
    }
    return ~crc;
}

/// Names and contents; `flags` are those of every part, 1: encrypted.
inline std::string StoredZip(const std::vector<std::pair<std::string, std::string>>& parts, std::uint32_t flags = 0) {
    std::string bytes;
    std::string directory;
    for (const auto& [name, text] : parts) {
        const auto size = static_cast<std::uint32_t>(text.size());
        const auto at = static_cast<std::uint32_t>(bytes.size());
        const auto nameSize = static_cast<std::uint32_t>(name.size());
        const std::string common = LittleEndianBytes(
            {{20, 2}, {flags, 2}, {0, 2}, {0, 4}, {Crc32(text), 4}, {size, 4}, {size, 4}, {nameSize, 2}, {0, 2}});
        bytes += "PK\x03\x04" + common + name + text;
        directory += "PK\x01\x02" + LittleEndianBytes({{20, 2}}) + common +
                     LittleEndianBytes({{0, 2}, {0, 2}, {0, 2}, {0, 4}, {at, 4}}) + name;
    }
    const auto count = static_cast<std::uint32_t>(parts.size());
    const auto start = static_cast<std::uint32_t>(bytes.size());
    const auto length = static_cast<std::uint32_t>(directory.size());
    return bytes + directory + "PK\x05\x06" +
           LittleEndianBytes({{0, 2}, {0, 2}, {count, 2}, {count, 2}, {length, 4}, {start, 4}, {0, 2}});
}

} // namespace velmora
