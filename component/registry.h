#pragma once

#include <ole2.h>

#include <string>

namespace fiscalon::component {

/// A branch of the registry, by paths below it.
class Registry {
 public:
  /// `name` is what errors call the root.
  Registry(HKEY root, std::wstring name) : root_(root), name_(std::move(name)) {}

  /// Makes the key, and those above it, and sets a text of it; an empty name is its default value. Throws
  /// ComponentError.
  void Write(const std::wstring& path, const std::wstring& name, const std::wstring& text) const;
  /// Takes the key away with all below it. A key that is not there is fine. Throws ComponentError.
  void Remove(const std::wstring& path) const;
  /// The same for a key in which nothing is left.
  void RemoveIfEmpty(const std::wstring& path) const;
  bool Has(const std::wstring& path) const;

 private:
  /// Throws, unless that is success.
  void Check(LSTATUS status, const char* what, const std::wstring& path) const;

  HKEY root_;
  std::wstring name_;
};

}  // namespace fiscalon::component
