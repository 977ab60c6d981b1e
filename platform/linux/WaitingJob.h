// Why a job that CUPS has taken does not print yet.
#pragma once

#include "platform/linux/CupsLibrary.h"

#include <string>

namespace velmora {

/// In words that go on from "the job waits: "; empty where it prints or is to, and where the server does not say.
std::string WhyJobWaits(http_t* connection, int job);

} // namespace velmora
