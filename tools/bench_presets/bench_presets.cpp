// How long a large preset document takes to save and to load: 10,000 presets spread over the thirteen
// effect entries, half of them in groups two deep, written to a real file and read back.

#include "presets/CEFXPresetTree.h"
#include "tools/LargePresetDocument.h"

#include <chrono>
#include <cstdio>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kPresets = 10000;
constexpr int kRuns = 5;

int CountNodes(const PresetNode* node)
{
    int count = 0;
    for (const PresetNode* child = node->firstChild; child; child = child->nextSibling)
        count += 1 + CountNodes(child);
    return count;
}

double Milliseconds(Clock::duration d)
{
    return std::chrono::duration<double, std::milli>(d).count();
}

} // namespace

int main()
{
    CEFXPresetTree tree;
    tool_support::BuildLargeDocument(tree, kPresets);
    std::FILE* file = std::tmpfile();
    if (!file)
        return 1;

    double bestWrite = 1e300;
    double bestRead = 1e300;
    long bytes = 0;
    int readNodes = 0;
    for (int run = 0; run < kRuns; ++run) {
        const auto t0 = Clock::now();
        tree.WriteFile(file);
        const auto t1 = Clock::now();
        bytes = std::ftell(file);
        CEFXPresetTree read;
        read.ReadFile(file);
        const auto t2 = Clock::now();
        readNodes = CountNodes(read.Root());
        bestWrite = std::min(bestWrite, Milliseconds(t1 - t0));
        bestRead = std::min(bestRead, Milliseconds(t2 - t1));
    }
    std::fclose(file);
    if (readNodes != CountNodes(tree.Root())) {
        std::printf("read back %d nodes of %d\n", readNodes, CountNodes(tree.Root()));
        return 1;
    }
    std::printf("document of %d presets, %ld bytes, %d nodes\n", kPresets, bytes, readNodes);
    std::printf("write: %.2f ms   read: %.2f ms   (best of %d)\n", bestWrite, bestRead, kRuns);
    return 0;
}
