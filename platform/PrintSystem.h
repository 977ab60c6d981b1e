// The printers of the machine.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace velmora {

/// The built-in printer, which writes a PDF to a path that it asks for.
inline constexpr const char* kPdfPrinter = "Velmora PDF";

class PrintSystem {
public:
    virtual ~PrintSystem() = default;
    /// Device names of the installed printers.
    virtual std::vector<std::string> Printers() const = 0;
    /// Device name of the system's default printer; nothing on a machine without one.
    virtual std::optional<std::string> DefaultPrinter() const = 0;
};

} // namespace velmora
