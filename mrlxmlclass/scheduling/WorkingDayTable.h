#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace mrlxmlclass {

/// What makes a day non-working: its weekday unless it is an exception, or a holiday whatever else it is.
struct DayRules {
    std::array<bool, 8> free_weekday{};  ///< by weekday, 1 = Sunday ... 7 = Saturday
    std::vector<double> holidays;        ///< ascending
    std::vector<double> exceptions;      ///< ascending

    bool NonWorking(int day) const;
};

/// Non-working days counted up, so that no count and no search walks day by day. Days are numbers as in Date; they are
/// counted in blocks of somewhat more than a year, each when it is first asked for.
class WorkingDayTable {
public:
    explicit WorkingDayTable(DayRules rules) : rules_(std::move(rules)) {}

    bool NonWorking(int day) {
        const Block& block = BlockOf(day);
        const auto place = static_cast<std::size_t>(day - block.first_day);
        return block.before[place] != block.before[place + 1];
    }
    /// The non-working days from `first` to `last`, both included; none when `last` comes before.
    std::int64_t CountNonWorking(int first, int last) {
        if (first > last) return 0;
        const Block& block = BlockOf(first);
        const int behind = last + 1 - block.first_day;
        if (behind > kBlockDays) return CountThroughBlocks(first, last);
        return block.before[static_cast<std::size_t>(behind)] -
               block.before[static_cast<std::size_t>(first - block.first_day)];
    }
    /// The `count`-th working day after `day`; nothing when it does not come within `reach` days.
    std::optional<int> WorkingDayAfter(int day, std::int64_t count, int reach);

private:
    static constexpr int kBlockBits = 9;
    static constexpr int kBlockDays = 1 << kBlockBits;
    struct Block {
        int first_day = 0;
        std::array<std::uint16_t, kBlockDays + 1> before{};  ///< non-working days of the block before its n-th
    };

    const Block& BlockOf(int day) {
        const int number = day >> kBlockBits;
        const auto place = static_cast<unsigned>(number - first_block_);  // one before the first is a large one
        return place < blocks_.size() && blocks_[place] ? *blocks_[place] : CountBlock(number);
    }
    const Block& CountBlock(int number);
    std::int64_t CountThroughBlocks(int first, int last);

    DayRules rules_;
    int first_block_ = 0;  ///< the number of blocks_[0]
    std::vector<std::unique_ptr<Block>> blocks_;
};

}  // namespace mrlxmlclass
