#include "programs/command_line.h"

#include <CLI/CLI.hpp>

#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <exception>
#include <memory>
#include <utility>

namespace lumenfold {

namespace {

std::string shortNumber(double number) {
    char text[32];
    std::snprintf(text, sizeof text, "%.10g", number);
    return text;
}

// The whole text as a number; false: it is none.
bool readNumber(const std::string& text, double& number) {
    std::size_t used = 0;
    try {
        number = std::stod(text, &used);
    } catch (const std::logic_error&) {
        return false;
    }
    return used == text.size() && std::isfinite(number);
}

CLI::Validator numbers(const std::string& kind, double least, double most, bool whole) {
    const auto fault = [=](const std::string& text) -> std::string {
        double number = 0.0;
        if (readNumber(text, number) && number >= least && number <= most && (!whole || number == std::floor(number)))
            return {};
        return "\"" + text + "\" is not a " + kind + " from " + shortNumber(least) + " to " + shortNumber(most);
    };
    // What CLI11 reads next is plain decimal: of itself it takes 010 for eight.
    const auto canonical = [=](std::string& text) -> std::string {
        std::string message = fault(text);
        double number = 0.0;
        if (message.empty() && whole && readNumber(text, number))
            text = std::to_string(static_cast<long long>(number));
        return message;
    };
    return {canonical, ""};
}

// Option and argument alone in the first column, the meaning broken into lines in the second.
class HelpLayout : public CLI::Formatter {
  public:
    static constexpr std::size_t meaningColumn = 33;
    static constexpr std::size_t lineLength = 100;

    HelpLayout() { column_width(meaningColumn); }

    std::string make_option_opts(const CLI::Option* option) const override {
        return option->get_option_text().empty() ? "" : " " + option->get_option_text();
    }

    std::string make_option_desc(const CLI::Option* option) const override {
        std::string lines;
        std::size_t used = 0;
        for (const std::string& word : CLI::detail::split(option->get_description(), ' ')) {
            const bool fits = used + 1 + word.size() <= lineLength - meaningColumn;
            lines += lines.empty() ? "" : fits ? " " : "\n";
            used = fits ? used + 1 + word.size() : word.size();
            lines += word;
        }
        return lines;
    }
};

std::string wordsFor(const CLI::App& program, const CLI::ParseError& error) {
    std::string text = error.what();
    if (dynamic_cast<const CLI::ArgumentMismatch*>(&error) != nullptr)
        return text.substr(0, text.find(':')) + ": needs one value";
    if (const std::size_t at = text.find(" excludes "); at != std::string::npos)
        return text.substr(0, at) + ": not together with " + text.substr(at + std::string(" excludes ").size());
    const std::vector<std::string> surplus = program.remaining();
    if (dynamic_cast<const CLI::ExtrasError*>(&error) == nullptr || surplus.empty())
        return text;
    const std::string& word = surplus.front();
    return word + (word.front() == '-' ? ": no such option" : ": one word too many");
}

} // namespace

std::string parseCommandLine(CLI::App& program, const std::vector<std::string>& words) {
    program.formatter(std::make_shared<HelpLayout>());
    program.set_help_flag("-h,--help", "print this");
    program.set_version_flag("--version", program.get_name() + " " LUMENFOLD_VERSION, "print the version");
    try {
        program.parse(std::vector<std::string>(words.rbegin(), words.rend())); // wants the last word first
    } catch (const CLI::CallForHelp&) {
        return program.help();
    } catch (const CLI::CallForVersion& version) {
        return std::string(version.what()) + "\n";
    } catch (const CLI::ParseError& error) {
        throw UsageError(wordsFor(program, error));
    }
    return {};
}

CLI::Validator numberFrom(double least, double most) {
    return numbers("number", least, most, false);
}

CLI::Validator wholeNumberFrom(double least, double most) {
    return numbers("whole number", least, most, true);
}

int runTool(const std::string& name, const std::function<int()>& body) {
    constexpr int failed = 1;
    constexpr int wrongUsage = 2;
    try {
        const int status = body();
        if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0)
            throw std::runtime_error(std::string("standard output: ") + std::strerror(errno));
        return status;
    } catch (const UsageError& error) {
        std::fprintf(stderr, "%s: %s (--help lists the options)\n", name.c_str(), error.what());
        return wrongUsage;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s: %s\n", name.c_str(), error.what());
        return failed;
    }
}

} // namespace lumenfold
