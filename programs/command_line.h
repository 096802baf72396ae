#pragma once

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace CLI {
class App;
class Validator;
} // namespace CLI

// What the command lines of all tools have in common. CLI11 reads them.

namespace lumenfold {

// A command line that cannot be followed; the message names the option.
struct UsageError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// Reads the words after the program's name and gives the program --help (-h) and --version. Returns the text that
// either of them asks for, or an empty one. Throws UsageError, also for a word that begins with a dash and is no
// option.
std::string parseCommandLine(CLI::App& program, const std::vector<std::string>& words);

// Only numbers that are written in full ("3x", "nan" and an empty word are not) and lie between least and most.
CLI::Validator numberFrom(double least, double most);

// The same for whole numbers, decimal or hexadecimal (0x19).
CLI::Validator wholeNumberFrom(double least, double most);

// The body of a tool's main: what it throws is printed under the tool's name. Returns the exit status: the body's, 2
// for a UsageError, 1 for any other error, such as a standard output that did not take everything.
int runTool(const std::string& name, const std::function<int()>& body);

} // namespace lumenfold
