// velmora-batch: the command-line twin of Velmora, for scripts.
#include "batch/Run.h"

int main(int argc, char** argv) {
    return velmora::RunBatch({argv + 1, argv + argc});
}
