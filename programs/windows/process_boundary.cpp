#include "programs/process_boundary.h"

#include <iostream>

namespace lumenfold {

// Descriptors that are closed stay so: the C runtime gives their places to nobody else, and no signal ends a writer.
void guardProcess() {}

// A program in a window has no reader.
void neverWaitForReaders() {
    std::cout.setstate(std::ios::failbit);
}

} // namespace lumenfold
