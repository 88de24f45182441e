#include "output.h"

#include "console_p.h"

#include <kyr/i18n/KyrTranslate.h>

#include <cerrno>
#include <iostream>
#include <streambuf>
#include <utility>

namespace KyrTool {

namespace {

std::function<void()> beforeWriting;

void makeRoom(Stream_t stream) {
  if (beforeWriting && isTerminal(stream)) {
    beforeWriting();
  }
}

/// The buffer of standard output. The standard library's own would try for ever where a device
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
    makeRoom(StandardOutput);
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

enum class Loss_t { None, ReaderLeft, NoSpace, Other };
Loss_t loss = Loss_t::None;

/// Notes why output was lost, by errno: to be called right after the write that failed.
void noteLoss() {
  if (loss == Loss_t::None && !std::cout) {
    loss = readerHasLeft() ? Loss_t::ReaderLeft : errno == ENOSPC ? Loss_t::NoSpace : Loss_t::Other;
  }
}

bool usesColours(Stream_t stream) {
  return qEnvironmentVariableIsEmpty("NO_COLOR") && showsColours(stream);
}

QString inColour(const QString& text, Style_t style) {
  const char* const codes[] = {"1", "32", "1;31"};  // bold, green, bold and red
  return QString("\x1b[%1m%2\x1b[0m").arg(codes[style], text);
}

/// A fault without its middle if it is very long: it may quote an argument of any length, and what
/// is wrong with it stands at the end.
QString shortened(const QString& fault) {
  constexpr int most = 600, head = 400, tail = 100;
  return fault.size() <= most ? fault : fault.left(head) + " ... " + fault.right(tail);
}

}  // namespace

void prepareOutput() {
  static OutputBuffer& buffer = *new OutputBuffer;  // std::cout is flushed when all else is gone
  std::cout.rdbuf(&buffer);
}

void setBeforeWriting(std::function<void()> function) {
  beforeWriting = std::move(function);
}

void print(const QString& text) {
  const QByteArray bytes = text.toUtf8();
  writeBytes(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

void printError(const QString& fault) {
  std::cout.flush();
  noteLoss();
  makeRoom(StandardError);
  const bool isColoured = usesColours(StandardError);
  const QString start = isColoured ? inColour("kyr:", Bad) : QString("kyr:");
  std::cerr << start.toUtf8().constData() << ' ' << printable(shortened(fault)).toUtf8().constData()
            << '\n';
}

bool writeBytes(const char* bytes, std::size_t count) {
  std::cout.write(bytes, static_cast<std::streamsize>(count));
  noteLoss();
  return loss == Loss_t::None;
}

bool finishOutput() {
  std::cout.flush();
  noteLoss();
  if (loss == Loss_t::None || loss == Loss_t::ReaderLeft) {
    return true;
  }
  printError(loss == Loss_t::NoSpace
                 ? Kyr::translate("Kyr_tool", "standard output: no space left")
                 : Kyr::translate("Kyr_tool", "standard output: cannot be written"));
  return false;
}

QString styled(const QString& text, Style_t style) {
  static const bool isColoured = usesColours(StandardOutput);
  return isColoured ? inColour(text, style) : text;
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
