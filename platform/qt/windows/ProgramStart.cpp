#include "platform/qt/ProgramStart.h"

#include "base/windows/Api.h"

#include <QCoreApplication>

#include <cstdio>
#include <memory>
#include <shellapi.h>
#include <span>
#include <utility>

namespace velmora {
namespace {

struct FreeLocal {
    void operator()(wchar_t** words) const { ::LocalFree(words); }
};

} // namespace

std::vector<std::string> WordsOfCall(int, char**) {
    std::vector<std::string> words;
    if (QCoreApplication::instance()) {
        for (const QString& word : QCoreApplication::arguments().sliced(1))
            words.push_back(word.toStdString());
        return words;
    }
    int count = 0;
    const std::unique_ptr<wchar_t*, FreeLocal> all(::CommandLineToArgvW(::GetCommandLineW(), &count));
    for (const wchar_t* word : std::span(all.get(), static_cast<std::size_t>(count)).subspan(1))
        words.push_back(Narrow(word));
    return words;
}

/// A stream that is sent to a file or another program goes there without this.
void TakeTerminalOfCaller() {
    std::vector<std::FILE*> nowhere;
    for (const auto& [handle, stream] : {std::pair(STD_OUTPUT_HANDLE, stdout), std::pair(STD_ERROR_HANDLE, stderr)})
        if (::GetStdHandle(handle) == nullptr)
            nowhere.push_back(stream);
    if (nowhere.empty() || !::AttachConsole(ATTACH_PARENT_PROCESS))
        return;
    ::SetConsoleOutputCP(CP_UTF8);
    for (std::FILE* stream : nowhere)
        static_cast<void>(std::freopen("CONOUT$", "w", stream)); // a stream that fails says nothing
}

/// There always is one.
void EndWithoutDisplay(QtMsgType, const QMessageLogContext&, const QString&) {}

} // namespace velmora
