#include "mrlxmlclass/runtime/FrameStack.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <random>
#include <utility>
#include <vector>

namespace mrlxmlclass {
namespace {

constexpr std::size_t kBeyondABlock = 200'000;

/// A frame that is filled to its last byte, and looked at again before it goes.
class Frame {
public:
    Frame(FrameStack& stack, std::size_t size, unsigned char mark) : Frame(stack.Take(size), size, mark) {}
    Frame(void* memory, std::size_t size, unsigned char mark) : memory_(memory), size_(size), mark_(mark) {
        std::memset(memory_, mark_, size_);
    }
    Frame(Frame&& other) noexcept
        : memory_(std::exchange(other.memory_, nullptr)), size_(other.size_), mark_(other.mark_) {}
    ~Frame() {
        if (memory_ == nullptr) return;
        const auto* bytes = static_cast<const unsigned char*>(memory_);
        for (std::size_t i = 0; i < size_; ++i) {
            if (bytes[i] == mark_) continue;
            ADD_FAILURE() << "byte " << i << " of " << size_ << " was written by another frame";
            break;
        }
        FrameStack::GiveBack(memory_);
    }
    Frame(const Frame&) = delete;
    Frame& operator=(const Frame&) = delete;
    Frame& operator=(Frame&&) = delete;

    const void* memory() const { return memory_; }

private:
    void* memory_;
    std::size_t size_;
    unsigned char mark_;
};

/// The frame that was taken last goes first, as the calls of a walk end.
class Frames {
public:
    ~Frames() {
        while (!frames_.empty()) frames_.pop_back();
    }
    void Push(Frame frame) { frames_.push_back(std::move(frame)); }
    void Pop() { frames_.pop_back(); }
    std::size_t size() const { return frames_.size(); }

private:
    std::vector<Frame> frames_;
};

TEST(FrameStack, GivesMemoryThatHoldsAnything) {
    FrameStack stack;
    Frames frames;
    for (const std::size_t size : {1, 2, 15, 16, 17, 100, 1000}) {
        Frame frame(stack, size, static_cast<unsigned char>(size));
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(frame.memory()) % alignof(std::max_align_t), 0U) << size;
        frames.Push(std::move(frame));
    }
}

TEST(FrameStack, GivesTheSameMemoryAgainToTheNextCall) {
    FrameStack stack;
    const Frame outer(stack, 100, 1);
    const void* first = Frame(stack, 50, 2).memory();
    EXPECT_EQ(Frame(stack, 50, 3).memory(), first);
    EXPECT_EQ(Frame(stack, 400, 4).memory(), first) << "whatever its size";
}

TEST(FrameStack, KeepsItsFirstBlockForTheNextWalk) {
    FrameStack stack;
    const void* first = Frame(stack, 100, 1).memory();
    EXPECT_EQ(Frame(stack, 100, 2).memory(), first);
}

TEST(FrameStack, GoesBackIntoTheBlockWhereItStoodBefore) {
    FrameStack stack;
    const Frame outer(stack, 1000, 1);
    const void* next = Frame(stack, 64, 2).memory();
    {
        const Frame large(stack, kBeyondABlock, 3);
        const Frame above(stack, 64, 4);
    }
    EXPECT_EQ(Frame(stack, 64, 5).memory(), next);
}

TEST(FrameStack, HoldsAFrameLargerThanAnyBlock) {
    FrameStack stack;
    Frames frames;
    for (int i = 0; i < 5; ++i) {
        frames.Push(Frame(stack, kBeyondABlock << i, static_cast<unsigned char>(i)));
        frames.Push(Frame(stack, 10, 99));
    }
}

TEST(FrameStack, TakesALargerBlockWhereTheKeptOneIsTooSmall) {
    FrameStack stack;
    const Frame outer(stack, 60'000, 1);
    for (const std::size_t size : {std::size_t{10'000}, kBeyondABlock, std::size_t{10'000}, 2 * kBeyondABlock}) {
        const Frame second_block(stack, size, 2);
        const Frame above(stack, 10'000, 3);
    }
}

TEST(FrameStack, HoldsManyMoreFramesThanItKeepsBlocks) {
    FrameStack stack;
    for (int walk = 0; walk < 2; ++walk) {
        Frames frames;
        for (int depth = 0; depth < 10'000; ++depth) frames.Push(Frame(stack, 300, static_cast<unsigned char>(depth)));
    }
}

TEST(FrameStack, HoldsFramesOfAnySizeInAnyDepth) {
    std::mt19937 random(20260302);
    const auto below = [&](std::size_t end) { return std::uniform_int_distribution<std::size_t>(0, end - 1)(random); };
    FrameStack stack;
    Frames frames;
    for (int step = 0; step < 20'000; ++step) {
        const bool grows = step / 1000 % 2 == 0;  // up and down in long waves
        if (frames.size() != 0 && below(10) < (grows ? 3U : 7U)) {
            frames.Pop();
        } else {
            const std::size_t size = 1 + below(below(100) == 0 ? kBeyondABlock : 500);
            frames.Push(Frame(stack, size, static_cast<unsigned char>(step)));
        }
    }
}

TEST(FrameStack, StandsBesideAnotherOne) {
    FrameStack one;
    FrameStack other;
    void* const first = one.Take(100);
    void* const second = other.Take(100);
    FrameStack::GiveBack(first);  // each frame knows its stack
    EXPECT_EQ(Frame(one, 100, 1).memory(), first);
    FrameStack::GiveBack(second);
    EXPECT_EQ(Frame(other, 100, 2).memory(), second);
}

TEST(FrameStack, GivesFramesOfTheirOwnInAnyOrder) {
    FrameStack stack;
    void* const kept = FrameStack::TakeAlone(100);
    void* const first = FrameStack::TakeAlone(10);
    const Frame between(stack, 100, 1);
    void* const last = FrameStack::TakeAlone(kBeyondABlock);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(last) % alignof(std::max_align_t), 0U);
    const Frame alone(kept, 100, 2);
    std::memset(first, 3, 10);
    std::memset(last, 4, kBeyondABlock);
    FrameStack::GiveBack(first);
    FrameStack::GiveBack(last);
}

}  // namespace
}  // namespace mrlxmlclass
