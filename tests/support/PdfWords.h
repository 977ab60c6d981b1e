// Real files for the programs under test, and PDFs as another program reads them.
#pragma once

#include "document/TabFile.h"

#include <array>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <sys/wait.h>
#include <vector>

namespace velmora {

struct Result {
    int code = 0;
    std::string output; ///< standard output and error
};

inline Result Shell(const std::string& command) {
    Result result;
    FILE* pipe = ::popen((command + " 2>&1").c_str(), "r");
    std::array<char, 65536> buffer{};
    for (std::size_t got = 0; (got = std::fread(buffer.data(), 1, buffer.size(), pipe)) > 0;)
        result.output.append(buffer.data(), got);
    result.code = WEXITSTATUS(::pclose(pipe));
    return result;
}

inline std::string TabFileText(int type, int fields, const std::string& margins, int tabs,
                               const std::function<std::string(int)>& line, const std::string& layout = "") {
    const std::string stationery = !layout.empty() ? layout : type < 4 ? "A4" : "DL_h";
    std::string text = "Version 8\r\nPrinter," + stationery + "," + std::to_string(type) + "," +
                       std::to_string(fields) + "\r\n" + margins +
                       "\r\nArial,9,False,False,False,0,1\r\nArial,8,False,False,False,2,1\r\n"
                       "Arial,8,False,False,False,0,1\r\n";
    for (int tab = 1; tab <= tabs; ++tab)
        text += line(tab) + "\r\n";
    return text;
}

struct Word {
    double left, top, right, bottom; ///< millimetres
};

/// The words of a PDF's first page, and the page's size under "".
inline std::vector<std::pair<std::string, Word>> AllWords(const std::filesystem::path& pdf) {
    constexpr double kMmPerPoint = 25.4 / 72;
    std::vector<std::pair<std::string, Word>> words;
    const std::string page = Shell("pdftotext -bbox -l 1 '" + pdf.string() + "' -").output;
    LineReader lines(page);
    for (std::string_view line; lines.Next(line);) {
        const std::string owned(line);
        double a = 0, b = 0, c = 0, d = 0;
        std::array<char, 64> text{};
        if (std::sscanf(owned.c_str(), " <page width=\"%lf\" height=\"%lf\">", &a, &b) == 2)
            words.push_back({"", {0, 0, a * kMmPerPoint, b * kMmPerPoint}});
        if (std::sscanf(owned.c_str(), " <word xMin=\"%lf\" yMin=\"%lf\" xMax=\"%lf\" yMax=\"%lf\">%63[^<]</word>", &a,
                        &b, &c, &d, text.data()) == 5)
            words.push_back({text.data(), {a * kMmPerPoint, b * kMmPerPoint, c * kMmPerPoint, d * kMmPerPoint}});
    }
    return words;
}

/// The same by their text.
inline std::map<std::string, Word> Words(const std::filesystem::path& pdf) {
    const auto words = AllWords(pdf);
    return {words.begin(), words.end()};
}

} // namespace velmora
