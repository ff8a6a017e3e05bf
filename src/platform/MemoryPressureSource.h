// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <memory>

namespace vtx {

/// Levels of memory pressure, as bits of a mask and of an event's data.
inline constexpr std::uint32_t memoryPressureNormal = 0x01;
inline constexpr std::uint32_t memoryPressureWarn = 0x02;
inline constexpr std::uint32_t memoryPressureCritical = 0x04;

/// A source of memory pressure events. Made, activated, cancelled and destroyed on the main
/// executor; destroying it cancels it.
class MemoryPressureSource {
public:
    MemoryPressureSource() = default;
    MemoryPressureSource(const MemoryPressureSource&) = delete;
    MemoryPressureSource& operator=(const MemoryPressureSource&) = delete;
    virtual ~MemoryPressureSource() = default;

    /// Set before it is activated. The handler is called with the pending event's data, on any
    /// thread, one call at a time, and may not call back into the source.
    virtual void setEventHandler(std::function<void(std::uint32_t data)> handler) = 0;
    /// Events are told from now on; the level at this moment is not one.
    virtual void activate() = 0;
    /// Once this returns the handler is not running and will not be called again.
    virtual void cancel() = 0;
};

/// The operating system's word on whether memory runs short. Main executor.
class MemoryPressureSources {
public:
    MemoryPressureSources() = default;
    MemoryPressureSources(const MemoryPressureSources&) = delete;
    MemoryPressureSources& operator=(const MemoryPressureSources&) = delete;
    virtual ~MemoryPressureSources() = default;

    /// A source of the events in the mask; null if the platform can make none.
    [[nodiscard]] virtual std::unique_ptr<MemoryPressureSource> create(std::uint32_t mask) = 0;
};

}  // namespace vtx
