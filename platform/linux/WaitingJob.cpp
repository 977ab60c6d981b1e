#include "platform/linux/WaitingJob.h"

namespace velmora {
namespace {

/// Null where the server does not answer.
CupsMessage AttributesOf(http_t* connection, ipp_op_t operation, const char* uriName, const std::string& uri) {
    ipp_t* request = VELMORA_CUPS_CALL(ippNewRequest)(operation);
    VELMORA_CUPS_CALL(ippAddString)(request, IPP_TAG_OPERATION, IPP_TAG_URI, uriName, nullptr, uri.c_str());
    VELMORA_CUPS_CALL(ippAddString)
    (request, IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name", nullptr, VELMORA_CUPS_CALL(cupsUser)());
    return CupsMessage(VELMORA_CUPS_CALL(cupsDoRequest)(connection, request, "/")); // which deletes the request
}

/// 0 where it is not told.
int StateOf(ipp_t* answer, const char* attribute) {
    ipp_attribute_t* found = answer ? VELMORA_CUPS_CALL(ippFindAttribute)(answer, attribute, IPP_TAG_ENUM) : nullptr;
    return found ? VELMORA_CUPS_CALL(ippGetInteger)(found, 0) : 0;
}

std::string TextOf(ipp_t* answer, const char* attribute) {
    return answer ? velmora::TextOf(VELMORA_CUPS_CALL(ippFindAttribute)(answer, attribute, IPP_TAG_ZERO)) : "";
}

std::string HeldText(ipp_t* job) {
    const std::string until = TextOf(job, "job-hold-until");
    return "it is held " + (until.empty() || until == "indefinite" ? "until it is released" : "until: " + until);
}

/// Empty for a printer that works.
std::string StoppedText(http_t* connection, ipp_t* job) {
    const CupsMessage printer =
        AttributesOf(connection, IPP_OP_GET_PRINTER_ATTRIBUTES, "printer-uri", TextOf(job, "job-printer-uri"));
    if (StateOf(printer.get(), "printer-state") != IPP_PSTATE_STOPPED)
        return "";
    const std::string message = TextOf(printer.get(), "printer-state-message");
    return "the printer is stopped" + (message.empty() ? "" : ": " + message);
}

} // namespace

std::string WhyJobWaits(http_t* connection, int job) {
    const CupsMessage answer =
        AttributesOf(connection, IPP_OP_GET_JOB_ATTRIBUTES, "job-uri", "ipp://localhost/jobs/" + std::to_string(job));
    switch (StateOf(answer.get(), "job-state")) {
    case IPP_JSTATE_HELD: return HeldText(answer.get());
    case IPP_JSTATE_PENDING:
    case IPP_JSTATE_STOPPED: return StoppedText(connection, answer.get());
    default: return "";
    }
}

} // namespace velmora
