#include "bench/Floors.h"

#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace velmora::floors {
namespace {

constexpr int kHeaderLines = 6;

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

} // namespace

void WriteAll(const std::filesystem::path& path, const std::string& bytes, bool flush) {
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
    if (::write(file, bytes.data(), bytes.size()) < 0)
        std::perror("floor");
    if (flush)
        ::fsync(file);
    ::close(file);
}

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

} // namespace velmora::floors
