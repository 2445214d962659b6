// An atomic use count that costs a plain increment while the process has one thread.
#pragma once

#include <atomic>
#include <cstdint>

#if __has_include(<sys/single_threaded.h>)
#include <sys/single_threaded.h>
#define VELTRANE_SINGLE_THREADED __libc_single_threaded
#else
#define VELTRANE_SINGLE_THREADED false
#endif

namespace veltrane {

class RefCount {
public:
    void increment() noexcept {
        if (VELTRANE_SINGLE_THREADED) {
            count_.store(count_.load(std::memory_order_relaxed) + 1, std::memory_order_relaxed);
        } else {
            count_.fetch_add(1, std::memory_order_relaxed);
        }
    }

    /// True when the last use has gone.
    bool decrement() noexcept {
        if (VELTRANE_SINGLE_THREADED) {
            const std::uint32_t left = count_.load(std::memory_order_relaxed) - 1;
            count_.store(left, std::memory_order_relaxed);
            return left == 0;
        }
        return count_.fetch_sub(1, std::memory_order_acq_rel) == 1;
    }

    std::uint32_t value() const noexcept { return count_.load(std::memory_order_relaxed); }

private:
    std::atomic<std::uint32_t> count_{0};
};

}  // namespace veltrane
