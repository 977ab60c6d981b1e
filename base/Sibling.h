// The hidden twin in which a file's new content is written before it takes the file's place.
#pragma once

#include "base/Replacement.h"
#include "base/ScratchNames.h"

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace velmora {

class SystemFile; // each system's own

/// Locked or held open while its program runs, so that what was left by one that has ended is known. A twin on which
/// nobody depends is named ".velmora-SUM-PROCESS-NUMBER.tmp", where SUM stands for the target's path; one that holds
/// the only whole content ends in ".whole" and is removed by nobody but Remove.
class Sibling {
public:
    explicit Sibling(std::filesystem::path target);
    ~Sibling();
    Sibling(const Sibling&) = delete;
    Sibling& operator=(const Sibling&) = delete;

    /// In this folder, where it first removes what ended programs left; readable by its owner alone, or by all to whom
    /// the folder gives new files. These are false on an error, which the system keeps.
    bool Create(const std::filesystem::path& folder, Readers readers);
    bool TakePlaceOfTarget();
    /// From now on it stays, whatever happens to the program.
    bool KeepAsWhole();
    /// The file stays and is nobody's from now on; gives its path.
    std::filesystem::path Leave();

    const SystemFile& File() const { return *file_; }
    const std::filesystem::path& Path() const { return name_.Path(); }
    /// No effect when it is gone; what the system says of an error before stays.
    void Remove();
    /// What earlier interrupted saves of this target left, which a finished one makes worthless.
    void RemoveOlderCopies();

private:
    bool CreateOne(const std::filesystem::path& folder, Readers readers);

    std::filesystem::path target_;
    ScratchName name_;
    std::unique_ptr<SystemFile> file_;
    std::vector<std::filesystem::path> olderCopies_;
};

/// Begins the names of this target's twins.
std::string SiblingStart(const std::filesystem::path& target);
/// The twins of this target in the folder that hold its whole content and whose programs have ended.
std::vector<std::filesystem::path> WholeCopies(const std::filesystem::path& target,
                                               const std::filesystem::path& folder);

} // namespace velmora
