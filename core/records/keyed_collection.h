#pragma once

#include <compare>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <iterator>
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
  using Members = std::vector<std::shared_ptr<Member>>;

  /// Walks the members in order, as references, with all that the standard algorithms want.
  template <typename Reference>
  class Walk {
   public:
    using iterator_category = std::random_access_iterator_tag;
    using value_type = Member;
    using difference_type = std::ptrdiff_t;
    using pointer = Reference*;
    using reference = Reference&;

    Walk() = default;
    explicit Walk(const std::shared_ptr<Member>* at) : at_(at) {}
    /// Whoever may change a member may read it.
    operator Walk<const Member>() const { return Walk<const Member>(at_); }

    reference operator*() const { return **at_; }
    pointer operator->() const { return at_->get(); }
    reference operator[](difference_type steps) const { return *at_[steps]; }

    Walk& operator++() { return *this += 1; }
    Walk& operator--() { return *this -= 1; }
    Walk operator++(int) { return std::exchange(*this, *this + 1); }
    Walk operator--(int) { return std::exchange(*this, *this - 1); }
    Walk& operator+=(difference_type steps) {
      at_ += steps;
      return *this;
    }
    Walk& operator-=(difference_type steps) { return *this += -steps; }
    friend Walk operator+(Walk walk, difference_type steps) { return walk += steps; }
    friend Walk operator+(difference_type steps, Walk walk) { return walk += steps; }
    friend Walk operator-(Walk walk, difference_type steps) { return walk -= steps; }
    friend difference_type operator-(const Walk& a, const Walk& b) { return a.at_ - b.at_; }
    friend auto operator<=>(const Walk&, const Walk&) = default;

   private:
    const std::shared_ptr<Member>* at_ = nullptr;
  };

 public:
  using value_type = Member;                  ///< what the standard algorithms ask for
  using iterator = Walk<Member>;              ///< walks the members as references
  using const_iterator = Walk<const Member>;  ///< the same, for members that stay as they are

  /// The member at a position from 1. Error 9 where there is none.
  template <std::integral Position>
  Member& Item(Position position) {
    return *members_[Index(position)];
  }
  template <std::integral Position>
  const Member& Item(Position position) const {
    return *members_[Index(position)];
  }
  /// The member of a key. Error 5 where there is none.
  Member& Item(std::string_view key) { return *Find(key)->second; }
  const Member& Item(std::string_view key) const { return *Find(key)->second; }

  /// A member that whoever takes it may keep: it stays what it is when the collection lets it go.
  template <std::integral Position>
  std::shared_ptr<Member> Kept(Position position) const {
    return members_[Index(position)];
  }
  std::shared_ptr<Member> Kept(std::string_view key) const { return Find(key)->second; }

  /// How many members there are.
  int32_t Count() const { return static_cast<int32_t>(members_.size()); }

  /// Takes a member out; those behind it move up. Error 9 where there is none.
  template <std::integral Position>
  void Remove(Position position) {
    const size_t index = Index(position);
    if (keys_)
      std::erase_if(*keys_, [&](const auto& entry) { return entry.second == members_[index]; });
    members_.erase(members_.begin() + static_cast<std::ptrdiff_t>(index));
  }

  /// Takes the member of a key out. Error 5 where there is none.
  void Remove(std::string_view key) {
    const auto found = Find(key);
    std::erase(members_, found->second);
    keys_->erase(found);
  }

  /// Takes all members out.
  void Clear() {
    members_.clear();
    keys_.reset();
  }

  /// The members in their order, for `for` and the standard algorithms. Whatever adds or removes ends the walk.
  iterator begin() { return iterator(members_.data()); }
  const_iterator begin() const { return const_iterator(members_.data()); }
  /// Behind the last member.
  iterator end() { return iterator(members_.data() + members_.size()); }
  const_iterator end() const { return const_iterator(members_.data() + members_.size()); }

 protected:
  /// Appends a member; an empty key is no key. The members stay as they were where the key is taken.
  Member& Add(std::shared_ptr<Member> member, std::string_view key) {
    if (members_.empty())
      members_.reserve(kUsualCount);
    if (key.empty())
      return *members_.emplace_back(std::move(member));
    if (!keys_)
      keys_ = std::make_unique<Keys>();
    if (keys_->contains(key))
      Raise(error_number::kDuplicateKey);
    const std::shared_ptr<Member>& added = members_.emplace_back(std::move(member));
    keys_->emplace(key, added);
    return *added;
  }

 private:
  using Keys = std::map<std::string, std::shared_ptr<Member>, std::less<>>;

  /// A payment has two to five records.
  static constexpr size_t kUsualCount = 4;

  /// A position of any width: none is cut before it is looked at.
  template <std::integral Position>
  size_t Index(Position position) const {
    if (std::cmp_less(+position, 1) || std::cmp_greater(+position, members_.size()))
      Raise(error_number::kSubscriptOutOfRange);
    return static_cast<size_t>(position) - 1;
  }

  typename Keys::iterator Find(std::string_view key) const {
    if (keys_) {
      if (const auto found = keys_->find(key); found != keys_->end())
        return found;
    }
    Raise(error_number::kInvalidProcedureCall);
  }

  Members members_;
  /// Made with the first key: records are positional, and most collections never hold one.
  std::unique_ptr<Keys> keys_;
};

}  // namespace fiscalon
