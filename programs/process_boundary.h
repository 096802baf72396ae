#pragma once

namespace lumenfold {

// What a program needs before it opens anything: standard descriptors that are closed lead nowhere, so that nothing
// else is opened in their place; a reader that goes away is no reason to die; a terminal that closes asks for the end
// as SIGTERM does, unless nohup has it ignored.
void guardProcess();

// Lets std::cout drop what its reader does not take, so that a full pipe never holds up the show.
void neverWaitForReaders();

} // namespace lumenfold
