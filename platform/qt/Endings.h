// A program that is ended by others has a moment left: by a signal, as at a logout, or when its display is lost.
#pragma once

#include <QObject>

#include <functional>

namespace velmora {

/// While it lives, SIGTERM, SIGHUP and SIGINT (unless ignored) and the loss of the display, or on Windows the end of
/// the session, first call `leave`, once, and then end the program. Only one can live at a time. `leave` is called
/// between two events, so also within a dialog, or at exit; it must not wait for a person.
class Endings : public QObject {
public:
    explicit Endings(std::function<void()> leave);
    ~Endings() override;
};

} // namespace velmora
