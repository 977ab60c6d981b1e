#include "document/TabFile.h"

#include "base/AtomicFile.h"
#include "base/Numbers.h"
#include "base/Text.h"
#include "settings/GlobalConfiguration.h"

#include <algorithm>
#include <cstring>

namespace velmora {
namespace {

/// Hands out the fields of a line, the missing ones empty.
class FieldCutter {
public:
    explicit FieldCutter(std::string_view line) : rest_(line) {}
    std::string_view Next() {
        const std::size_t comma = rest_.find(',');
        const std::string_view field = rest_.substr(0, comma);
        rest_.remove_prefix(comma == std::string_view::npos ? rest_.size() : comma + 1);
        return field;
    }

private:
    std::string_view rest_;
};

void CountLines(TabFile& file) {
    LineReader lines(file.text);
    for (std::string_view line; lines.Next(line);)
        ++file.lines;
}

void CheckIsText(std::string_view bytes) {
    const void* nul = bytes.empty() ? nullptr : std::memchr(bytes.data(), 0, bytes.size());
    if (!nul)
        return;
    const auto before = static_cast<std::size_t>(static_cast<const char*>(nul) - bytes.data());
    LineReader lines(bytes.substr(0, before + 1));
    int count = 0;
    for (std::string_view line; lines.Next(line);)
        ++count;
    throw TabFileError(count, "holds bytes that are no text");
}

/// Header line `number`, counted from 1, of a file whose first line announces a header.
std::string_view HeaderLine(LineReader& lines, int number) {
    std::string_view line;
    if (!lines.Next(line))
        RaiseHeaderEnds(number);
    return line;
}

TabFileHeader ParseHeader(LineReader& lines) {
    TabFileHeader header;
    FieldCutter properties(HeaderLine(lines, 2));
    header.printer = properties.Next();
    header.stationeryType = properties.Next();
    header.optType = properties.Next();
    header.noOfFields = properties.Next();
    FieldCutter margins(HeaderLine(lines, 3));
    header.marginLeft = margins.Next();
    header.marginTop = margins.Next();
    for (std::size_t field = 0; field < header.fonts.size(); ++field) {
        FieldCutter font(HeaderLine(lines, 4 + static_cast<int>(field)));
        for (std::string& value : header.fonts[field])
            value = font.Next();
    }
    return header;
}

/// The digits of the version that a header announces; empty where there is none.
std::string_view AnnouncedVersion(std::string_view text) {
    constexpr std::string_view word = "VERSION";
    if (!EqualsNoCase(text.substr(0, word.size()), word))
        return {};
    text.remove_prefix(word.size());
    if (text.starts_with(' '))
        text.remove_prefix(1);
    return text.substr(0, std::min(text.find_first_not_of("0123456789"), text.size()));
}

/// What of a font value goes into the settings: the name trimmed, flags and alignments only when they pass their test.
std::string StoredFontValue(const std::string& value, int key, int field) {
    const bool isName = key == 0;
    const bool isFlag = key >= 2 && key <= 4;
    const bool isAlignment = key >= kHorizontalAlignmentKey;
    if ((isFlag && !IsFlag(value)) || (isAlignment && !IsAlignmentCode(value)))
        return std::string(FontSetting(key, field).fallback);
    return isName ? std::string(Trim(value)) : value;
}

std::string ValidOr(const std::string& value, bool (*accepts)(std::string_view), std::string_view otherwise) {
    return accepts(value) ? value : std::string(otherwise);
}

/// A comma in a name would move all values behind it.
std::string WithoutCommas(std::string name) {
    std::replace(name.begin(), name.end(), ',', ' ');
    return name;
}

std::string FontLine(SettingsStore& store, int field) {
    using Test = bool (*)(std::string_view);
    static constexpr std::array<Test, kFontKeys> kTests = {IsAnyText, IsNumeric,       IsFlag,         IsFlag,
                                                           IsFlag,    IsAlignmentCode, IsAlignmentCode};
    static constexpr std::array<std::string_view, kFontKeys> kAbsent = {"", "", "", "", "", "0", "1"};
    std::string line;
    for (int key = 0; key < kFontKeys; ++key) {
        const auto index = static_cast<std::size_t>(key);
        const std::string value = Read(store, FontSetting(key, field).WithFallback(kAbsent[index]));
        line += key == 0 ? WithoutCommas(value) : "," + ValidOr(value, kTests[index], "");
    }
    return line;
}

} // namespace

void RaiseHeaderEnds(int number) {
    throw TabFileError(number, "the header ends here; it has " + std::to_string(kHeaderLines) + " lines");
}

bool LineReader::Next(std::string_view& line) {
    if (at_ >= text_.size())
        return false;
    if (nextFeed_ <= at_) {
        const std::size_t feed = text_.find('\n', at_);
        nextFeed_ = feed == std::string_view::npos ? text_.size() : feed;
    }
    const std::string_view upToFeed = text_.substr(at_, nextFeed_ - at_);
    const std::size_t length = std::min(upToFeed.find('\r'), upToFeed.size());
    line = upToFeed.substr(0, length);
    at_ += length;
    if (at_ < text_.size() && text_[at_] == '\r')
        ++at_;
    if (at_ == nextFeed_)
        ++at_;
    return true;
}

std::string_view TabFile::FirstLine() const {
    std::string_view line;
    LineReader(text).Next(line);
    return line;
}

TabFile ParseTabFile(std::string bytes) {
    bytes.resize(WithoutEndMarks(bytes).size());
    CheckIsText(bytes);
    TabFile file;
    DecodedText decoded = Decode(std::move(bytes));
    file.text = std::move(decoded.text);
    file.encoding = decoded.encoding;
    CountLines(file);
    LineReader lines(file.text);
    std::string_view first;
    if (!lines.Next(first) || !AnnouncesHeader(first))
        return file;
    file.header = ParseHeader(lines);
    std::string_view tab;
    file.tabsAt = lines.Next(tab) ? static_cast<std::size_t>(tab.data() - file.text.data()) : file.text.size();
    return file;
}

TabFile ReadTabFile(const std::filesystem::path& path) {
    return ParseTabFile(ReadFile(path));
}

std::string_view WithoutEndMarks(std::string_view bytes) {
    return bytes.substr(0, bytes.find_last_not_of('\x1A') + 1);
}

bool AnnouncesHeader(std::string_view firstText) {
    return !AnnouncedVersion(firstText).empty();
}

bool TestVersion7(std::string_view firstText) {
    return AnnouncedVersion(firstText) == "7";
}

bool TestVersion8(std::string_view firstText) {
    return AnnouncedVersion(firstText) == "8";
}

void LoadData(const TabFile& file, SettingsStore& store) {
    if (file.header)
        LoadData(*file.header, store);
}

void LoadData(const TabFileHeader& header, SettingsStore& store) {
    const SettingsBatch batch(store);
    Write(store, kPrinter, header.printer);
    Write(store, kStationeryType, ValidOr(header.stationeryType, IsStationeryType, kStationeryType.fallback));
    Write(store, kOptType, header.optType);
    Write(store, kNoOfFields, header.noOfFields);
    Write(store, kMarginLeft, header.marginLeft);
    Write(store, kMarginTop, header.marginTop);
    for (int field = 0; field < kFieldsPerTab; ++field)
        for (int key = 0; key < kFontKeys; ++key)
            Write(store, FontSetting(key, field),
                  StoredFontValue(header.fonts[static_cast<std::size_t>(field)][static_cast<std::size_t>(key)], key,
                                  field));
}

std::int32_t GetNumberOfLables(const TabFile& file, std::int32_t startingCount, TabDocument& document,
                               SettingsStore& store) {
    return GetNumberOfLables(file.lines, startingCount, document, store);
}

std::int32_t GetNumberOfLables(std::int32_t lines, std::int32_t startingCount, TabDocument& document,
                               SettingsStore& store) {
    const std::int16_t pages = PagesForTabs(lines + startingCount, document.setup.TabsPerPage);
    const std::int32_t count = Multiply16(pages, document.setup.TabsPerPage);
    document.NoOfPages = pages;
    Write(store, kNoOfPages, std::to_string(pages));
    return count;
}

void LoadRows(const TabFile& file, TabDocument& document, UserInterface& ui) {
    for (int field = 0; field < kFieldsPerTab; ++field)
        document.Field(field).ReDim(document.TabCount);
    const auto progress = ui.StartProgress("Loading data.  Please standby...", std::max(1, document.TabCount));
    LineReader lines(file.TabLines());
    std::string_view line;
    for (std::int32_t tab = 1; tab <= document.TabCount && lines.Next(line); ++tab) {
        FieldCutter fields(line);
        document.FieldA(tab) = fields.Next();
        document.FieldB(tab) = fields.Next();
        document.FieldC(tab) = fields.Next();
        progress->Advance(tab);
    }
}

std::string SaveData(SettingsStore& store) {
    const SettingsBatch batch(store);
    std::string text = std::string("Version 8").append(kLineEnd);
    const auto absentIsEmpty = [&](const SettingKey& key) { return Read(store, key.WithFallback("")); };
    text += WithoutCommas(absentIsEmpty(kPrinter)) + "," +
            ValidOr(absentIsEmpty(kStationeryType), IsStationeryType, "") + "," +
            ValidOr(absentIsEmpty(kOptType), IsOptType, "") + "," +
            ValidOr(absentIsEmpty(kNoOfFields), IsNoOfFields, "");
    text.append(kLineEnd).append(ValidOr(Read(store, kMarginLeft), IsNumeric, "0"));
    text.append(",").append(ValidOr(Read(store, kMarginTop), IsNumeric, "0")).append(kLineEnd);
    for (int field = 0; field < kFieldsPerTab; ++field)
        text.append(FontLine(store, field)).append(kLineEnd);
    return text;
}

void SaveRows(const TabDocument& document, UserInterface& ui, std::string& text) {
    const auto progress = ui.StartProgress("Saving file.  Please standby...", std::max(1, document.TabCount));
    for (std::int32_t tab = 1; tab <= document.TabCount; ++tab) {
        text += document.FieldA(tab);
        text += ',';
        text += document.FieldB(tab);
        text += ',';
        text += document.FieldC(tab);
        text += kLineEnd;
        progress->Advance(tab);
    }
}

std::string TabFileBytes(TabDocument& document, SettingsStore& store, UserInterface& ui, FileHeader header) {
    std::string text = header == FileHeader::Written ? SaveData(store) : "";
    SaveRows(document, ui, text);
    if (document.FileEncoding == Encoding::Utf8)
        return text;
    // Some Windows-1252 bytes would be read as UTF-8 the next time, so the way back is tried.
    if (auto bytes = Encode(text, document.FileEncoding); bytes && Decode(*bytes).text == text)
        return *std::move(bytes);
    document.FileEncoding = Encoding::Utf8;
    return text;
}

} // namespace velmora
