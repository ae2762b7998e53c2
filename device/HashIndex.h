#pragma once
// A hash table made while compiling: constant-time lookup in a constexpr table without any start-up cost.

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quillon
{

/// Places of up to 255 rows, found by a hash of their key. Slots must be a power of two, best at twice the rows or more.
template<std::size_t Slots> class HashIndex
{
    static_assert((Slots & (Slots - 1)) == 0);

public:
    /// hashOf(row) gives the hash of a row's key.
    template<typename Rows, typename HashOf> constexpr HashIndex(const Rows& rows, HashOf hashOf)
    {
        mSlots.fill(kFree);
        for (std::size_t i = 0; i < rows.size(); ++i) {
            std::size_t slot = hashOf(rows[i]) & (Slots - 1);
            while (mSlots[slot] != kFree) {
                slot = (slot + 1) & (Slots - 1);
            }
            mSlots[slot] = static_cast<std::uint8_t>(i);
        }
    }

    /// The place of the row whose key has this hash and that matches(place) accepts, -1 for none.
    template<typename Matches> constexpr int find(std::uint32_t hash, Matches matches) const
    {
        for (std::size_t slot = hash & (Slots - 1); mSlots[slot] != kFree; slot = (slot + 1) & (Slots - 1)) {
            if (matches(mSlots[slot])) {
                return mSlots[slot];
            }
        }
        return -1;
    }

private:
    static constexpr std::uint8_t kFree = 255;
    std::array<std::uint8_t, Slots> mSlots = {};
};

/// Mixes text into a hash (FNV-1a over UTF-16 units), which is folded because the index uses the low bits only.
constexpr std::uint32_t hashText(std::u16string_view text, std::uint32_t hash = 2166136261u)
{
    for (const char16_t unit : text) {
        hash = (hash ^ unit) * 16777619u;
    }
    return hash ^ (hash >> 15);
}

} // namespace quillon
