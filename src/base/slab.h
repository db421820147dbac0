#pragma once

#include <cstdint>
#include <cstring>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

namespace base {

// A pool of objects of one type, numbered from 1, in blocks that never move. A number takes half the memory
// of a pointer.
template <typename Thing>
class Slab {
public:
    Thing& operator[](std::uint32_t number) { return blocks_[number / blockSize][number % blockSize]; }
    const Thing& operator[](std::uint32_t number) const {
        return blocks_[number / blockSize][number % blockSize];
    }
    // The number of an object whose contents are undefined.
    std::uint32_t take() {
        if (free_ != 0) {
            const std::uint32_t number = free_;
            std::memcpy(&free_, &(*this)[number], sizeof free_);
            return number;
        }
        if (next_ / blockSize >= blocks_.size())
            blocks_.push_back(std::make_unique_for_overwrite<Thing[]>(blockSize));
        return next_++;
    }
    void giveBack(std::uint32_t number) {
        const std::uint32_t after = std::exchange(free_, number);
        std::memcpy(static_cast<void*>(&(*this)[number]), &after, sizeof after);
    }
    // The memory of all objects, given back or not.
    std::size_t bytes() const { return blocks_.size() * blockSize * sizeof(Thing); }

private:
    static constexpr std::uint32_t blockSize = 1024;
    static_assert(std::is_trivially_copyable_v<Thing> && sizeof(Thing) >= sizeof(std::uint32_t));

    std::vector<std::unique_ptr<Thing[]>> blocks_;
    std::uint32_t free_ =
        0; // the object that was given back last; each one holds the number of the one before
    std::uint32_t next_ = 1; // lowest number never used
};

} // namespace base
