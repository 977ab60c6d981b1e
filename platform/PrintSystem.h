// The printers of the machine.
#pragma once

#include "base/Error.h"
#include "platform/Credentials.h"
#include "platform/PrintSurface.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace velmora {

/// The built-in printer, which writes a PDF to a path that it asks for.
inline constexpr const char* kPdfPrinter = "Velmora PDF";

inline constexpr int kPrinterErrorNumber = 482;     ///< the printer or its queue refuses
inline constexpr int kPrinterNotValidNumber = 5707; ///< there is no such printer

inline constexpr const char* kServerSilent = "The print server does not answer.";

/// A refusal by the printers: one of the two numbers above, or 0 with the system's own text.
class PrinterError : public Error {
public:
    using Error::Error;
};

/// What a printer cannot reach at each edge of the paper, in millimetres.
struct UnprintableMargins {
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;
};

/// What a printer says of one size of paper.
struct PaperSupport {
    bool listed = false; ///< it has this size to half a point, or does not say what it has
    std::optional<UnprintableMargins> unprintable = std::nullopt; ///< nullopt where it does not say
};

/// A tray or a kind of paper.
struct PaperSource {
    std::string name;  ///< the printer's own, as a job names it
    std::string label; ///< for a person
    bool operator==(const PaperSource&) const = default;
};

/// What a person may choose from; empty where the printer lists none.
struct PaperSources {
    std::vector<PaperSource> trays;
    std::vector<PaperSource> kinds;
};

inline constexpr int kMostCopies = 999;

/// What a person chose for one job.
struct JobOptions {
    int copies = 1;        ///< to kMostCopies
    std::string tray = {}; ///< PaperSource::name, like the kind; empty: as the queue is set up
    std::string kind = {};
};

enum class Readiness {
    Ready,
    Waiting,  ///< it takes the job, and prints it once somebody has seen to it
    Refusing, ///< it takes no jobs
    Silent    ///< its server does not answer
};

struct PrinterState {
    Readiness readiness = Readiness::Ready;
    std::string words = {}; ///< the printer's own, in one line; may be empty
};

enum class Orientation : std::int16_t { Portrait = 1, Landscape = 2 };

/// To be printed at its own size in the printer's best quality, on one side, one page on a sheet and without a banner,
/// whatever the queue adds by itself. Lengths as the paper goes through the printer.
struct PrintJob {
    std::string title;
    std::filesystem::path pdf; ///< finished; empty for a job that is drawn
    double widthMm = 0;
    double heightMm = 0;
    /// How the sheet is read. Its pages are turned already: nothing may turn them again.
    Orientation orientation = Orientation::Portrait;
    JobOptions options = {};
    AskCredentials askCredentials = {};
};

class PrintSystem {
public:
    virtual ~PrintSystem() = default;
    /// Device names of the installed printers.
    virtual std::vector<std::string> Printers() const = 0;
    /// Device name of the system's default printer; nullopt on a machine without one.
    virtual std::optional<std::string> DefaultPrinter() const = 0;
    /// What `printer` says of paper of this size, in millimetres; not `listed` for an unknown printer.
    virtual PaperSupport PaperOf(const std::string& printer, double widthMm, double heightMm) const = 0;
    /// Nothing to choose from for an unknown printer.
    virtual PaperSources SourcesOf(const std::string& /*printer*/) const { return {}; }
    /// Ready, too, for a printer that says nothing of itself.
    virtual PrinterState StateOf(const std::string& /*printer*/) const { return {}; }
    /// A job to be drawn, where the system takes no PDF; null where it does. Raises PrinterError.
    virtual std::unique_ptr<PrintSurface> StartJob(const std::string& /*printer*/, const PrintJob& /*job*/) {
        return nullptr;
    }
    /// Hands a PDF over; the file may go afterwards. Says why the job waits, such as "the printer is stopped"; empty
    /// where it does not, and where the system does not say. Nullopt, and no job, when the person gave no password.
    /// Raises PrinterError, and nothing is printed then.
    virtual std::optional<std::string> Print(const std::string& printer, const PrintJob& job) = 0;
};

} // namespace velmora
