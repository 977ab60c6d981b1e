// velmora-bench-window: the desktop program itself, linked with this file, which waits until its window is painted,
// does the job that VELMORA_BENCH_JOB names, prints what was measured on one line, and ends.

#include "bench/ui/Painted.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QMainWindow>

#include <cstdio>
#include <fstream>
#include <unistd.h>

namespace {

using namespace velmora;

constexpr int kSheets = 100;

/// The memory in use now, in megabytes.
double Megabytes() {
    std::size_t pages = 0, resident = 0;
    std::ifstream("/proc/self/statm") >> pages >> resident;
    return static_cast<double>(resident) * static_cast<double>(::sysconf(_SC_PAGESIZE)) / (1024 * 1024);
}

/// Milliseconds from the command to the first sheet on the screen; memory then and after a walk through the sheets.
void MeasurePreview(QWidget& window) {
    QElapsedTimer clock;
    bench::WhenPainted("velmora::SheetDisplay", [&clock] {
        const double first = static_cast<double>(clock.nsecsElapsed()) / 1e6;
        const double before = Megabytes();
        auto* next = QApplication::activeModalWidget()->findChild<QAction*>("cmdNext");
        for (int sheet = 0; sheet < kSheets; ++sheet) {
            next->trigger();
            bench::WaitUntilPainted("velmora::SheetDisplay");
        }
        std::printf("%.3f %.1f %.1f\n", first, before, Megabytes());
        bench::End();
    });
    clock.start();
    window.findChild<QAction*>("mnuPreview")->trigger();
}

void DoJob() {
    const QByteArray job = qgetenv("VELMORA_BENCH_JOB");
    QWidget* window = nullptr;
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (qobject_cast<QMainWindow*>(widget))
            window = widget;
    if (job == "moves")
        bench::MeasureMoves([next = window->findChild<QAction*>("mnuNextPage")](int) { next->trigger(); });
    else if (job == "keys")
        bench::MeasureKeys(*window->findChild<QWidget*>("TextA1(1)"));
    else if (job == "preview")
        MeasurePreview(*window);
    bench::End();
}

void WaitForWindow() {
    bench::WhenPainted("QMainWindow", DoJob);
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(WaitForWindow)
