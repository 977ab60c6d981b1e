#include "bench/ui/Painted.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QKeyEvent>
#include <QTimer>
#include <QWidget>

#include <algorithm>
#include <cstdio>
#include <unistd.h>
#include <utility>
#include <vector>

namespace velmora::bench {
namespace {

class PaintWatch : public QObject {
public:
    PaintWatch(const char* className, std::function<void()> done) : className_(className), done_(std::move(done)) {
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject* object, QEvent* event) override {
        if (event->type() != QEvent::Paint)
            return false;
        const bool isIt = object->inherits(className_) || (object->parent() && object->parent()->inherits(className_));
        if (!isIt)
            return false;
        qApp->removeEventFilter(this);
        QTimer::singleShot(0, this, [this] { // the painting itself is still to come
            QGuiApplication::sync();
            done_();
            deleteLater();
        });
        return false;
    }

private:
    const char* className_;
    std::function<void()> done_;
};

} // namespace

void WhenPainted(const char* className, std::function<void()> done) {
    new PaintWatch(className, std::move(done));
}

void WaitUntilPainted(const char* className) {
    bool painted = false;
    WhenPainted(className, [&painted] { painted = true; });
    while (!painted)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void MeasureMoves(const std::function<void(int)>& move) {
    constexpr int kMoves = 101;
    std::vector<double> times;
    for (int number = 0; number < kMoves; ++number) {
        QElapsedTimer clock;
        clock.start();
        move(number);
        WaitUntilPainted("QLineEdit");
        times.push_back(static_cast<double>(clock.nsecsElapsed()) / 1e6);
    }
    std::nth_element(times.begin(), times.begin() + kMoves / 2, times.end());
    std::printf("%.3f\n", times[kMoves / 2]);
}

void MeasureKeys(QWidget& box) {
    MeasureMoves([&box](int number) {
        const bool types = number % 2 == 0;
        QKeyEvent key(QEvent::KeyPress, types ? Qt::Key_A : Qt::Key_Backspace, Qt::NoModifier, types ? "a" : "\b");
        QApplication::sendEvent(&box, &key);
    });
}

void End() {
    std::fflush(stdout);
    ::_exit(0);
}

} // namespace velmora::bench
