/// \file
/// Gzip-compressed tar archives, in memory and in files.
#pragma once

#include <kyr/core/KyrPlatform.h>
#include <kyr/core/KyrStructVector.h>
#include <kyr/os/KyrOS.h>
#include <kyr/pack/KyrZipPieces.h>
#include <kyr/trace/KyrTrace.h>

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <fstream>
#include <functional>
#include <memory>
#include <ostream>
#include <utility>
#include <vector>

namespace Kyr {

class TarTarget;

namespace TarFiles {
struct Facts;
}

/// Something that an archive, or what was taken out of it, is without.
/// \threadsafety a value
struct ZippedTarLoss {
  QString name;    ///< on the disk, or in the archive
  QString reason;  ///< in English
};

/// Writes plain files into a gzip-compressed tar archive of the oldest form of header.
///
/// Add files, then call addEof() and flush(). Directories become the names of their files; links
/// and everything else that is no file is not recorded. Names in the archive have at most 99 bytes
/// in UTF-8, and not many letters beyond ASCII; files have less than 8 GiB, and times from 1970 to
/// 2242. setTaking() takes these bounds away. The format: docs/formats/zipped-tar.md.
///
/// When a file cannot be added, the archive stays well formed and takes further files. When the
/// archive itself cannot be written, that is final. An archive that is given up before addEof()
/// looks incomplete to everybody who reads it.
///
/// \code
/// SafeFile file("project.tar.gz");
/// ZippedTarWriter writer(&file.stream());
/// writer.setTaking(ZippedTarWriter::TakeAll);
/// writer.addDirectory(name, true, "project");
/// writer.addEof();
/// writer.flush();
/// for (const ZippedTarLoss& loss : writer.getLosses()) {
///   std::cerr << loss.name.toStdString() << ": " << loss.reason.toStdString() << '\n';
/// }
/// file.commit();
/// \endcode
///
/// Told who compresses, it does so in pieces that need nothing of each other, on as many
/// processors. The archive is one gzip member as well, which every gunzip reads, a little larger
/// and the same for every number of workers.
/// \threadsafety one thread at a time
class KYR_EXPORT ZippedTarWriter {
 public:
  /// What becomes of files that the oldest form of header cannot hold, or that cannot be read.
  enum Taking_t {
    RefuseUnfit = 0,  ///< they are refused with an exception
    TakeAll = 1,      ///< longer names, larger sizes and other times are written as records of
                      ///< POSIX, which every tar of today reads; who cannot be added is found in
                      ///< getLosses(), and the others are added
  };

  /// Writes into memory, and needs less than 1 MB beside what it writes.
  /// \param out is emptied; complete after flush(); must outlive this object and be left alone
  /// \throws std::bad_alloc
  explicit ZippedTarWriter(StructVector<unsigned char>* out);
  /// Creates or empties a file and writes to it, for trees that do not fit into memory.
  /// \throws Exception whose text is \a fileName when it cannot be written; std::bad_alloc
  explicit ZippedTarWriter(const QString& fileName);
  /// Writes to a stream of the caller's.
  /// \param target must outlive this object
  /// \throws std::bad_alloc
  explicit ZippedTarWriter(std::ostream* target);
  /// The same three, compressing in pieces, which needs the memory that ZipPieces tells.
  ZippedTarWriter(StructVector<unsigned char>* out, const ZipPieces& pieces);
  ZippedTarWriter(const QString& fileName, const ZipPieces& pieces);
  ZippedTarWriter(std::ostream* target, const ZipPieces& pieces);
  /// Finishes the compression, unless that was done; without addEof() only so far that all content
  /// can be salvaged, but every reader finds the archive cut short. A failure stays unnoticed.
  ~ZippedTarWriter();
  ZippedTarWriter(const ZippedTarWriter&) = delete;
  ZippedTarWriter& operator=(const ZippedTarWriter&) = delete;

  /// Decides for what is added from now on; RefuseUnfit at first.
  void setTaking(Taking_t taking) { _taking = taking; }

  /// Calls a function for every part of files' content that is added, as for a progress.
  /// \param added called with the bytes of the part, by the thread that adds; throws nothing
  void setWatcher(std::function<void(std::uint64_t bytes)> added) { _watcher = std::move(added); }

  /// Adds a plain file with the size that it has now: what it grows meanwhile is left out.
  /// \param name in the archive
  /// \throws Exception whose text is \a path when there is no such file, it cannot be read, its
  ///         name, size or time does not fit into a header, or it shrinks meanwhile; in the last
  ///         case the archive holds what was there, filled up with zeros. The reason is the last
  ///         of getLosses(). With TakeAll nothing is thrown for the file's sake
  /// \throws Exception whose text is the archive's name, or std::bad_alloc, when the archive
  ///         cannot be written
  void addFile(const QString& path, const QString& name);

  /// Adds a file that only the memory holds.
  /// \param name in the archive
  /// \param modified in seconds since 1970-01-01 00:00 UTC
  /// \throws Exception whose text is \a name when that or the time does not fit into a header, but
  ///         not with TakeAll; the others of addFile() for the archive
  void addContents(const QString& name, const QByteArray& contents, std::int64_t modified);

  /// Adds the files of a directory, sorted by code points. Entries that cannot be read are left
  /// out and found in getUnread(). Left out are also the file that this object writes and what is
  /// no file. A link to a file counts as that file; one to a directory is never followed.
  /// \param recursive whether subdirectories are added as well
  /// \param prefix stands before the files' names in the archive, with a "/" between them
  /// \throws Exception whose text is \a dir when it cannot be listed; the others of addFile().
  ///         With TakeAll neither; links to directories, and what is no file, then are losses
  void addDirectory(const QString& dir, bool recursive, const QString& prefix);

  /// Leaves a file out of what addDirectory() adds from now on, under all names that come to the
  /// same when made absolute.
  void leaveOut(const QString& fileName);

  /// Writes the mark of the archive's end. Readers look no further: files that are added later are
  /// refused, or losses, as those that do not fit.
  /// \throws as flush()
  void addEof();

  /// Finishes the compression; further calls do nothing, and nothing can be added any more.
  /// \throws Exception whose text is the archive's name, or std::bad_alloc, when the archive
  ///         cannot be written
  void flush();

  /// The files added so far.
  unsigned int getFileCount() const { return _fileCount; }
  /// The full names of the files and directories that addDirectory() could not read so far.
  const QStringList& getUnread() const { return _unread; }
  /// What the archive is without so far, or holds filled up with zeros, and why; names as they were
  /// given to addFile(), or full ones.
  const std::vector<ZippedTarLoss>& getLosses() const { return _losses; }

 private:
  KYR_HIDDEN QString writeHeader(const QString& name, std::int64_t modified, std::int64_t size);
  KYR_HIDDEN QString addStream(std::ifstream& in, const QString& name, std::int64_t modified,
                               std::int64_t size);
  KYR_HIDDEN bool copyContent(std::ifstream& in, std::int64_t size);
  KYR_HIDDEN void fillLastBlock(std::int64_t size);
  KYR_HIDDEN bool expectAdded(const QString& path, const QString& reason);
  KYR_HIDDEN QString addIfReadable(const QString& path, const TarFiles::Facts& facts,
                                   const QString& name);
  KYR_HIDDEN void addEntries(const QString& dir, const QStringList& entries, bool recursive,
                             const QString& prefix);
  KYR_HIDDEN void addEntry(const QString& path, bool recursive, const QString& name);

  TraceLife _traced{"ZippedTarWriter", "save"};
  std::unique_ptr<TarTarget> _target;
  QStringList _leftOut;  // absolute names
  QStringList _unread;
  std::vector<ZippedTarLoss> _losses;
  unsigned int _fileCount = 0;
  Taking_t _taking = RefuseUnfit;
  std::function<void(std::uint64_t)> _watcher;
  bool _hasEnd = false;
  // What later versions need besides.
  [[maybe_unused]] void* _more = nullptr;
};

/// How much a ZippedTarReader takes from an archive, as a small one can unpack to anything.
/// \threadsafety a value
struct ZippedTarLimits {
  std::uint64_t totalSize = 512U << 20U;  ///< of the unpacked stream, headers included, of copies
                                          ///< for hard links and of holes in files; in bytes
  unsigned entries = 100000;              ///< of all kinds, those that are skipped included
  unsigned records = 1000000;             ///< of POSIX about entries, and parts of sparse files
  /// For later versions.
  std::uintptr_t spare[4] = {};
};

/// Takes a gzip-compressed tar archive in memory apart.
///
/// Reads what ZippedTarWriter writes and also the archives of other programs: with checksums of
/// signed or unsigned bytes, with long names of GNU tar and of POSIX, with sparse files. A hard
/// link is a file with the content of the earlier one. Symbolic links, devices and pipes are passed
/// over and found in getLosses(); directories only extractTo() minds.
/// \code
/// const ZippedTarReader archive(packed);
/// if (archive.isValid()) {
///   archive.extractTo(name);
/// }
/// \endcode
///
/// What takes long can be watched, and stopped by an exception:
/// \code
/// ProgressScope progress("unpack", packed.size());
/// const ZippedTarReader watched(packed, ZippedTarLimits(), [&](std::uint64_t bytes, unsigned) {
///   progress.step(bytes);
///   throwIfStopped();
/// });
/// \endcode
/// \threadsafety one thread at a time; any number while nobody assigns
class KYR_EXPORT ZippedTarReader {
 public:
  /// Is told how far a function is, on the thread that called it, several times for a large file.
  /// An exception of it ends the function and comes out of it.
  /// \param bytes since the last call; may be 0
  /// \param files that are whole by now
  using Watcher = std::function<void(std::uint64_t bytes, unsigned files)>;

  /// Reads all of \a data, which is not needed afterwards. Damage shows in isValid().
  explicit ZippedTarReader(const StructVector<unsigned char>& data,
                           const ZippedTarLimits& limits = ZippedTarLimits());
  /// Reads all of \a data, as above.
  /// \param watcher told the bytes of \a data and the files that are read; not empty
  /// \throws what \a watcher throws, but std::bad_alloc counts as want of memory
  ZippedTarReader(const StructVector<unsigned char>& data, const ZippedTarLimits& limits,
                  const Watcher& watcher);
  ~ZippedTarReader();

  /// Whether the archive was read to the mark of its end. False when it is damaged, cut short,
  /// beyond the limits or too large for the memory; the files before that place can be read all the
  /// same.
  bool isValid() const { return _valid; }
  /// The number of files.
  unsigned int size() const { return static_cast<unsigned int>(_files.size()); }

  /// Copies a file out.
  /// \param index below size()
  /// \param name, contents not null
  /// \throws ProgError "Invalid file index"
  void getFile(unsigned int index, QString* name, std::vector<unsigned char>* contents) const;
  /// \param index below size()
  /// \throws ProgError "Invalid file index"
  const QString& getName(unsigned int index) const;
  /// \param index below size()
  /// \throws ProgError "Invalid file index"
  const std::vector<unsigned char>& getContents(unsigned int index) const;
  /// When a file was changed last, in seconds since 1970-01-01 00:00 UTC.
  /// \param index below size()
  /// \throws ProgError "Invalid file index"
  std::int64_t getModificationTime(unsigned int index) const;

  /// The entries that are no files here, so far as the archive could be read.
  const std::vector<ZippedTarLoss>& getLosses() const { return _losses; }

  /// Writes all files below a directory, which is made if it is missing, and makes the archive's
  /// directories; replaces files that are there already. Nothing is written unless the archive is
  /// valid and all names are harmless and possible here; Windows has no files called "NUL.txt",
  /// "a:b" or "a.", for example. Links to directories that stand below the directory already are
  /// followed.
  ///
  /// A file takes its name in one step, when it is whole. So whatever had that name before is
  /// replaced, not written to: neither the other names of a hard link nor what a symbolic link
  /// leads to change.
  /// \throws Exception for an archive that is not valid, for such a name, or whose text ends with
  ///         the path of a file that cannot be written
  void extractTo(const QString& directory) const;
  /// Writes all files, as above.
  /// \param existing KeepExisting: nothing is written if one of the names is taken already
  /// \throws Exception also, and with that path at the end of its text, for a name that is taken
  void extractTo(const QString& directory, OS::Existing_t existing) const;
  /// Writes all files, as above.
  /// \param watcher told the bytes of content and the files that are written; not empty
  /// \throws what \a watcher throws also; the files that it was told of are there then, as are the
  ///         directories, and nothing of any other
  void extractTo(const QString& directory, OS::Existing_t existing, const Watcher& watcher) const;

 private:
  struct File {
    QString name;
    std::vector<unsigned char> contents;
    std::int64_t modified;
  };
  friend class TarParser;
  KYR_HIDDEN const File& at(unsigned int index, const char* function, unsigned line) const;

  std::vector<File> _files;
  std::vector<QString> _directories;
  std::vector<ZippedTarLoss> _losses;
  bool _valid = false;
  // What later versions need besides.
  std::shared_ptr<void> _more;
};

}  // namespace Kyr
