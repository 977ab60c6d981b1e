// The printers of the machine.
#pragma once

#include "base/Error.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace velmora {

/// The built-in printer, which writes a PDF to a path that it asks for.
inline constexpr const char* kPdfPrinter = "Velmora PDF";

inline constexpr int kPrinterErrorNumber = 482;     ///< the printer or its queue refuses
inline constexpr int kPrinterNotValidNumber = 5707; ///< there is no such printer

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
    bool listed = false;                                          ///< it has exactly this size
    std::optional<UnprintableMargins> unprintable = std::nullopt; ///< nullopt where it does not say
};

enum class Orientation : std::int16_t { Portrait = 1, Landscape = 2 };

/// A finished PDF, to be printed at its own size in the printer's best quality. Lengths as the paper goes through the
/// printer.
struct PrintJob {
    std::string title;
    std::filesystem::path pdf;
    double widthMm = 0;
    double heightMm = 0;
    /// How the sheet is read. The pages of the PDF are turned already: nothing may turn them again.
    Orientation orientation = Orientation::Portrait;
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
    /// Hands the job over; the file may go afterwards. Says why the job waits, such as "the printer is stopped"; empty
    /// where it does not, and where the system does not say. Raises PrinterError, and nothing is printed then.
    virtual std::string Print(const std::string& printer, const PrintJob& job) = 0;
};

} // namespace velmora
