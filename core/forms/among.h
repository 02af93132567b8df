#pragma once

#include <vector>

namespace fiscalon {

/// Has somebody in a list for the time of a scope.
template <class T>
class Among {
 public:
  Among(std::vector<T*>& list, T& member) : list_(list), member_(&member) { list_.push_back(member_); }
  // The list may have been cleared meanwhile.
  ~Among() { std::erase(list_, member_); }
  Among(const Among&) = delete;
  Among& operator=(const Among&) = delete;

 private:
  std::vector<T*>& list_;
  T* member_;
};

}  // namespace fiscalon
