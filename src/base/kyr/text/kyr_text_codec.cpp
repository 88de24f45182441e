#include <kyr/text/KyrTextCodec.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <utility>

namespace Kyr {

namespace {

bool contains(const char* line, const char* part) {
  return std::strstr(line, part) != nullptr;
}

int qtLength(const std::string& bytes) {
  constexpr std::size_t longest = std::numeric_limits<int>::max();
  return static_cast<int>(std::min(bytes.size(), longest));
}

}  // namespace

const char* getNameForCodec(TextCodec_t codec) {
  switch (codec) {
    case CodecLatin1:
      return "iso8859-1";
    case CodecUtf8:
      return "utf-8";
  }
  return "";
}

const char* getCodecForLine(TextCodec_t codec) {
  switch (codec) {
    case CodecLatin1:
      return "# <defaultcodec>iso8859-1</defaultcodec>";
    case CodecUtf8:
      return "# <defaultcodec>utf-8</defaultcodec>";
  }
  return "";
}

bool getCodecInLine(const char* line, TextCodec_t* codec) {
  if (!contains(line, "<defaultcodec>")) {
    return false;
  }
  // The name may stand anywhere in the line: markers are edited by hand.
  for (const TextCodec_t known : {CodecUtf8, CodecLatin1}) {
    if (contains(line, getNameForCodec(known))) {
      *codec = known;
      return true;
    }
  }
  return false;
}

QByteArray toCodec(TextCodec_t codec, const QString& text) {
  return codec == CodecUtf8 ? text.toUtf8() : text.toLatin1();
}

QString fromCodec(TextCodec_t codec, const char* data, int length) {
  return codec == CodecUtf8 ? QString::fromUtf8(data, length) : QString::fromLatin1(data, length);
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): given, see docs/decisions/0006
QString fromCodec(TextCodec_t codec, std::string bytes) {
  return fromCodec(codec, bytes.data(), qtLength(bytes));
}

TextCodec_t actualExportCodec() {
  return CodecUtf8;
}

QByteArray toExportCodec(const QString& text) {
  return toCodec(actualExportCodec(), text);
}

QString fromExportCodec(const char* data, int length) {
  return fromCodec(actualExportCodec(), data, length);
}

QString fromExportCodec(std::string bytes) {
  return fromCodec(actualExportCodec(), std::move(bytes));
}

}  // namespace Kyr
