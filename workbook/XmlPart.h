// One XML part of a zip file, read as a stream of elements.
#pragma once

#include "workbook/ZipFile.h"

#include <string>
#include <string_view>

namespace velmora {

/// An element's attributes, found by the name behind the prefix.
class XmlAttributes {
public:
    explicit XmlAttributes(const char** pairs) : pairs_(pairs) {}
    /// Empty where it is missing.
    std::string_view operator()(std::string_view name) const;
    /// A whole number from 0, or `otherwise`.
    int Number(std::string_view name, int otherwise) const;

private:
    const char** pairs_;
};

/// Takes the elements of a part; names come without their prefix.
class XmlReader {
public:
    virtual ~XmlReader() = default;
    virtual void Start(std::string_view name, const XmlAttributes& attributes) = 0;
    virtual void End(std::string_view /*name*/) {}
    virtual void Text(std::string_view /*text*/) {}

    bool stopped = false; ///< set to read no further
};

/// Raises WorkbookError for damaged XML, for XML that declares what could become endless texts, and for more depth,
/// longer tags, more names or more elements than a workbook's program writes.
void ReadXmlPart(const ZipFile& zip, const std::string& part, XmlReader& reader);

} // namespace velmora
