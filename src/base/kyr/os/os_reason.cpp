#include <kyr/os/os_reason_p.h>

#include <kyr/core/KyrException.h>

#include <cerrno>

namespace Kyr::Platform {

namespace {

constexpr int longestName = 32767;  // no system takes more

struct Words {
  int error;
  const char* text;
};

constexpr Words words[] = {
    {ENOENT, "there is no such file or directory"},
    {EACCES, "access is denied"},
    {EPERM, "the system does not permit it"},
    {EEXIST, "something of this name is there already"},
    {ENOTDIR, "it is no directory, or below something that is none"},
    {EISDIR, "it is a directory"},
    {ENOTEMPTY, "the directory is not empty"},
    {EBUSY, "another program uses it"},
    {ETXTBSY, "it is a program that is running"},
    {ENOSPC, "no space is left on the disk"},
    {EFBIG, "the file would be larger than is allowed"},
    {EROFS, "the disk can only be read"},
    {ENAMETOOLONG, "the name is too long"},
    {EINVAL, "the system does not accept the name"},
    {ELOOP, "too many links lead from one to the next"},
    {EMLINK, "too many links lead to it"},
    {EXDEV, "the other place is on another disk"},
    {EIO, "the disk or its connection failed"},
    {EPIPE, "the other side has left"},
    {ENXIO, "the device is not there"},
    {ENODEV, "the device is not there"},
    {EMFILE, "this program has too many files open"},
    {ENFILE, "the system has too many files open"},
    {ENOMEM, "there is not enough memory"},
    {ENOSYS, "the system cannot do that"},
    {ENOEXEC, "it is no program for this system"},
};

}  // namespace

const char* const badName = "the name is empty, too long or holds a zero character";

QString inWords(const SystemError& error) {
  for (const Words& known : words) {
    if (known.error == error.known) {
      return known.text;
    }
  }
  return QString("the system reports error %1").arg(error.native);
}

bool isName(const QString& name) {
  return !name.isEmpty() && name.size() <= longestName && !name.contains(QChar::Null);
}

void fail(const char* what, const QString& name, const QString& reason) {
  const QString text = QString(what).replace("%1", name) + ": " + reason;
  throw Exception(QString(text).replace(QChar::Null, "\\0"));
}

void fail(const char* what, const QString& name) {
  fail(what, name, inWords(lastError()));
}

void expectName(const char* what, const QString& name) {
  if (!isName(name)) {
    fail(what, name, badName);
  }
}

}  // namespace Kyr::Platform
