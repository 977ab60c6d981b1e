#include "platform/linux/WaitingJob.h"

#include <memory>

namespace velmora {
namespace {

struct Free {
    void operator()(ipp_t* message) const { ippDelete(message); }
};
using Message = std::unique_ptr<ipp_t, Free>;

/// Null where the server does not answer.
Message AttributesOf(http_t* connection, ipp_op_t operation, const char* uriName, const std::string& uri) {
    ipp_t* request = ippNewRequest(operation);
    ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_URI, uriName, nullptr, uri.c_str());
    ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name", nullptr, cupsUser());
    return Message(cupsDoRequest(connection, request, "/")); // which deletes the request
}

/// 0 where it is not told.
int StateOf(ipp_t* answer, const char* attribute) {
    ipp_attribute_t* found = answer ? ippFindAttribute(answer, attribute, IPP_TAG_ENUM) : nullptr;
    return found ? ippGetInteger(found, 0) : 0;
}

std::string TextOf(ipp_t* answer, const char* attribute) {
    ipp_attribute_t* found = answer ? ippFindAttribute(answer, attribute, IPP_TAG_ZERO) : nullptr;
    const char* text = found ? ippGetString(found, 0, nullptr) : nullptr;
    return text ? text : "";
}

std::string HeldText(ipp_t* job) {
    const std::string until = TextOf(job, "job-hold-until");
    return "it is held " + (until.empty() || until == "indefinite" ? "until it is released" : "until: " + until);
}

/// Empty for a printer that works.
std::string StoppedText(http_t* connection, ipp_t* job) {
    const Message printer =
        AttributesOf(connection, IPP_OP_GET_PRINTER_ATTRIBUTES, "printer-uri", TextOf(job, "job-printer-uri"));
    if (StateOf(printer.get(), "printer-state") != IPP_PSTATE_STOPPED)
        return "";
    const std::string message = TextOf(printer.get(), "printer-state-message");
    return "the printer is stopped" + (message.empty() ? "" : ": " + message);
}

} // namespace

std::string WhyJobWaits(http_t* connection, int job) {
    const Message answer =
        AttributesOf(connection, IPP_OP_GET_JOB_ATTRIBUTES, "job-uri", "ipp://localhost/jobs/" + std::to_string(job));
    switch (StateOf(answer.get(), "job-state")) {
    case IPP_JSTATE_HELD: return HeldText(answer.get());
    case IPP_JSTATE_PENDING:
    case IPP_JSTATE_STOPPED: return StoppedText(connection, answer.get());
    default: return "";
    }
}

} // namespace velmora
