#include "Options.h"

#include <algorithm>
#include <cstdlib>

namespace kor::veltrano::lumview {

namespace {

const char* const help =
    "Usage: lumview_interpreter [options] -f FILE\n"
    "Runs a program for the robot.\n"
    "\n"
    "  -f FILE                                  the program\n"
    "  --global-variable-output-interval MS     tell changed variables every MS milliseconds\n"
    "                                           (default: each change at once)\n"
    "  --daemon URL                             where the daemon listens (LUMVIEW_DAEMON)\n"
    "  --role ROLE                              the role to drive with (LUMVIEW_ROLE)\n"
    "  --password PASSWORD                      its password (LUMVIEW_PASSWORD)\n"
    "  --help                                   show this help";

Options::Outcome error(const std::string& text)
{
    return {std::nullopt, text + "; see --help", true};
}

void takeFromEnvironment(const char* name, std::string& value)
{
    const char* found = std::getenv(name);
    if (found != nullptr) {
        value = found;
    }
}

// Up to nine digits, so that no interval is beyond what a clock can count.
bool isInterval(const std::string& text)
{
    return !text.empty() && text.size() <= 9
        && std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// Where the option's value belongs; nullptr for an option that is unknown.
std::string* placeOf(const std::string& option, Options& options, std::string& interval)
{
    if (option == "-f") {
        return &options.file;
    }
    if (option == "--global-variable-output-interval") {
        return &interval;
    }
    if (option == "--daemon") {
        return &options.daemon;
    }
    if (option == "--role") {
        return &options.role;
    }
    return option == "--password" ? &options.password : nullptr;
}

} // namespace

Options::Outcome Options::parse(const std::vector<std::string>& arguments)
{
    Options options;
    takeFromEnvironment("LUMVIEW_DAEMON", options.daemon);
    takeFromEnvironment("LUMVIEW_ROLE", options.role);
    takeFromEnvironment("LUMVIEW_PASSWORD", options.password);
    std::string interval = "0";
    for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
        if (*argument == "--help") {
            return {std::nullopt, help, false};
        }
        std::string* place = placeOf(*argument, options, interval);
        if (place == nullptr) {
            return error("unknown option " + *argument);
        }
        const std::string& option = *argument;
        if (++argument == arguments.end()) {
            return error("expected a value after " + option);
        }
        *place = *argument;
    }
    if (options.file.empty()) {
        return error("expected -f and the file of a program");
    }
    if (!isInterval(interval)) {
        return error("expected a whole number of milliseconds after "
                     "--global-variable-output-interval, but found "
                     + interval);
    }
    options.variableInterval = std::chrono::milliseconds(std::stol(interval));
    return {options, {}, false};
}

} // namespace kor::veltrano::lumview
