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
        const Header before{this, top_, end_};
        if (static_cast<std::size_t>(end_ - top_) < size) TakeBlock(size);
        auto* header = new (top_) Header(before);
        top_ += size;
        return header + 1;
    }
    /// A frame of its own, for a call that has no stack.
    static void* TakeAlone(std::size_t size) {
        return new (::operator new(size + sizeof(Header))) Header{nullptr, nullptr, nullptr} + 1;
    }
    /// Of the frame that was taken last.
    static void GiveBack(void* frame) {
        Header* const header = static_cast<Header*>(frame) - 1;
        if (header->stack == nullptr) return ::operator delete(header);
        FrameStack& stack = *header->stack;
        const bool first_of_block = header->end != stack.end_;
        stack.top_ = header->top;
        stack.end_ = header->end;
        if (first_of_block) --stack.used_;
    }

private:
    static constexpr std::size_t kAlign = alignof(std::max_align_t);
    static constexpr std::size_t kBlock = std::size_t{64} * 1024;
    /// In front of each frame: where the stack stood before.
    struct alignas(std::max_align_t) Header {
        FrameStack* stack;
        std::byte* top;
        std::byte* end;
    };
    struct Block {
        std::unique_ptr<std::byte[]> bytes;
        std::size_t size;
    };

    void TakeBlock(std::size_t size) {
        if (used_ == blocks_.size() || blocks_[used_].size < size) {
            blocks_.resize(used_);
            const std::size_t room = size > kBlock ? size : kBlock;
            blocks_.push_back({std::make_unique_for_overwrite<std::byte[]>(room), room});
        }
        Block& block = blocks_[used_++];
        top_ = block.bytes.get();
        end_ = top_ + block.size;
    }

    std::vector<Block> blocks_;
    std::size_t used_ = 0;  ///< blocks that hold a frame
    std::byte* top_ = nullptr;
    std::byte* end_ = nullptr;
};

}  // namespace mrlxmlclass
