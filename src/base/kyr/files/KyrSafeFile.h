/// \file
/// Saving that leaves the old file or the new one, whatever happens.
#pragma once

#include <kyr/core/KyrPlatform.h>

#include <QString>

#include <functional>
#include <memory>
#include <ostream>

namespace Kyr {

/// A new file that takes the place of an old one in one step, when it is complete.
///
/// What is written to stream() goes to a temporary file beside the target. commit() brings it to
/// the disk, checks it and renames it over the target. A crash, a power cut or a full disk at any
/// moment leaves the target as it was or as it is to be, whole. Without commit() nothing happens to
/// it. What a killed process left behind is removed by the next save into the same directory, if
/// that has at most 1000 entries, otherwise by the first one of the next process.
///
/// \code
/// SafeFile file("part.kyr");
/// ZipOutStream zip(&file.stream(), 1);
/// zip.write(room, sizeof room);
/// zip.close();
/// file.commit();  // from here on "part.kyr" is the new file
/// \endcode
///
/// The new file keeps the permissions of the old one. A link stays, and the file that it leads to
/// is replaced. Other hard links of the old file keep the old content. For more see
/// docs/decisions/0005-safe-saving.md.
/// \threadsafety one thread per object; of several that save the same file the last one wins
class KYR_EXPORT SafeFile {
 public:
  /// Examines the complete temporary file; throws an Exception to refuse it.
  using Check = std::function<void(const QString& temporaryName)>;

  /// Creates the temporary file.
  /// \param name absolute, or relative to the present current directory; need not exist, but its
  ///        directory must
  /// \throws Exception when the target may not be written, is no plain file, or the directory
  ///         takes no new file
  explicit SafeFile(const QString& name);
  /// As discard().
  ~SafeFile();
  SafeFile(const SafeFile&) = delete;
  SafeFile& operator=(const SafeFile&) = delete;

  /// Takes the bytes of the new file, in binary; cannot be moved back. It fails after commit() and
  /// discard().
  std::ostream& stream();

  /// The file that is going to be replaced, with its full path and behind all links.
  const QString& getTargetName() const;
  /// The file that stream() writes, with its full path, in the directory of the target.
  const QString& getTemporaryName() const;

  /// Puts the new file in the place of the old one. Close before whatever uses stream(): a
  /// ZipOutStream or ZippedTarWriter that is still open, or has failed, is refused.
  ///
  /// If another program holds the target, tries for two seconds; afterwards the new file still is
  /// complete, and commit() may be called again.
  /// \param check is called when all is on the disk; by default nothing but the size is checked
  /// \throws Exception with the name and the reason: not all was written, or the target cannot be
  ///         replaced; it then is unchanged, as it is when \a check throws, which comes out as it
  ///         is. Only if the message begins with "saved" it is the new one, but may not survive a
  ///         power cut
  void commit(const Check& check = {});

  /// Removes the temporary file; needs no memory. After commit() it does nothing.
  void discard() noexcept;

 private:
  class Buffer;
  struct Private;
  std::unique_ptr<Private> _private;
};

}  // namespace Kyr
