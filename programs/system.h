#pragma once

#include <cstdio>
#include <string>

// What the film tool asks of the operating system, beside the encoder's process (pipe_process.h).

namespace lumenfold::film {

// Readers and player comment on standard output. From now on that goes nowhere, and the film's own lines to the stream
// that is returned. Throws std::runtime_error.
std::FILE* separateOutput();

// Ctrl-C, SIGTERM and SIGHUP are noted instead of ending the program, unless they were ignored already; a reader that
// goes away (SIGPIPE) is a failed write.
void catchInterrupts();
bool interrupted();

// Columns of the terminal that standard error goes to; 0: it is no terminal.
int terminalColumns();

// Whether a file of that name can be written, or made in its folder.
bool writable(const std::string& path);

// Whether a program of that name would be found and started.
bool programExists(const std::string& name);

// For names that no other process uses.
long processNumber();

} // namespace lumenfold::film
