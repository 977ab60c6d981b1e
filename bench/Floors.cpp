#include "bench/Floors.h"

#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <zlib.h>

namespace velmora::floors {
namespace {

constexpr int kHeaderLines = 6;
constexpr std::size_t kTabsPerSheet = 24;
constexpr int kColumns = 3;

std::string ReadAll(const std::filesystem::path& path) {
    const int file = ::open(path.c_str(), O_RDONLY);
    struct stat status {};
    ::fstat(file, &status);
    std::string text(static_cast<std::size_t>(status.st_size), '\0');
    if (::read(file, text.data(), text.size()) != status.st_size)
        text.clear();
    ::close(file);
    return text;
}

void WriteAll(const std::filesystem::path& path, const std::string& bytes, bool flush) {
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
    if (::write(file, bytes.data(), bytes.size()) < 0)
        std::perror("floor");
    if (flush)
        ::fsync(file);
    ::close(file);
}

std::string PageStream(const Arrays& tabs, std::size_t first) {
    std::string stream = "BT /F 10 Tf\n";
    std::array<char, 64> place{};
    for (std::size_t slot = 0; slot < kTabsPerSheet; ++slot) {
        for (std::size_t field = 0; field < tabs.size(); ++field) {
            const int x = 170 * static_cast<int>(slot % kColumns) + 80 * static_cast<int>(field == 2);
            const int y = 760 - 93 * static_cast<int>(slot / kColumns) - 14 * static_cast<int>(field > 0);
            std::snprintf(place.data(), place.size(), "1 0 0 1 %d %d Tm (", x, y);
            stream += place.data();
            stream += tabs[field][first + slot];
            stream += ") Tj\n";
        }
    }
    return stream + "ET";
}

std::string Deflated(const std::string& text) {
    std::string packed(compressBound(text.size()), '\0');
    uLongf size = packed.size();
    compress2(reinterpret_cast<Bytef*>(packed.data()), &size, reinterpret_cast<const Bytef*>(text.data()), text.size(),
              Z_BEST_SPEED);
    packed.resize(size);
    return packed;
}

} // namespace

Arrays Open(const std::filesystem::path& path) {
    const std::string text = ReadAll(path);
    Arrays tabs;
    const char* at = text.data();
    const char* const end = at + text.size();
    for (int line = 0; at < end; ++line) {
        const char* feed = static_cast<const char*>(std::memchr(at, '\n', static_cast<std::size_t>(end - at)));
        const char* stop = feed ? feed : end;
        const char* next = feed ? feed + 1 : end;
        if (stop > at && stop[-1] == '\r')
            --stop;
        for (std::size_t field = 0; line >= kHeaderLines && field < tabs.size(); ++field) {
            const char* comma = static_cast<const char*>(std::memchr(at, ',', static_cast<std::size_t>(stop - at)));
            tabs[field].emplace_back(at, comma ? comma : stop);
            at = comma ? comma + 1 : stop;
        }
        at = next;
    }
    return tabs;
}

void Save(const std::filesystem::path& path, const std::string& header, const Arrays& tabs) {
    std::string text = header;
    for (std::size_t i = 0; i < tabs[0].size(); ++i)
        text += tabs[0][i] + ',' + tabs[1][i] + ',' + tabs[2][i] + "\r\n";
    const std::filesystem::path temporary = path.string() + ".tmp";
    WriteAll(temporary, text, true);
    ::rename(temporary.c_str(), path.c_str());
}

std::vector<std::string> Fill(int count) {
    std::vector<std::string> texts;
    texts.reserve(static_cast<std::size_t>(count));
    std::array<char, 32> text{};
    for (int i = 1; i <= count; ++i) {
        const int length = std::snprintf(text.data(), text.size(), "No.%05d/x", i);
        texts.emplace_back(text.data(), static_cast<std::size_t>(length));
    }
    return texts;
}

void Pdf(const std::filesystem::path& path, const Arrays& tabs) {
    std::string pdf = "%PDF-1.4\n";
    std::vector<std::size_t> offsets;
    const auto object = [&](const std::string& body) {
        offsets.push_back(pdf.size());
        pdf += std::to_string(offsets.size()) + " 0 obj\n" + body + "\nendobj\n";
        return std::to_string(offsets.size()) + " 0 R";
    };
    const std::string font = object("<</Type/Font/Subtype/Type1/BaseFont/Helvetica>>");
    std::string kids;
    for (std::size_t first = 0; first < tabs[0].size(); first += kTabsPerSheet) {
        const std::string packed = Deflated(PageStream(tabs, first));
        const std::string content = object("<</Filter/FlateDecode/Length " + std::to_string(packed.size()) +
                                           ">>stream\n" + packed + "\nendstream");
        kids += object("<</Type/Page/MediaBox[0 0 595 842]/Resources<</Font<</F " + font + ">>>>/Contents " + content +
                       ">>") +
                " ";
    }
    const std::string pages = object("<</Type/Pages/Kids[" + kids + "]>>");
    const std::string root = object("<</Type/Catalog/Pages " + pages + ">>");
    std::string table = "xref\n0 1\n";
    std::array<char, 32> row{};
    for (const std::size_t offset : offsets) {
        std::snprintf(row.data(), row.size(), "%010zu 00000 n \n", offset);
        table += row.data();
    }
    WriteAll(path, pdf + table + "trailer<</Root " + root + ">>\n%%EOF", false);
}

} // namespace velmora::floors
