#pragma once

#include <string>

// What the command line decides before the engine starts.
struct CommandLineChoice {
    int maxSends;              // 2, 3 or 4
    const char* message;       // text of the message box to show, or null
    bool showConfiguration;    // whether the context configuration dialog runs
};

// The one recognised form is "-maxsends", one separator character of any kind and a decimal
// number: "-maxsends=3" and "-maxsends 3" both mean 3. The name is matched on its first nine
// characters without regard to case, at the very start; the number is read from the eleventh
// character on, as atoi reads it, so trailing words are ignored.
CommandLineChoice ParseCommandLine(const std::string& commandLine);

// The command line as one string: the arguments after the program's name, joined by blanks.
std::string JoinArguments(int argc, const char* const* argv);
