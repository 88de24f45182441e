/// \file
/// Keeps a measurement safely, lists its directory, and removes that again.
///
///   files DIRECTORY
///
/// Exit codes: 0 all is well, 1 something failed, 2 wrong usage.

#include <kyr/core/KyrException.h>
#include <kyr/files/KyrSafeFile.h>
#include <kyr/log/KyrErrorLog.h>
#include <kyr/os/KyrOS.h>
#include <kyr/pack/KyrZipStream.h>

#include <QDateTime>

#include <iostream>
#include <string>

using namespace Kyr;

namespace {

/// Reads the new project before it takes the place of the old one: a damaged file must not.
void readBack(const QString& project) {
  ZipInStream in(project, 1);
  while (in.ignore(65536)) {
  }
  if (in.getState() != ZipInStream::StreamComplete) {
    throw Exception(QString("%1 cannot be read back").arg(project));
  }
}

/// Saves a measurement, which cannot be repeated: until the new project is complete, the old stays.
void save(const QString& project, const std::string& measurement) {
  SafeFile file(project);
  ZipOutStream zip(&file.stream(), 1);
  zip << measurement;
  zip.close();
  file.commit(readBack);
}

void list(const QString& directory) {
  for (const QString& name : OS::listDirectory(directory)) {
    const OS::FileStatus status = OS::getStatus(directory + "/" + name);
    const QDateTime time = QDateTime::fromMSecsSinceEpoch(status.modified);
    std::cout << time.toString(Qt::ISODate).toStdString() << "  " << status.size << "  "
              << name.toStdString() << (status.isDirectory ? "/" : "") << '\n';
  }
}

/// Keeps a measurement in a directory, and removes that again.
/// \return whether nothing is left
bool run(const QString& directory) {
  const QString project = directory + "/part.kyr";
  OS::makeDirectory(directory + "/earlier");
  save(project, "the first measurement");
  OS::rename(project, directory + "/earlier/part.kyr", OS::ReplaceExisting);
  save(project, std::string(100000, '2'));
  list(directory);
  ErrorLog log;
  const bool isGone = OS::deleteDirectoryRecursion(directory, &log);
  std::cerr << log.getLog().toStdString();
  std::cout << (isGone ? "nothing is left\n" : "");
  return isGone;
}

}  // namespace

int main(int count, char** words) {
  if (count != 2 || words[1][0] == '-' || OS::stat(QString::fromLocal8Bit(words[1]))) {
    std::cerr << "usage: files DIRECTORY, which must not be there yet\n";
    return 2;
  }
  try {
    return run(QString::fromLocal8Bit(words[1])) ? 0 : 1;
  } catch (const Exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
}
