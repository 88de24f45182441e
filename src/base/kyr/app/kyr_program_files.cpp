#include <kyr/app/KyrInit.h>

#include <kyr/os/KyrOS.h>

#include <QDir>

#include <array>
#include <cwchar>

namespace Kyr {

namespace {

constexpr int longestTempDirectory = 260;

/// Writes a text's decimal digits in front of \a end, without the heap.
/// \return where they begin
wchar_t* writeDigits(wchar_t* end, unsigned number) {
  do {
    *--end = static_cast<wchar_t>(L'0' + number % 10);
    number /= 10;
  } while (number > 0);
  return end;
}

/// Writes texts one behind the other into a buffer, as far as they fit.
class Appender {
 public:
  Appender(wchar_t* buffer, unsigned size)
      : _start(buffer), _at(buffer + std::wcslen(buffer)), _end(buffer + size) {}

  void append(const wchar_t* text, std::size_t length) {
    _fits = _fits && length < static_cast<std::size_t>(_end - _at);
    if (_fits) {
      _at = std::wmemcpy(_at, text, length) + length;
    }
  }
  /// Ends the text with a zero.
  /// \return whether everything fitted; otherwise the text is empty
  bool finish() {
    (_fits ? _at : _start)[0] = L'\0';
    return _fits;
  }

 private:
  wchar_t* _start;
  wchar_t* _at;
  wchar_t* _end;
  bool _fits = true;
};

}  // namespace

QString KyrInit::getProgramLogfile(unsigned pid) {
  const QString directory = OS::getTempDirectory();
  if (pid == 0 || directory.isEmpty() || directory.size() > longestTempDirectory) {
    return OS::nullDevice();
  }
  return directory + QDir::separator() + "ORV-" + QString::number(pid) + ".log";
}

bool KyrInit::getProgramCrashdumpfile(unsigned pid, wchar_t* buffer, unsigned size) {
  if (!OS::getTempDirectory(buffer, size)) {
    return false;
  }
  std::array<wchar_t, 16> number;
  const wchar_t* const digits = writeDigits(number.data() + number.size(), pid);
  const auto separator = static_cast<wchar_t>(QDir::separator().unicode());
  Appender path(buffer, size);
  path.append(&separator, 1);
  path.append(L"ORV-", 4);
  path.append(digits, static_cast<std::size_t>(number.data() + number.size() - digits));
  path.append(L".dmp", 4);
  return path.finish();
}

}  // namespace Kyr
