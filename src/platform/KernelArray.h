// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>

namespace vtx {

/// Takes kernel-allocated memory back.
class KernelMemory {
public:
    KernelMemory() = default;
    KernelMemory(const KernelMemory&) = delete;
    KernelMemory& operator=(const KernelMemory&) = delete;
    virtual ~KernelMemory() = default;

    /// Gives `bytes` bytes from `address` back to the kernel.
    virtual void vmDeallocate(const std::uint32_t* address, std::size_t bytes) noexcept = 0;
};

/// Owns an array of 32-bit words that the kernel allocated for the caller. Leaving scope gives it
/// back, on every path. May be null, and may hold fewer or more words than expected.
class KernelArray {
public:
    KernelArray() = default;
    KernelArray(KernelMemory& memory, const std::uint32_t* words, std::size_t count)
        : memory_(&memory), words_(words), count_(count) {}
    KernelArray(KernelArray&& other) noexcept
        : memory_(other.memory_),
          words_(std::exchange(other.words_, nullptr)),
          count_(std::exchange(other.count_, 0)) {}
    KernelArray& operator=(KernelArray&& other) noexcept {
        if (this != &other) {
            release();
            memory_ = other.memory_;
            words_ = std::exchange(other.words_, nullptr);
            count_ = std::exchange(other.count_, 0);
        }
        return *this;
    }
    KernelArray(const KernelArray&) = delete;
    KernelArray& operator=(const KernelArray&) = delete;
    ~KernelArray() { release(); }

    [[nodiscard]] bool isNull() const { return words_ == nullptr; }
    [[nodiscard]] std::span<const std::uint32_t> words() const { return {words_, count_}; }

private:
    void release() {
        if (words_) memory_->vmDeallocate(words_, count_ * sizeof(std::uint32_t));
        words_ = nullptr;
    }

    KernelMemory* memory_ = nullptr;
    const std::uint32_t* words_ = nullptr;
    std::size_t count_ = 0;
};

}  // namespace vtx
