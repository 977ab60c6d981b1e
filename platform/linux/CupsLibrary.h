// The library of CUPS, which dozens of others come with, loaded when the first printer is asked for; and its objects.
#pragma once

#include "base/LateLibrary.h"

#include <cups/cups.h>
#include <cups/pwg.h>

#include <chrono>
#include <memory>
#include <string>

namespace velmora {

const LateLibrary& CupsLibrary();

#define VELMORA_CUPS_CALL(function) VELMORA_LATE(CupsLibrary(), function)

struct CupsRelease {
    void operator()(http_t* connection) const { VELMORA_CUPS_CALL(httpClose)(connection); }
    void operator()(cups_dinfo_t* info) const { VELMORA_CUPS_CALL(cupsFreeDestInfo)(info); }
    void operator()(cups_dest_t* destination) const { VELMORA_CUPS_CALL(cupsFreeDests)(1, destination); }
    void operator()(ipp_t* message) const { VELMORA_CUPS_CALL(ippDelete)(message); }
};
using CupsConnection = std::unique_ptr<http_t, CupsRelease>;
using CupsDestination = std::unique_ptr<cups_dest_t, CupsRelease>;
using CupsDestinationInfo = std::unique_ptr<cups_dinfo_t, CupsRelease>;
using CupsMessage = std::unique_ptr<ipp_t, CupsRelease>;

using Moment = std::chrono::steady_clock::time_point;
/// Null where no server answers soon, and for a while after that.
CupsConnection ConnectToCups(Moment& silentUntil);

/// Where that gave null: whether there is a server all the same. The library's last resort, which nobody chose and
/// where nothing listens, is none.
bool HasCupsServer(const Moment& silentUntil);

/// An option of a destination, one that a person saved for it among them; empty: there is none.
std::string OptionOf(const cups_dest_t& destination, const char* name);

/// Of the values of an attribute, the one at `place`; empty without the attribute, and for a value that is no text,
/// such as the one that stands for none.
std::string TextOf(ipp_attribute_t* attribute, int place = 0);

/// The library counts in hundredths of a millimetre.
inline constexpr double kPwgUnitsPerMm = 100;
int PwgUnits(double millimetres);

/// Raises PrinterError with what the library says of the call that failed last.
[[noreturn]] void RaiseCupsError();

} // namespace velmora
