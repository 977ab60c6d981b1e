// velmora-bench-sheet-floor: a tab file and two fonts into the PDF of one sheet, as a program of its own.
//   velmora-bench-sheet-floor DOCUMENT PDF BOLD REGULAR

#include "bench/Floors.h"

int main(int argc, char** argv) {
    using namespace velmora::floors;
    if (argc != 5)
        return 2;
    Pdf(argv[2], Open(argv[1]), {argv[3], argv[4]});
}
