#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <utility>

#include "../util/Export.h"

// The hash map is a deprecated extension of the GNU library: its notice is for new code, not for
// those who include this header.
#ifdef _GLIBCXX_PERMIT_BACKWARD_HASH
#include <ext/hash_map>
#else
#define _GLIBCXX_PERMIT_BACKWARD_HASH  // NOLINT(bugprone-reserved-identifier): its own switch
#include <ext/hash_map>
#undef _GLIBCXX_PERMIT_BACKWARD_HASH
#endif

/// Thrown when a key is added to a store that holds it already.
class VEHICLE_UNITS_EXPORT duplicate_key_error : public std::runtime_error {
 public:
  /// The message is "key already exists\n" with `key` directly behind it.
  explicit duplicate_key_error(const std::string& key)
      : std::runtime_error("key already exists\n" + key) {}
};

/// Thrown when a key is sought in a store that does not hold it.
class VEHICLE_UNITS_EXPORT key_notfound_error : public std::runtime_error {
 public:
  /// The message is "key not found\n" with `key` directly behind it.
  explicit key_notfound_error(const std::string& key)
      : std::runtime_error("key not found\n" + key) {}
};

namespace __gnu_cxx {

/// The classic string hash h = 5 h + c, in 32 bits on every machine, over the bytes before the
/// first NUL, each taken as a value from 0 to 255.
///
/// Short keys of digits cluster: digits span ten values and the multiplier is 5, so many numbered
/// names share a hash value. Names of real quantities spread well.
template <>
struct hash<std::string> {
  std::size_t operator()(const std::string& key) const {
    std::uint32_t value = 0;
    for (const char* c = key.c_str(); *c != '\0'; ++c) {
      value = 5 * value + static_cast<unsigned char>(*c);
    }
    return value;
  }
};

}  // namespace __gnu_cxx

namespace util {

/// A keyed store: a hash map with a small virtual interface that says by exception when a key is
/// there twice or not at all. The base's whole interface stays available beside it.
///
///     util::DataHash<std::string, std::shared_ptr<Thing>> things;
///     things.addData("a", first);       // things.size() == 1
///     things.addData("a", second);      // throws duplicate_key_error, keeps first
///     things.setData("a", second);      // replaces first
///     things.findData("b");             // throws key_notfound_error
///
/// Keys are equal when their whole length is equal byte for byte. A new store has 193 buckets;
/// before each insertion attempt the bucket count grows to the next listed prime if one entry more
/// would exceed it, and it never shrinks. A reference to a stored value stays valid until its entry
/// is replaced or removed, also while the table grows. A store cannot be copied.
///
/// Threads: any number may call the const operations at once while nobody modifies the store; the
/// others, the modifiable `findData` included, need every other access to be excluded.
template <typename K, typename V, typename H = __gnu_cxx::hash<K>>
class VEHICLE_UNITS_EXPORT DataHash : public __gnu_cxx::hash_map<K, V, H> {
 public:
  DataHash();
  DataHash(const DataHash&) = delete;
  DataHash& operator=(const DataHash&) = delete;

  /// Lets go of every entry; an object dies with its last owner.
  virtual ~DataHash();

  /// Adds the pair. Throws `duplicate_key_error` if `dataExists(key)`, asked through the virtual
  /// table, is true, and `std::bad_alloc`; the store is then unchanged. Should an override of
  /// `dataExists` deny a key that is there, the value already stored stays.
  virtual void addData(const K& key, const V& value);

  /// Removes the entry of `key` and returns how many that were: 0 or 1.
  virtual std::size_t removeData(const K& key);

  /// The value stored under `key`; assigning through the reference replaces it. Throws
  /// `key_notfound_error` for an absent key.
  virtual V& findData(const K& key);
  /// The same of a store that is only read.
  virtual const V& findData(const K& key) const;

  /// Stores `value` under `key`, whether the key is there or not. The table grows as for a new key
  /// in both cases. Throws only `std::bad_alloc`, which leaves the store without a new entry.
  virtual void setData(const K& key, const V& value);

  /// True if there is an entry of `key`.
  virtual bool dataExists(const K& key) const;
};

template <typename K, typename V, typename H>
DataHash<K, V, H>::DataHash() = default;

template <typename K, typename V, typename H>
DataHash<K, V, H>::~DataHash() = default;

template <typename K, typename V, typename H>
void DataHash<K, V, H>::addData(const K& key, const V& value) {
  if (dataExists(key)) {
    throw duplicate_key_error("");
  }
  this->insert({key, value});
}

template <typename K, typename V, typename H>
std::size_t DataHash<K, V, H>::removeData(const K& key) {
  return this->erase(key);
}

template <typename K, typename V, typename H>
V& DataHash<K, V, H>::findData(const K& key) {
  return const_cast<V&>(std::as_const(*this).DataHash::findData(key));
}

template <typename K, typename V, typename H>
const V& DataHash<K, V, H>::findData(const K& key) const {
  const auto found = this->find(key);
  if (found == this->end()) {
    throw key_notfound_error("");
  }
  return found->second;
}

template <typename K, typename V, typename H>
void DataHash<K, V, H>::setData(const K& key, const V& value) {
  const auto [entry, inserted] = this->insert({key, value});
  if (!inserted) {
    entry->second = value;
  }
}

template <typename K, typename V, typename H>
bool DataHash<K, V, H>::dataExists(const K& key) const {
  return this->find(key) != this->end();
}

}  // namespace util
