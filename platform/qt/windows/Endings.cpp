#include "platform/qt/Endings.h"

#include "base/Interruption.h"
#include "base/windows/Api.h"

#include <QAbstractNativeEventFilter>
#include <QCoreApplication>

#include <cstdlib>
#include <exception>
#include <utility>

namespace velmora {
namespace {

/// The system tells each window that the person logs out or shuts down. The toolkit would close the windows then, which
/// ask whether to save: the session would wait for an answer, and in the end lose it.
class LogoutFilter : public QObject, public QAbstractNativeEventFilter {
public:
    LogoutFilter(std::function<void()> leave, QObject* parent) : QObject(parent), leave_(std::move(leave)) {}

    bool nativeEventFilter(const QByteArray&, void* message, qintptr*) override {
        const auto& told = *static_cast<const MSG*>(message);
        if (told.message == WM_ENDSESSION && told.wParam != 0)
            End();
        return false;
    }

private:
    [[noreturn]] void End() noexcept {
        try {
            leave_();
        } catch (const std::exception&) {} // nobody is left to read it
        RemoveTemporaryFiles();
        std::_Exit(0);
    }

    std::function<void()> leave_;
};

} // namespace

Endings::Endings(std::function<void()> leave) {
    QCoreApplication::instance()->installNativeEventFilter(new LogoutFilter(std::move(leave), this));
}

Endings::~Endings() = default;

} // namespace velmora
