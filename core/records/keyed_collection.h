#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/platform/runtime_error.h"

namespace fiscalon {

/// An ordered collection that owns its members. Positions count from 1; a member may have a key, unique in
/// the collection and compared exactly. Members keep their address until they are removed.
/// Errors: 9 for an unknown position, 5 for an unknown key, 457 for a key that is taken.
template <typename Member>
class KeyedCollection {
  using Members = std::vector<std::unique_ptr<Member>>;

 public:
  /// Walks the members in order, as references.
  template <typename Base, typename Reference>
  class Walk {
   public:
    explicit Walk(Base at) : at_(at) {}
    Reference& operator*() const { return **at_; }
    Walk& operator++() {
      ++at_;
      return *this;
    }
    bool operator==(const Walk&) const = default;

   private:
    Base at_;
  };

  Member& Item(int32_t position) { return *members_[Index(position)]; }
  const Member& Item(int32_t position) const { return *members_[Index(position)]; }
  Member& Item(std::string_view key) { return *Find(key); }
  const Member& Item(std::string_view key) const { return *Find(key); }

  int32_t Count() const { return static_cast<int32_t>(members_.size()); }

  void Remove(int32_t position) {
    const size_t index = Index(position);
    if (keys_)
      std::erase_if(*keys_, [&](const auto& entry) { return entry.second == members_[index].get(); });
    members_.erase(members_.begin() + static_cast<std::ptrdiff_t>(index));
  }

  void Remove(std::string_view key) {
    const Member* const gone = Find(key);
    keys_->erase(keys_->find(key));
    std::erase_if(members_, [&](const auto& member) { return member.get() == gone; });
  }

  void Clear() {
    members_.clear();
    keys_.reset();
  }

  auto begin() { return Walk<typename Members::iterator, Member>(members_.begin()); }
  auto end() { return Walk<typename Members::iterator, Member>(members_.end()); }
  auto begin() const { return Walk<typename Members::const_iterator, const Member>(members_.begin()); }
  auto end() const { return Walk<typename Members::const_iterator, const Member>(members_.end()); }

 protected:
  /// Appends a member; an empty key is no key. The members stay as they were where the key is taken.
  Member& Add(std::unique_ptr<Member> member, std::string_view key) {
    if (members_.empty())
      members_.reserve(kUsualCount);
    if (key.empty())
      return *members_.emplace_back(std::move(member));
    if (!keys_)
      keys_ = std::make_unique<Keys>();
    if (keys_->contains(key))
      Raise(error_number::kDuplicateKey);
    Member& added = *members_.emplace_back(std::move(member));
    keys_->emplace(key, &added);
    return added;
  }

 private:
  using Keys = std::map<std::string, Member*, std::less<>>;

  /// A payment has two to five records.
  static constexpr size_t kUsualCount = 4;

  size_t Index(int32_t position) const {
    if (position < 1 || position > Count())
      Raise(error_number::kSubscriptOutOfRange);
    return static_cast<size_t>(position) - 1;
  }

  Member* Find(std::string_view key) const {
    if (keys_) {
      if (const auto found = keys_->find(key); found != keys_->end())
        return found->second;
    }
    Raise(error_number::kInvalidProcedureCall);
  }

  Members members_;
  /// Made with the first key: records are positional, and most collections never hold one.
  std::unique_ptr<Keys> keys_;
};

}  // namespace fiscalon
