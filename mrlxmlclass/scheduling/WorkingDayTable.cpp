#include "mrlxmlclass/scheduling/WorkingDayTable.h"

#include <algorithm>

namespace mrlxmlclass {
namespace {

/// Day 0 is a Saturday.
int WeekdayOf(int day) {
    return ((day - 1) % 7 + 7) % 7 + 1;
}

bool Holds(const std::vector<double>& days, int day) {
    return std::binary_search(days.begin(), days.end(), static_cast<double>(day));
}

}  // namespace

bool DayRules::NonWorking(int day) const {
    const bool free = free_weekday[static_cast<std::size_t>(WeekdayOf(day))] && !Holds(exceptions, day);
    return free || Holds(holidays, day);
}

std::int64_t WorkingDayTable::CountThroughBlocks(int first, int last) {
    std::int64_t count = 0;
    while (first <= last) {
        const Block& block = BlockOf(first);
        const int end = std::min(last + 1, block.first_day + kBlockDays);
        count += block.before[static_cast<std::size_t>(end - block.first_day)] -
                 block.before[static_cast<std::size_t>(first - block.first_day)];
        first = end;
    }
    return count;
}

std::optional<int> WorkingDayTable::WorkingDayAfter(int day, std::int64_t count, int reach) {
    const int limit = day + reach;
    for (int first = day + 1; first <= limit;) {
        const Block& block = BlockOf(first);
        const int end = block.first_day + kBlockDays;
        const auto worked_before = [&](int place) {  // of the block's days before the one at `place`
            return place - block.before[static_cast<std::size_t>(place)];
        };
        const int wanted = worked_before(first - block.first_day) +
                           static_cast<int>(std::min<std::int64_t>(count, std::int64_t{reach} + 1));
        if (worked_before(kBlockDays) >= wanted) {
            int low = first - block.first_day;  // the wanted day stands at `low` or behind
            int high = kBlockDays - 1;
            while (low < high) {
                const int middle = (low + high) / 2;
                if (worked_before(middle + 1) >= wanted) {
                    high = middle;
                } else {
                    low = middle + 1;
                }
            }
            const int found = block.first_day + low;
            return found <= limit ? std::optional(found) : std::nullopt;
        }
        count -= worked_before(kBlockDays) - worked_before(first - block.first_day);
        first = end;
    }
    return std::nullopt;
}

const WorkingDayTable::Block& WorkingDayTable::CountBlock(int number) {
    if (blocks_.empty()) first_block_ = number;
    if (number < first_block_) {
        std::vector<std::unique_ptr<Block>> grown(static_cast<std::size_t>(first_block_ - number));
        std::move(blocks_.begin(), blocks_.end(), std::back_inserter(grown));
        blocks_ = std::move(grown);
        first_block_ = number;
    }
    const auto place = static_cast<std::size_t>(number - first_block_);
    if (place >= blocks_.size()) blocks_.resize(place + 1);
    auto block = std::make_unique<Block>();
    block->first_day = number * kBlockDays;
    for (int i = 0; i < kBlockDays; ++i) {
        const auto at = static_cast<std::size_t>(i);
        const int free = rules_.NonWorking(block->first_day + i) ? 1 : 0;
        block->before[at + 1] = static_cast<std::uint16_t>(block->before[at] + free);
    }
    blocks_[place] = std::move(block);
    return *blocks_[place];
}

}  // namespace mrlxmlclass
