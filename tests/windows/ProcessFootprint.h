// What a leak of this process shows in under Wine, where GetGuiResources and the private-bytes
// counter read 0: the bytes in use on every heap of the process, and every window it owns.
#pragma once

#include <cstddef>

struct ProcessFootprint {
    std::size_t heapBytes = 0;  // sum of the busy blocks of every heap of the process
    std::size_t heapBlocks = 0; // how many busy blocks that sum holds
    int windows = 0;            // top-level, child and message-only windows of the process
};

ProcessFootprint MeasureProcessFootprint();
