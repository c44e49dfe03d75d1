#include "platform/ui/FlexBlock.h"

#include "platform/ui/DatesFr.h"

#include <algorithm>
#include <numeric>

QString FlexBlock::hours() const {
    return DatesFr::heure(start) + QChar(0x2013) + DatesFr::heure(end);
}

QString FlexBlock::caption() const {
    return detail.isEmpty() ? name : name + QStringLiteral("  [") + detail + u']';
}

namespace {

/// One run of blocks, each of which shares a row with another: all get the same number of lanes.
void shareRun(std::vector<FlexBlock> &blocks, const std::vector<size_t> &run) {
    std::vector<int> ends; // last row of each lane
    for (const size_t place : run) {
        FlexBlock &block = blocks[place];
        const auto free = std::ranges::find_if(ends, [&](int end) { return end < block.first; });
        block.lane = int(free - ends.begin());
        if (free == ends.end()) {
            ends.push_back(block.last);
        } else {
            *free = block.last;
        }
    }
    for (const size_t place : run) {
        blocks[place].lanes = int(ends.size());
    }
}

} // namespace

void shareLanes(std::vector<FlexBlock> &blocks) {
    std::vector<size_t> order(blocks.size());
    std::iota(order.begin(), order.end(), size_t{0});
    std::ranges::stable_sort(order, [&](size_t a, size_t b) {
        return std::pair(blocks[a].col, blocks[a].first) < std::pair(blocks[b].col, blocks[b].first);
    });
    std::vector<size_t> run;
    int end = -1;
    for (const size_t place : order) {
        const FlexBlock &block = blocks[place];
        if (!run.empty() && (blocks[run.front()].col != block.col || block.first > end)) {
            shareRun(blocks, run);
            run.clear();
            end = -1;
        }
        run.push_back(place);
        end = std::max(end, block.last);
    }
    shareRun(blocks, run);
}
