#include "output.h"

#include "console_p.h"

#include <cerrno>
#include <iostream>
#include <streambuf>

namespace KyrTool {

namespace {

/// What stands behind standard output: the standard library's own tries for ever where a device
/// takes nothing and calls that no failure.
class OutputBuffer : public std::streambuf {
 public:
  OutputBuffer() { setp(_bytes, _bytes + sizeof _bytes); }

 protected:
  int_type overflow(int_type character) override {
    if (sync() != 0) {
      return traits_type::eof();
    }
    return traits_type::eq_int_type(character, traits_type::eof())
               ? traits_type::not_eof(character)
               : sputc(traits_type::to_char_type(character));
  }
  std::streamsize xsputn(const char* bytes, std::streamsize count) override {
    if (count < epptr() - pptr()) {
      return std::streambuf::xsputn(bytes, count);
    }
    return sync() == 0 && send(bytes, count) ? count : 0;
  }
  int sync() override {
    const std::streamsize count = pptr() - pbase();
    setp(pbase(), epptr());
    return send(pbase(), count) ? 0 : -1;
  }

 private:
  static bool send(const char* bytes, std::streamsize count) {
    std::streamsize done = 0;
    while (done < count) {
      const std::ptrdiff_t written =
          writeToOutput(bytes + done, static_cast<std::size_t>(count - done));
      if (written <= 0) {
        return false;
      }
      done += written;
    }
    return true;
  }

  char _bytes[65536];
};

enum class Loss { None, ReaderLeft, NoSpace, Other };
Loss loss = Loss::None;

/// Has to come right after the write, as long as errno is that of the failure.
void noteLoss() {
  if (loss == Loss::None && !std::cout) {
    loss = readerHasLeft() ? Loss::ReaderLeft : errno == ENOSPC ? Loss::NoSpace : Loss::Other;
  }
}

/// A fault may quote an argument of any length; what is wrong with it stands at the end.
QString shortened(const QString& fault) {
  constexpr int most = 600, head = 400, tail = 100;
  return fault.size() <= most ? fault : fault.left(head) + " ... " + fault.right(tail);
}

}  // namespace

void prepareOutput() {
  static OutputBuffer& buffer = *new OutputBuffer;  // std::cout is flushed when all else is gone
  std::cout.rdbuf(&buffer);
}

void print(const QString& text) {
  const QByteArray bytes = text.toUtf8();
  writeBytes(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

void printError(const QString& fault) {
  std::cout.flush();
  noteLoss();
  std::cerr << "kyr: " << printable(shortened(fault)).toUtf8().constData() << '\n';
}

bool writeBytes(const char* bytes, std::size_t count) {
  std::cout.write(bytes, static_cast<std::streamsize>(count));
  noteLoss();
  return loss == Loss::None;
}

bool finishOutput() {
  std::cout.flush();
  noteLoss();
  if (loss == Loss::None || loss == Loss::ReaderLeft) {
    return true;
  }
  printError(loss == Loss::NoSpace ? "standard output: no space left"
                                   : "standard output: cannot be written");
  return false;
}

QString printable(const QString& text) {
  QString shown;
  for (const QChar character : text) {
    if (character.isPrint() || character.isSurrogate()) {
      shown += character;
    } else {
      shown += QString("\\x%1").arg(character.unicode(), 2, 16, QLatin1Char('0'));
    }
  }
  return shown;
}

}  // namespace KyrTool
