// What the program prints, as a terminal may be given it.
#pragma once

#include "base/Terminal.h"

#include <ostream>
#include <sstream>

namespace velmora {

/// While one lives, its stream shows everything as ForTerminal does, at each flush and at the end.
class TerminalStream : std::stringbuf {
public:
    explicit TerminalStream(std::ostream& stream) : stream_(stream), target_(stream.rdbuf(this)) {}
    ~TerminalStream() override {
        Pass();
        stream_.rdbuf(target_);
    }
    TerminalStream(const TerminalStream&) = delete;
    TerminalStream& operator=(const TerminalStream&) = delete;

private:
    int sync() override { return Pass() ? 0 : -1; }
    bool Pass() {
        const std::string text = ForTerminal(str());
        str({});
        const auto size = static_cast<std::streamsize>(text.size());
        return target_->sputn(text.data(), size) == size && target_->pubsync() == 0;
    }

    std::ostream& stream_;
    std::streambuf* target_;
};

} // namespace velmora
