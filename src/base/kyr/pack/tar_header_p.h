/// \file
/// The blocks of 512 bytes that stand before the files of a tar stream.
#pragma once

#include <kyr/pack/tar_sparse_p.h>

#include <QByteArray>
#include <QList>

#include <array>
#include <cstdint>
#include <optional>

namespace Kyr::Tar {

constexpr unsigned blockSize = 512;

using Block = std::array<unsigned char, blockSize>;

/// What the type field of a header can mean here.
enum Kind_t {
  File,
  LongName,    ///< its content is the name of the next entry (GNU)
  LongLink,    ///< its content is where the next entry leads (GNU)
  Attributes,  ///< its content are records about the next entry (POSIX)
  SparseFile,  ///< more blocks may follow the header (GNU)
  HardLink,    ///< a further name of an earlier file, without content
  Directory,   ///< without content
  Aside,       ///< skipped with its content; what was said about the next entry still holds
  NoFile,      ///< skipped with its content: labels, and lists of what directories held
  SoftLink,    ///< no file; without content
  Device,      ///< no file; without content
  Pipe,        ///< no file; without content
  Unknown,     ///< skipped with its content
};

/// What POSIX records say about an entry.
struct Record {
  QByteArray path;
  QByteArray linkPath;
  std::optional<std::int64_t> size;
  std::optional<std::int64_t> modified;
  SparseMap sparse;
};

/// A plain file as its header tells of it.
struct Entry {
  QByteArray name;  ///< UTF-8
  std::int64_t modified;
  std::int64_t size;
};

/// Makes a header of the oldest form.
/// \return why the entry does not fit; null when it does
const char* makeHeader(Block& block, const Entry& entry);

/// All that stands before the content of an entry of any name, time and size: the oldest form as
/// far as it goes, with POSIX records before it for what does not fit.
QByteArray makeHeaders(const Entry& entry);

/// Whether the checksum fits, be its bytes summed up as signed or as unsigned ones.
bool checksumFits(const Block& block);

bool isZero(const Block& block);
/// What an entry is by its type field alone; by their names, files of the oldest programs may be
/// directories.
Kind_t kindOf(const Block& block);
char typeOf(const Block& block);
/// The name with its POSIX prefix.
QByteArray nameIn(const Block& block);
/// Where a link leads.
QByteArray linkIn(const Block& block);
/// The size that a header tells; nothing for what is no number or a negative one.
std::optional<std::int64_t> sizeIn(const Block& block);
std::int64_t modifiedIn(const Block& block);

/// Adds what a block tells of where the data of a sparse file stand.
/// \param isFirst whether it is the header itself
/// \return whether another such block follows
bool readSparseBlock(const Block& block, bool isFirst, SparseMap& map);

/// Adds records to what earlier ones said.
/// \param left how many records and parts of sparse files may still come; lowered by what is found
/// \return false for bytes that are no records, or too many
bool readRecords(const QByteArray& bytes, Record& record, std::uint64_t& left);

}  // namespace Kyr::Tar
