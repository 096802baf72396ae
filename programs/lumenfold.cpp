// The demo: the driver in a window with sound. Reads no command line.

#include "driver/run.h"

int main() {
    return lumenfold::enterProgram();
}
