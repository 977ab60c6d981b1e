// forms_test [SUITE [TEST ...]]: all suites, one, or some tests of one.
#include "tests/forms/FormsTest.h"

using namespace velmora;

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    const QStringList asked = QApplication::arguments().mid(1);
    if (!asked.empty() && !AllSuites().contains(asked[0])) {
        for (const auto& [name, run] : AllSuites())
            std::fprintf(stderr, "%s\n", qPrintable(name));
        return 2;
    }
    int failed = 0;
    for (const auto& [name, run] : AllSuites())
        if (asked.empty() || asked[0] == name)
            failed += run(asked.mid(1));
    return failed == 0 ? 0 : 1;
}
