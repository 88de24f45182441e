/// \file
/// Removing in a tree of directories while somebody may exchange a directory for a link.
#pragma once

#include <QString>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace Kyr::Platform {

/// A name as the system has it, which need not be Unicode.
using NativeName = std::filesystem::path::string_type;

/// Stands in a directory and removes entries of it. What it stands in stays the same directory,
/// whoever renames what meanwhile. Whoever answers false leaves the reason in lastError().
///
/// Platform files define its members.
class TreeWalker {
 public:
  /// Stands in \a start, if that can be opened; follows links.
  explicit TreeWalker(const QString& start);
  ~TreeWalker();
  TreeWalker(const TreeWalker&) = delete;
  TreeWalker& operator=(const TreeWalker&) = delete;

  /// A single name, without directory, as the system has it.
  static NativeName nativeName(const QString& name);

  bool isOpen() const { return !_levels.empty(); }

  enum Kind_t { Missing, Directory, Other };  // a link to a directory is something other
  Kind_t kindOf(const NativeName& name) const;

  /// The names of this directory, without "." and "..".
  bool list(std::vector<NativeName>& names) const;
  /// Removes what is no directory; fails for one.
  bool removeOther(const NativeName& name) const;
  bool removeDirectory(const NativeName& name) const;

  /// Goes down into a directory, if it is one, no link to one, and nothing is mounted there.
  bool enter(const NativeName& name);
  /// Goes back up.
  /// \return false when the way back is lost; the walker then is not open any more
  bool leave();

 private:
  /// A directory that it stands in or has come through.
  struct Level {
    std::intptr_t handle = 0;  ///< negative: closed, to save descriptors
    std::uint64_t device = 0;  ///< with the number, no other directory has the same
    std::uint64_t number = 0;
    NativeName path;  ///< set on the platforms that know entries by their paths only
  };

  bool push(std::intptr_t handle, const NativeName& path);
  NativeName pathOf(const NativeName& name) const;

  std::vector<Level> _levels;
};

}  // namespace Kyr::Platform
