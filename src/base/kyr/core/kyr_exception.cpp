#include <kyr/core/KyrException.h>

namespace Kyr {

Exception::Exception() : std::logic_error(std::string()) {}

Exception::Exception(const QString& text) : std::logic_error(text.toUtf8().toStdString()) {}

Exception::~Exception() = default;

QString Exception::getText() const {
  return QString::fromUtf8(what());
}

namespace FileParse {

Error::Error() = default;
Error::Error(const QString& text) : Exception(text) {}
Error::~Error() = default;

EndOfFile::EndOfFile() = default;
EndOfFile::EndOfFile(const QString& text) : Error(text) {}
EndOfFile::~EndOfFile() = default;

}  // namespace FileParse
}  // namespace Kyr
