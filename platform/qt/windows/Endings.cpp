#include "platform/qt/Endings.h"

#include "base/windows/Api.h"

#include <QAbstractNativeEventFilter>
#include <QCoreApplication>

#include <exception>
#include <utility>

namespace velmora {
namespace {

/// The system tells each window that the person logs out or shuts down, and ends the program when that was heard.
class LogoutFilter : public QObject, public QAbstractNativeEventFilter {
public:
    LogoutFilter(std::function<void()> leave, QObject* parent) : QObject(parent), leave_(std::move(leave)) {}

    bool nativeEventFilter(const QByteArray&, void* message, qintptr*) override {
        const auto& told = *static_cast<const MSG*>(message);
        if (told.message == WM_ENDSESSION && told.wParam != 0)
            LeaveOnce();
        return false;
    }

private:
    void LeaveOnce() noexcept {
        const std::function<void()> leave = std::exchange(leave_, {});
        try {
            if (leave)
                leave();
        } catch (const std::exception&) {} // nobody is left to read it
    }

    std::function<void()> leave_;
};

} // namespace

Endings::Endings(std::function<void()> leave) {
    QCoreApplication::instance()->installNativeEventFilter(new LogoutFilter(std::move(leave), this));
}

Endings::~Endings() = default;

} // namespace velmora
