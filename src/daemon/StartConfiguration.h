// The first steps of the start: which configuration file is read, and what of the command line goes
// into the settings. Called by main, once, before any object that reads settings exists.
#pragma once

#include "daemon/CommandLine.h"

namespace kor::veltrano::daemons {

// The name given with the option, or else tessarad.conf in the current directory, or else the
// installed one beside it, whether or not that exists.
QString configFileName(const CommandLine& commandLine);

// Reads the file into settings and tells on standard output and error what was found. A file that
// cannot be read leaves the settings empty.
void readSettings(const QString& configFile);

// Options with a value win over the file. General/resourcepath never comes from the file.
void mergeIntoSettings(const CommandLine& commandLine);

// One line for each setting on standard output: the key, " = ", the value.
void printSettings();

} // namespace kor::veltrano::daemons
