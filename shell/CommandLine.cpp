#include "shell/CommandLine.h"

#include <cstdlib>
#include <strings.h>

namespace {

constexpr const char* kOption = "-maxsends";
constexpr std::size_t kOptionLength = 9;
constexpr std::size_t kNumberOffset = 10;
constexpr int kDefaultSends = 2;

} // namespace

CommandLineChoice ParseCommandLine(const std::string& commandLine)
{
    if (commandLine.empty())
        return {kDefaultSends, nullptr, true};
    if (strncasecmp(commandLine.c_str(), kOption, kOptionLength) != 0)
        return {kDefaultSends, "Invalid command line parameter", true};

    // A line that ends at or before the separator has no number: it reads as 0.
    const int value = commandLine.size() > kNumberOffset ? std::atoi(commandLine.c_str() + kNumberOffset) : 0;
    if (value >= 2 && value <= 4)
        return {value, nullptr, false};
    return {kDefaultSends, "Invalid max number of active sends, configure in next panel...", true};
}

std::string JoinArguments(int argc, const char* const* argv)
{
    std::string line;
    for (int i = 1; i < argc; ++i) {
        if (i > 1)
            line += ' ';
        line += argv[i];
    }
    return line;
}
