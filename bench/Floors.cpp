#include "bench/Floors.h"

#include <algorithm>
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
    const auto lines = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
    for (std::vector<std::string>& field : tabs)
        field.reserve(lines);
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
    std::size_t size = header.size();
    for (const std::vector<std::string>& field : tabs)
        for (const std::string& tab : field)
            size += tab.size() + 2; // a comma, or half of what ends the line
    text.reserve(size);
    for (std::size_t i = 0; i < tabs[0].size(); ++i)
        text.append(tabs[0][i]).append(",").append(tabs[1][i]).append(",").append(tabs[2][i]).append("\r\n");
    const std::filesystem::path temporary = path.string() + ".tmp";
    WriteAll(temporary, text, true);
    ::rename(temporary.c_str(), path.c_str());
}

std::vector<std::string> Fill(int count) {
    std::vector<std::string> texts;
    texts.reserve(static_cast<std::size_t>(count));
    std::string text = "No.00000/x";
    for (int i = 1; i <= count; ++i) {
        int rest = i;
        for (std::size_t digit = 7; digit > 2; --digit, rest /= 10)
            text[digit] = static_cast<char>('0' + rest % 10);
        texts.push_back(text);
    }
    return texts;
}

} // namespace velmora::floors
