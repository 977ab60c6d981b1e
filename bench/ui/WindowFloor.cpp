// velmora-bench-window-floor: a bare window with as many plain boxes as a page of tabs has, and the same jobs.

#include "bench/ui/Painted.h"

#include <QApplication>
#include <QGridLayout>
#include <QLineEdit>
#include <QMainWindow>

#include <vector>

namespace {

using namespace velmora;

constexpr int kRows = 24;
constexpr int kColumns = 3;

void FillPage(const std::vector<QLineEdit*>& boxes, int page) {
    for (std::size_t i = 0; i < boxes.size(); ++i)
        boxes[i]->setText(QString("No.%1").arg(page * 100 + static_cast<int>(i)));
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QMainWindow window;
    auto* page = new QWidget;
    auto* grid = new QGridLayout(page);
    std::vector<QLineEdit*> boxes;
    for (int i = 0; i < kRows * kColumns; ++i) {
        boxes.push_back(new QLineEdit);
        grid->addWidget(boxes.back(), i / kColumns, i % kColumns);
    }
    window.setCentralWidget(page);
    FillPage(boxes, 0);
    window.show();
    bench::WhenPainted("QMainWindow", [&boxes] {
        if (qgetenv("VELMORA_BENCH_JOB") == "moves")
            bench::MeasureMoves([&boxes](int move) { FillPage(boxes, move + 1); });
        if (qgetenv("VELMORA_BENCH_JOB") == "keys")
            bench::MeasureKeys(*boxes.front());
        bench::End();
    });
    return QApplication::exec();
}
