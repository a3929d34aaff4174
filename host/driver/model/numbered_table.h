// A table of the hardware: found by key, and each entry keeps a number from 1 up to the table's size.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace quillon::driver {

template <class Key, class Value>
class NumberedTable {
  public:
    struct Entry {
        uint32_t number;
        Value value;
    };

    explicit NumberedTable(uint32_t most) : keys_(most)
    {
        for (uint32_t number = most; number >= 1; --number) {
            free_.push_back(number);
        }
    }

    size_t size() const { return entries_.size(); }
    const std::map<Key, Entry> &entries() const { return entries_; }

    const Entry *find(const Key &key) const
    {
        const auto found = entries_.find(key);
        return found == entries_.end() ? nullptr : &found->second;
    }
    Entry *find(const Key &key) { return const_cast<Entry *>(std::as_const(*this).find(key)); }

    // Null for a number that no entry has.
    const Key *key_of(uint64_t number) const
    {
        return number >= 1 && number <= keys_.size() && keys_[number - 1] ? &*keys_[number - 1] : nullptr;
    }

    // Of a key that is not there. Null when there is no room.
    Entry *add(const Key &key, Value value)
    {
        if (free_.empty()) {
            return nullptr;
        }
        const uint32_t number = free_.back();
        free_.pop_back();
        keys_[number - 1] = key;
        return &entries_.emplace(key, Entry{.number = number, .value = std::move(value)}).first->second;
    }

    // Those for which `is_gone` is true of key and entry, which it may change.
    template <class Predicate>
    void erase_if(Predicate is_gone)
    {
        for (auto item = entries_.begin(); item != entries_.end();) {
            if (is_gone(item->first, item->second)) {
                release(item->second.number);
                item = entries_.erase(item);
            } else {
                ++item;
            }
        }
    }

    bool erase(const Key &key)
    {
        const auto found = entries_.find(key);
        if (found == entries_.end()) {
            return false;
        }
        release(found->second.number);
        entries_.erase(found);
        return true;
    }

  private:
    void release(uint32_t number)
    {
        keys_[number - 1].reset();
        free_.push_back(number);
    }

    std::map<Key, Entry> entries_;
    std::vector<std::optional<Key>> keys_;  // by number
    std::vector<uint32_t> free_;
};

}  // namespace quillon::driver
