#pragma once

#include <cstddef>
#include <memory>
#include <new>
#include <vector>

namespace mrlxmlclass {

/// Memory for the suspended calls of walks, which end in the reverse of the order in which they began, also where a
/// listener drives one walk inside another. What the deepest walk needed is kept for the next one.
class FrameStack {
public:
    FrameStack() = default;
    FrameStack(const FrameStack&) = delete;
    FrameStack& operator=(const FrameStack&) = delete;

    void* Take(std::size_t size) {
        size = (size + kAlign - 1) / kAlign * kAlign + sizeof(Header);
        if (static_cast<std::size_t>(end_ - top_) < size) TakeBlock(size);
        auto* header = new (top_) Header{this};
        top_ += size;
        return header + 1;
    }
    /// A frame of its own, for a call that has no stack.
    static void* TakeAlone(std::size_t size) { return new (::operator new(size + sizeof(Header))) Header{nullptr} + 1; }
    /// Of the frame that was taken last.
    static void GiveBack(void* frame) {
        Header* const header = static_cast<Header*>(frame) - 1;
        if (header->stack == nullptr) return ::operator delete(header);
        FrameStack& stack = *header->stack;
        stack.top_ = reinterpret_cast<std::byte*>(header);
        if (stack.top_ == stack.begin_) stack.LeaveBlock();
    }

private:
    static constexpr std::size_t kAlign = alignof(std::max_align_t);
    static constexpr std::size_t kBlock = std::size_t{64} * 1024;
    /// In front of each frame.
    struct alignas(std::max_align_t) Header {
        FrameStack* stack;
    };
    struct Block {
        std::unique_ptr<std::byte[]> bytes;
        std::size_t size;
        std::byte* top;  ///< where its frames ended when the next block was taken
    };

    void TakeBlock(std::size_t size) {
        if (used_ == blocks_.size() || blocks_[used_].size < size) {
            blocks_.resize(used_);
            const std::size_t room = size > kBlock ? size : kBlock;
            blocks_.push_back({std::make_unique_for_overwrite<std::byte[]>(room), room, nullptr});
        }
        if (used_ > 0) blocks_[used_ - 1].top = top_;
        Enter(blocks_[used_++]);
        top_ = begin_;
    }
    /// Goes back to where the frames of the block before end; the first block stays at hand.
    void LeaveBlock() {
        if (used_ == 1) return;
        const Block& before = blocks_[--used_ - 1];
        Enter(before);
        top_ = before.top;
    }
    void Enter(const Block& block) {
        begin_ = block.bytes.get();
        end_ = begin_ + block.size;
    }

    std::vector<Block> blocks_;
    std::size_t used_ = 0;  ///< blocks up to the one at hand
    std::byte* begin_ = nullptr;
    std::byte* top_ = nullptr;
    std::byte* end_ = nullptr;
};

}  // namespace mrlxmlclass
