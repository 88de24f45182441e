/// \file
/// Files of which an archive holds only the parts with data, as GNU tar and others write them.
#pragma once

#include <QByteArray>

#include <cstdint>
#include <vector>

namespace Kyr::Tar {

/// Where the data of a sparse file stand.
struct SparseMap {
  bool isThere = false;      ///< the entry is a sparse file
  bool isInContent = false;  ///< the numbers stand before the data, each on a line
  QByteArray name;           ///< of the file; may be empty
  std::int64_t size = 0;     ///< of the file, in bytes
  /// Offsets and sizes by turns.
  std::vector<std::int64_t> numbers;
};

/// Whether parts follow one another within the file and make up its data.
/// \param stored the size of the data in the archive, in bytes
bool fits(const SparseMap& map, std::int64_t stored);

/// Adds numbers that stand between characters of one kind.
/// \param left how many may still come; lowered by what is found
/// \return false for what is no such list, or too long
bool readNumbers(const QByteArray& text, char separator, std::vector<std::int64_t>& numbers,
                 std::uint64_t& left);

}  // namespace Kyr::Tar
