/// \file
/// The text codecs of files, and the line that announces one.
#pragma once

#include <kyr/core/KyrPlatform.h>

#include <QByteArray>
#include <QString>

#include <string>
#include <type_traits>

namespace Kyr {

/// The codec of a text file. Values from outside convert as Latin-1 and have empty names.
enum TextCodec_t : int {
  CodecLatin1 = 0,  ///< "iso8859-1"
  CodecUtf8 = 1,    ///< "utf-8"
};

/// The codec's name as it stands in a marker line; static text, empty for an unknown codec.
/// \threadsafety any thread
KYR_EXPORT const char* getNameForCodec(TextCodec_t codec);

/// The comment line that announces the codec at the head of a text file, without line end.
/// \return static text, empty for an unknown codec
/// \threadsafety any thread
KYR_EXPORT const char* getCodecForLine(TextCodec_t codec);

/// Looks for a codec marker in one line of a text file: "<defaultcodec>" and a codec's name, both
/// anywhere in it, so that other data with these words is a marker, too. With both names in it,
/// UTF-8 wins.
/// \param line ends in a zero byte
/// \param codec receives the codec found, otherwise stays as it is
/// \return whether there is a marker with a known codec
/// \threadsafety any thread
KYR_EXPORT bool getCodecInLine(const char* line, TextCodec_t* codec);

/// The bytes of a text; characters that Latin-1 lacks become "?" there.
/// \threadsafety any thread
KYR_EXPORT QByteArray toCodec(TextCodec_t codec, const QString& text);

/// The text of some bytes.
/// \param length in bytes
/// \threadsafety any thread
KYR_EXPORT QString fromCodec(TextCodec_t codec, const char* data, int length);
/// The text of all bytes of a string, zero bytes included.
/// \throws std::bad_alloc for more bytes than a QString holds
KYR_EXPORT QString fromCodec(TextCodec_t codec, std::string bytes);
/// The text of all bytes of a QByteArray, zero bytes included. A template, because a literal would
/// fit this as well as the string above.
/// \threadsafety any thread
template <class Bytes, class = std::enable_if_t<std::is_same_v<Bytes, QByteArray>>>
QString fromCodec(TextCodec_t codec, const Bytes& bytes) {
  return fromCodec(codec, bytes.toStdString());  // which tells what is too long
}

/// The codec of text that the suite exchanges with others; always UTF-8.
/// \threadsafety any thread
KYR_EXPORT TextCodec_t actualExportCodec();

/// toCodec() with the export codec.
/// \threadsafety any thread
KYR_EXPORT QByteArray toExportCodec(const QString& text);
/// fromCodec() with the export codec.
/// \threadsafety any thread
KYR_EXPORT QString fromExportCodec(const char* data, int length);
KYR_EXPORT QString fromExportCodec(std::string bytes);
template <class Bytes, class = std::enable_if_t<std::is_same_v<Bytes, QByteArray>>>
QString fromExportCodec(const Bytes& bytes) {
  return fromExportCodec(bytes.toStdString());
}

}  // namespace Kyr
