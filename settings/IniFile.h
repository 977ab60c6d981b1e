// An INI file that several running programs may read and write at once: each change is made to the newest
// text and replaces the file in one step, so that none of them loses another's keys.
#pragma once

#include "base/AtomicFile.h"
#include "base/Encoding.h"
#include "settings/IniText.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace velmora {

/// Far more than settings take. Every look at a key goes through the lines, so a larger file would hold the program up.
inline constexpr std::int64_t kMostIniBytes = 256 << 10;

/// Raises FileAccessError, also for a missing file, and Error for one of more than kMostIniBytes.
std::string ReadIniFile(const std::filesystem::path& path);

/// A file on disk, or, with an empty path, a text in memory only. All texts are UTF-8; what is not is taken
/// as Windows-1252. The file keeps the encoding and the mark it was read with while every text fits it, and
/// becomes UTF-8 otherwise. A change that alters no byte leaves the file alone. A file that is missing, too
/// large or can't be read reads as empty; one that is not read is never written over. Changing operations raise
/// FileAccessError, or Error for a file that is too large or in an encoding that is not supported, and then the file is
/// as it was.
class IniFile {
public:
    IniFile() = default;
    explicit IniFile(std::filesystem::path path) : path_(std::move(path)) {}

    const std::filesystem::path& Path() const { return path_; }
    /// Turns to another file; changes that are still collected are written to the old one first.
    void Open(const std::filesystem::path& path);

    /// Turns to a text in memory that starts as a copy of the file's, which is only read.
    void CopyToMemory(const std::filesystem::path& path);

    /// The newest text; in a batch with its changes. The reference holds until the next call of any
    /// operation.
    const IniText& Text();

    /// Sets the key; nullopt removes it.
    void Write(std::string_view section, std::string_view key, std::optional<std::string_view> value);
    /// Gives whether a byte changed. It may be called several times: on the text as known, and on the newest.
    using Edit = std::function<bool(IniText& text)>;
    /// For a change that depends on what stands in the file.
    void Write(Edit edit);
    /// For a value that is known without the file: where it can't be written there is no effect, and no error is
    /// raised.
    void WriteDefault(std::string_view section, std::string_view key, std::string_view value);

    /// From here on changes are collected, until the outermost EndBatch. Gives a mark for AbandonBatch.
    std::size_t BeginBatch();
    /// Ends a batch; the outermost one writes the collected changes in their order, in one replacement. When
    /// that fails they are dropped, and the error tells so.
    void EndBatch();
    /// Ends a batch and drops the changes collected since its mark. Writes nothing.
    void AbandonBatch(std::size_t mark);
    /// Writes what is collected so far; the batch goes on.
    void Flush();
    bool InBatch() const { return depth_ > 0; }

private:
    struct Change {
        std::string section;
        std::string key;
        std::optional<std::string> value;
        bool isDefault = false;
        Edit edit = {}; ///< where it is there, in place of all the others
    };

    static bool Apply(IniText& text, const Change& change);
    void Make(Change change);
    void Collect(Change change);
    void Submit(const std::vector<Change>& changes);
    void Rebuild();
    void Refresh();
    void Load();
    void Commit(const std::vector<Change>& changes);
    std::string Encoded(const std::string& text) const;

    std::filesystem::path path_;
    IniText stored_; ///< as in the file
    IniText shown_;  ///< stored_ with the collected changes, while there are any
    Encoding encoding_ = Encoding::Utf8;
    bool mark_ = false;
    bool foreign_ = false;             ///< UTF-16, which a change would damage
    std::optional<FileIdentity> read_; ///< of the text in stored_; nullopt while it must be read again
    std::vector<Change> collected_;
    int depth_ = 0;
    std::optional<FileIdentity> stuck_; ///< of the file when waiting for another program was given up
};

} // namespace velmora
