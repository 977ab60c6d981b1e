// The tab document: whole pages of tabs, each with up to three texts, as every part of the program shares it.
#pragma once

#include "base/AtomicFile.h"
#include "base/Encoding.h"
#include "document/DocumentSetup.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// The texts of one field of all tabs, with tab numbers from 1. An index outside 1 to Count raises SubscriptError.
class FieldTexts {
public:
    std::int32_t Count() const { return static_cast<std::int32_t>(texts_.size()); }
    std::string& operator()(std::int32_t tab) { return texts_[Index(tab)]; }
    const std::string& operator()(std::int32_t tab) const { return texts_[Index(tab)]; }

    /// All texts empty.
    void ReDim(std::int32_t count) { texts_.assign(static_cast<std::size_t>(count), {}); }
    /// Keeps what fits; new texts are empty.
    void Resize(std::int32_t count) { texts_.resize(static_cast<std::size_t>(count)); }

    bool operator==(const FieldTexts&) const = default;

private:
    std::size_t Index(std::int32_t tab) const;

    std::vector<std::string> texts_;
};

/// One text of the document.
struct TabBox {
    std::int32_t tab = 0; ///< tab number from 1
    int field = 0;        ///< 0 to 2
    bool operator==(const TabBox&) const = default;
};

/// Invariants, kept by ApplyTabType and the page operations: the three arrays have `TabCount` texts, and `TabCount` is
/// `NoOfPages` x `TabsPerPage`. Page p holds tabs (p - 1) x `TabsPerPage` + 1 to p x `TabsPerPage`.
struct TabDocument {
    FieldTexts FieldA;
    FieldTexts FieldB;
    FieldTexts FieldC;
    std::int32_t TabCount = 0;

    std::int16_t NoOfPages = 0;
    std::int16_t CurrentPage = 0; ///< from 1; 0 before the first page is made
    std::int16_t CurrentTab = 0;  ///< tab number last focused in the grid editor, 0 when none

    DocumentSetup setup;

    std::filesystem::path DocFileName; ///< empty: untitled
    Encoding FileEncoding = Encoding::Utf8;
    std::optional<FileStamp> Stamp; ///< of the file as it was read or written last
    bool FileError = false;         ///< the last file operation failed
    bool DocChanged = false;        ///< unsaved changes
    bool Foreign = false;           ///< the file is another program's and may hold more than a save writes
    std::string ForeignFindings;    ///< what a save would make of it, as far as it was read; empty: not known

    /// The array of field 0, 1 or 2.
    FieldTexts& Field(int field) { return field == 0 ? FieldA : field == 1 ? FieldB : FieldC; }
    const FieldTexts& Field(int field) const { return field == 0 ? FieldA : field == 1 ? FieldB : FieldC; }
};

/// Makes the document whole pages of its tab type. Raises OverflowError, before any change, when the pages hold more
/// than kMostTabs. Deliberate: with `CurrentTab` at 0 or 1 a change of size empties the document.
void NormalisePages(TabDocument& document);
/// Whether NormalisePages would empty the document, made one of another tab type (0 to 5).
bool EmptiesDocument(const TabDocument& document, int optType);

/// A tab is empty when its texts are, or hold nothing but blanks. `texts`: of the fields in use.
bool IsEmptyTab(std::span<const std::string_view> texts);
bool IsEmptyTab(const TabDocument& document, std::int32_t tab);

/// Number of commas plus one.
int CountFields(std::string_view line);
/// Appends commas until the line has at least `fields` fields; returns the final count.
int PadFields(std::string& line, int fields);
/// source(first .. last) to target(targetFirst ..); no effect when first > last. Raises SubscriptError.
void CopyTabRange(const FieldTexts& source, std::int32_t first, std::int32_t last, FieldTexts& target,
                  std::int32_t targetFirst);

/// tabs / tabsPerPage + 0.49, rounded half to even: a part page counts as a page. Raises OverflowError.
std::int16_t PagesForTabs(std::int32_t tabs, std::int16_t tabsPerPage);

} // namespace velmora
