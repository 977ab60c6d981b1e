#include "workbook/XmlPart.h"

#include "workbook/WorkbookParts.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <exception>
#include <expat.h>
#include <unordered_set>

namespace velmora {
namespace {

constexpr int kDeepest = 256;
constexpr std::size_t kLongestTag = 256u << 10; // a cell's longest text in an attribute, and room for the others
constexpr std::size_t kMostNames = 1 << 15;
constexpr std::size_t kMostNameBytes = 4u << 20;
constexpr std::uint64_t kMostEvents = 50'000'000; // three times those of the most tabs in a sheet of 50 columns

std::string_view WithoutPrefix(std::string_view name) {
    const std::size_t colon = name.rfind(':');
    return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

/// Carries errors past expat, whose C code they may not cross, and counts what costs it room or time.
class Bridge {
public:
    explicit Bridge(XmlReader& reader) : parser_(XML_ParserCreate(nullptr)), reader_(reader) {
        XML_SetUserData(parser_, this);
        XML_SetElementHandler(parser_, OnStart, OnEnd);
        XML_SetCharacterDataHandler(parser_, OnText);
        XML_SetStartDoctypeDeclHandler(parser_, OnDocumentType);
    }
    ~Bridge() { XML_ParserFree(parser_); }
    Bridge(const Bridge&) = delete;
    Bridge& operator=(const Bridge&) = delete;

    /// False when the reader wants no more.
    bool Feed(std::string_view piece, bool last) {
        const std::uint64_t before = events_;
        const auto state = XML_Parse(parser_, piece.data(), static_cast<int>(piece.size()), last ? 1 : 0);
        if (failure_)
            std::rethrow_exception(failure_);
        if (state != XML_STATUS_OK && !reader_.stopped)
            RaiseDamaged();
        pending_ = events_ == before ? pending_ + piece.size() : 0; // a tag without end is scanned again each time
        if (pending_ > kLongestTag)
            RaiseDamaged();
        return !reader_.stopped;
    }

private:
    template <typename Work> static void Guarded(void* self, Work work) {
        auto& bridge = *static_cast<Bridge*>(self);
        if (bridge.failure_ || bridge.reader_.stopped)
            return;
        try {
            bridge.Count(1);
            work(bridge);
        } catch (...) {
            bridge.failure_ = std::current_exception();
        }
        if (bridge.failure_ || bridge.reader_.stopped)
            XML_StopParser(bridge.parser_, XML_FALSE);
    }
    static void OnStart(void* self, const char* name, const char** attributes) {
        Guarded(self, [&](Bridge& bridge) {
            if (++bridge.depth_ > kDeepest)
                RaiseDamaged();
            bridge.Meet(name);
            for (const char** pair = attributes; *pair; pair += 2)
                bridge.Meet(*pair);
            bridge.reader_.Start(WithoutPrefix(name), XmlAttributes(attributes));
        });
    }
    static void OnEnd(void* self, const char* name) {
        Guarded(self, [&](Bridge& bridge) {
            --bridge.depth_;
            bridge.reader_.End(WithoutPrefix(name));
        });
    }
    static void OnText(void* self, const char* text, int length) {
        Guarded(self, [&](Bridge& bridge) { bridge.reader_.Text({text, static_cast<std::size_t>(length)}); });
    }
    /// Old workbooks name a document type, which is harmless; with declarations of its own it could make any amount of
    /// text.
    static void OnDocumentType(void* self, const char*, const char*, const char*, int declares) {
        Guarded(self, [&](Bridge&) {
            if (declares != 0)
                RaiseDamaged();
        });
    }

    void Count(std::uint64_t events) {
        events_ += events;
        if (events_ > kMostEvents)
            RaiseTooLarge();
    }
    /// The parser keeps every name that it meets. Most are the same few.
    void Meet(std::string_view name) {
        Count(1);
        std::string& recent = recent_[(name.size() + static_cast<unsigned char>(name.back())) % recent_.size()];
        if (recent == name)
            return;
        recent = name;
        if (!names_.insert(std::hash<std::string_view>()(name)).second)
            return;
        nameBytes_ += name.size();
        if (names_.size() > kMostNames || nameBytes_ > kMostNameBytes)
            RaiseTooLarge();
    }

    XML_Parser parser_;
    std::exception_ptr failure_;
    XmlReader& reader_;
    std::uint64_t events_ = 0;
    std::size_t pending_ = 0; ///< bytes that have made no event
    int depth_ = 0;
    std::array<std::string, 64> recent_;
    std::unordered_set<std::size_t> names_;
    std::size_t nameBytes_ = 0;
};

} // namespace

std::string_view XmlAttributes::operator()(std::string_view name) const {
    for (const char** pair = pairs_; *pair; pair += 2)
        if (WithoutPrefix(pair[0]) == name)
            return pair[1];
    return {};
}

int XmlAttributes::Number(std::string_view name, int otherwise) const {
    const std::string_view text = (*this)(name);
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && number >= 0 ? number : otherwise;
}

void ReadXmlPart(const ZipFile& zip, const std::string& part, XmlReader& reader) {
    Bridge bridge(reader);
    zip.Read(part, [&](std::string_view piece) { return bridge.Feed(piece, false); });
    if (!reader.stopped)
        bridge.Feed({}, true);
}

} // namespace velmora
