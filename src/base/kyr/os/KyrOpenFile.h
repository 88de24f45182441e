/// \file
/// A file that closes itself.
#pragma once

#include <kyr/core/KyrPlatform.h>
#include <kyr/os/KyrOS.h>

#include <QString>

#include <cstdio>
#include <iostream>
#include <memory>

namespace Kyr {

/// A file that is open as long as the object lives, for what takes a C stream and for what takes a
/// standard stream. Both are binary and share one position and one buffer, so they may take turns.
///
/// \code
/// OpenFile scan("scan.obj");
/// FileParse::File keyed(scan.getStream());
///
/// OpenFile list("list.txt", OS::OpenWrite);
/// list.stream() << "Größe\n";
/// list.close();  // throws when the disk is full
/// \endcode
///
/// A project of the user is saved by SafeFile, which leaves the old file or the new one.
/// \threadsafety one thread at a time
class KYR_EXPORT OpenFile {
 public:
  /// Opens the file as OS::openFile() does.
  /// \throws Exception "cannot open NAME: REASON", in English
  explicit OpenFile(const QString& name, OS::OpenMode mode = OS::OpenRead);
  /// Closes the file. That not all was written is only told by close().
  ~OpenFile();
  /// Streams that were asked for before stay with the file.
  /// \param other is only good for being destroyed or assigned to afterwards
  OpenFile(OpenFile&& other) noexcept;
  OpenFile& operator=(OpenFile&& other) noexcept;

  /// As it was given to the constructor.
  const QString& getName() const;
  /// \return null after close(); never to be closed by the caller
  std::FILE* getStream() const;
  /// For reading or for writing, as the file was opened; the other way fails. It can be moved where
  /// the file can. A read that fails makes it bad(), the end of the file does not. Fails after
  /// close().
  std::iostream& stream();

  /// Closes the file, once; the second time it does nothing.
  /// \throws Exception with name and reason when a write or a read has failed since the file was
  ///     opened, or what is still to be written cannot be; the file is closed all the same
  void close();

 private:
  struct Private;
  std::unique_ptr<Private> _private;
};

}  // namespace Kyr
