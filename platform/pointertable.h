#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace platform {

/// Hash table of objects that someone else holds. The hashes lie in the table itself, so a search touches
/// no object but the one it is after.
template <class T>
class PointerTable {
public:
    size_t size() const { return size_; }

    /// The object with the hash that the test accepts, null if there is none.
    template <class Test>
    T* find(size_t hash, Test isWanted) const {
        if (slots_.empty()) return nullptr;
        const auto tag = static_cast<uint32_t>(hash);
        for (size_t i = home(tag); slots_[i].object; i = next(i)) {
            if (slots_[i].tag == tag && isWanted(*slots_[i].object)) return slots_[i].object;
        }
        return nullptr;
    }

    /// @pre the object is not in the table
    void insert(size_t hash, T* object) {
        // A quarter is kept free; beyond that the searches grow long.
        if ((size_ + 1) * 4 > slots_.size() * 3) grow();
        put({static_cast<uint32_t>(hash), object});
        ++size_;
    }

    void erase(size_t hash, const T* object) {
        if (slots_.empty()) return;
        size_t hole = home(static_cast<uint32_t>(hash));
        while (slots_[hole].object != object) {
            if (!slots_[hole].object) return;
            hole = next(hole);
        }
        // Those behind the hole move up as long as they do not pass their home.
        for (size_t i = next(hole); slots_[i].object; i = next(i)) {
            const size_t fromHome = (i - home(slots_[i].tag)) & (slots_.size() - 1);
            const size_t fromHole = (i - hole) & (slots_.size() - 1);
            if (fromHome >= fromHole) {
                slots_[hole] = slots_[i];
                hole = i;
            }
        }
        slots_[hole] = {};
        --size_;
    }

    void clear() {
        slots_.clear();
        size_ = 0;
    }

    template <class Function>
    void forEach(Function function) const {
        for (const Slot& slot : slots_) {
            if (slot.object) function(*slot.object);
        }
    }

private:
    struct Slot {
        uint32_t tag = 0;
        T* object = nullptr;
    };

    // Spreads what differs in a few bits only, as pointers do.
    size_t home(uint32_t tag) const { return (tag * size_t{0x9E3779B97F4A7C15} >> 20) & (slots_.size() - 1); }
    size_t next(size_t i) const { return (i + 1) & (slots_.size() - 1); }

    void put(const Slot& slot) {
        size_t i = home(slot.tag);
        while (slots_[i].object) i = next(i);
        slots_[i] = slot;
    }

    void grow() {
        std::vector<Slot> old(slots_.empty() ? 16 : slots_.size() * 2);
        old.swap(slots_);
        for (const Slot& slot : old) {
            if (slot.object) put(slot);
        }
    }

    std::vector<Slot> slots_; // a power of two
    size_t size_ = 0;
};

} // namespace platform
