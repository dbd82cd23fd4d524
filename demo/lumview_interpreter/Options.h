// Options: the command line and the environment, read into values.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace kor::veltrano::lumview {

struct Options {
    // The program's file.
    std::string file;
    // How often changed variables are told; 0 for each change.
    std::chrono::milliseconds variableInterval{0};
    // Where the daemon listens, and as whom the program logs in there before it drives.
    std::string daemon = "http://127.0.0.1:8080";
    std::string role = "operator";
    std::string password = "operator";

    // What parse() makes of a command line: options to start with, or a text to print. An error's
    // text belongs on stderr, help's on stdout.
    struct Outcome;
    // Reads the arguments, without the program's name. What they leave out is taken from
    // LUMVIEW_DAEMON, LUMVIEW_ROLE and LUMVIEW_PASSWORD of the environment.
    static Outcome parse(const std::vector<std::string>& arguments);
};

struct Options::Outcome {
    std::optional<Options> options;
    std::string text;
    bool isError = false;
};

} // namespace kor::veltrano::lumview
