// A printer and how its driver is set for a job.
#pragma once

#include "base/windows/Api.h"
#include "platform/PrintSystem.h"

#include <winspool.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

namespace velmora {

/// Open, for one call.
class OpenedPrinter {
public:
    explicit OpenedPrinter(const std::string& name);
    ~OpenedPrinter();
    OpenedPrinter(const OpenedPrinter&) = delete;
    OpenedPrinter& operator=(const OpenedPrinter&) = delete;

    /// All that follows is empty for a printer that is not there.
    bool IsThere() const { return handle_ != nullptr; }
    HANDLE Handle() const { return handle_; }
    const std::wstring& Name() const { return name_; }
    /// 0 or less where the driver does not say.
    int Capability(WORD what) const { return Ask(what, nullptr); }
    /// A list that the driver gives: numbers, sizes or texts of a fixed length.
    template <typename Item> std::vector<Item> Capabilities(WORD what) const {
        std::vector<Item> items(static_cast<std::size_t>(std::max(0, Ask(what, nullptr))));
        if (!items.empty())
            Ask(what, reinterpret_cast<wchar_t*>(items.data()));
        return items;
    }

private:
    int Ask(WORD what, wchar_t* list) const;

    std::wstring name_;
    HANDLE handle_ = nullptr;
};

/// Goes with this object.
struct DeleteContext {
    using pointer = HDC;
    void operator()(HDC context) const { ::DeleteDC(context); }
};
using DeviceContext = std::unique_ptr<HDC, DeleteContext>;

/// What the driver is told, in a structure whose length is its own.
class PrinterSettings {
public:
    /// As the printer is set up, for upright paper of this size in millimetres.
    PrinterSettings(const OpenedPrinter& printer, double widthMm, double heightMm);

    /// Whether the driver lists the paper to 0.3 mm, for it counts in tenths of a millimetre and rounds; also where it
    /// lists none.
    bool IsPaperListed() const { return isPaperListed_; }
    /// What makes a job one of tabs, and what was chosen for it.
    void PrepareFor(const JobOptions& options);
    /// To draw on, or to ask. Null where the driver refuses.
    DeviceContext Context() const;

private:
    DEVMODEW* Mode() { return bytes_.empty() ? nullptr : reinterpret_cast<DEVMODEW*>(bytes_.data()); }
    void TakePaper(double widthMm, double heightMm);

    const OpenedPrinter& printer_;
    std::vector<char> bytes_; ///< empty where the driver gives no settings
    bool isPaperListed_ = false;
};

} // namespace velmora
