#include "workbook/XmlPart.h"

#include "workbook/WorkbookParts.h"

#include <charconv>
#include <exception>
#include <expat.h>

namespace velmora {
namespace {

std::string_view WithoutPrefix(std::string_view name) {
    const std::size_t colon = name.rfind(':');
    return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

/// Carries errors past expat, whose C code they may not cross.
class Bridge {
public:
    explicit Bridge(XmlReader& reader) : parser(XML_ParserCreate(nullptr)), reader_(reader) {
        XML_SetUserData(parser, this);
        XML_SetElementHandler(parser, OnStart, OnEnd);
        XML_SetCharacterDataHandler(parser, OnText);
        XML_SetEntityDeclHandler(parser, OnEntity);
    }
    ~Bridge() { XML_ParserFree(parser); }
    Bridge(const Bridge&) = delete;
    Bridge& operator=(const Bridge&) = delete;

    XML_Parser parser;
    std::exception_ptr failure;

private:
    template <typename Work> static void Guarded(void* self, Work work) {
        auto& bridge = *static_cast<Bridge*>(self);
        if (bridge.failure || bridge.reader_.stopped)
            return;
        try {
            work(bridge.reader_);
        } catch (...) {
            bridge.failure = std::current_exception();
        }
        if (bridge.failure || bridge.reader_.stopped)
            XML_StopParser(bridge.parser, XML_FALSE);
    }
    static void OnStart(void* self, const char* name, const char** attributes) {
        Guarded(self, [&](XmlReader& reader) { reader.Start(WithoutPrefix(name), XmlAttributes(attributes)); });
    }
    static void OnEnd(void* self, const char* name) {
        Guarded(self, [&](XmlReader& reader) { reader.End(WithoutPrefix(name)); });
    }
    static void OnText(void* self, const char* text, int length) {
        Guarded(self, [&](XmlReader& reader) { reader.Text({text, static_cast<std::size_t>(length)}); });
    }
    /// Old workbooks name a document type, which is harmless; with texts of its own it could make any amount of text.
    static void OnEntity(void* self, const char*, int, const char*, int, const char*, const char*, const char*,
                         const char*) {
        Guarded(self, [](XmlReader&) { RaiseDamaged(); });
    }

    XmlReader& reader_;
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
    const auto feed = [&](std::string_view piece, int last) {
        const auto state = XML_Parse(bridge.parser, piece.data(), static_cast<int>(piece.size()), last);
        if (bridge.failure)
            std::rethrow_exception(bridge.failure);
        if (state != XML_STATUS_OK && !reader.stopped)
            RaiseDamaged();
        return !reader.stopped;
    };
    zip.Read(part, [&](std::string_view piece) { return feed(piece, 0); });
    if (!reader.stopped)
        feed({}, 1);
}

} // namespace velmora
