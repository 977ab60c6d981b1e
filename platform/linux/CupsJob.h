// A print job on its way to CUPS: with what it says of itself, and whole or not at all.
#pragma once

#include "platform/PrintSystem.h"
#include "platform/linux/CupsLibrary.h"

#include <filesystem>
#include <string>

namespace velmora {

class CupsOptions {
public:
    CupsOptions() = default;
    ~CupsOptions();
    CupsOptions(const CupsOptions&) = delete;
    CupsOptions& operator=(const CupsOptions&) = delete;

    void Add(const char* name, const std::string& value);
    int Count() const { return count_; }
    cups_option_t* All() const { return all_; }

private:
    cups_option_t* all_ = nullptr;
    int count_ = 0;
};

/// Adds what a person saved for the destination, and over it what makes this job what it is. `medium` is the
/// printer's name for the paper.
void AddJobOptions(CupsOptions& options, const cups_dest_t& destination, const PrintJob& job,
                   const std::string& medium);

/// A job that is taken back unless its document was sent. Raises PrinterError.
class SpooledJob {
public:
    SpooledJob(http_t* connection, cups_dest_t* destination, cups_dinfo_t* info, const std::string& title,
               const CupsOptions& options);
    ~SpooledJob();
    SpooledJob(const SpooledJob&) = delete;
    SpooledJob& operator=(const SpooledJob&) = delete;

    int Id() const { return id_; }
    /// Raises FileAccessError too.
    void Send(const std::filesystem::path& pdf);

private:
    http_t* connection_;
    cups_dest_t* destination_;
    cups_dinfo_t* info_;
    int id_ = 0;
    bool sent_ = false;
};

} // namespace velmora
