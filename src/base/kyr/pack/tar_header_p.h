/// \file
/// The blocks of 512 bytes that stand before the files of a tar stream.
#pragma once

#include <QByteArray>
#include <QList>

#include <array>
#include <cstdint>
#include <optional>

namespace Kyr::Tar {

constexpr unsigned blockSize = 512;

using Block = std::array<unsigned char, blockSize>;

/// What the type field of a header can mean here.
enum Kind {
  File,
  LongName,       ///< its content is the name of the next entry (GNU)
  Attributes,     ///< its content are records about the next entry (POSIX)
  SparseFile,     ///< skipped; more blocks may follow the header (GNU)
  Aside,          ///< skipped with its content; what was said about the next entry still holds
  WithContent,    ///< skipped with its content
  WithoutContent  ///< skipped; its size field counts nothing
};

/// What POSIX records say about an entry.
struct Record {
  QByteArray path;
  std::optional<std::int64_t> size;
  std::optional<std::int64_t> modified;
  bool isSparse = false;  ///< the content is not the file as it was
};

/// Makes the header of a plain file.
/// \param name UTF-8
/// \return false when the name is too long or a number has too many digits; the negative count
///         as such
bool makeHeader(Block& block, const QByteArray& name, std::int64_t modified, std::int64_t size);

/// Whether the checksum fits, be its bytes summed up as signed or as unsigned ones.
bool checksumFits(const Block& block);

bool isZero(const Block& block);
Kind kindOf(const Block& block);
/// The name with its POSIX prefix.
QByteArray nameIn(const Block& block);
/// \return nothing for what is no number or a negative one
std::optional<std::int64_t> sizeIn(const Block& block);
std::int64_t modifiedIn(const Block& block);
/// Whether a block about a sparse file is followed by another one.
bool sparseHeaderGoesOn(const Block& block, bool isFirst);

/// Adds records to what earlier ones said.
/// \return false for bytes that are no records
bool readRecords(const QByteArray& bytes, Record& record);

}  // namespace Kyr::Tar
