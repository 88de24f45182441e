#include "commands.h"
#include "input.h"
#include "output.h"

#include <kyr/i18n/KyrTranslate.h>
#include <kyr/text/KyrBase64.h>

#include <QtGlobal>

namespace KyrTool {

namespace {

using Bytes = Kyr::StructVector<unsigned char>;

constexpr std::size_t pieceSize = 3U << 16U;  // whole groups, of three bytes or four characters

bool deliver(const Bytes& bytes) {
  return writeBytes(reinterpret_cast<const char*>(bytes.data()), bytes.size());
}

constexpr bool isSpace(unsigned char byte) {
  return byte == ' ' || (byte >= '\t' && byte <= '\r');
}

constexpr bool isLetter(unsigned char byte) {
  return (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z') ||
         (byte >= '0' && byte <= '9') || byte == '+' || byte == '/';
}

/// Gathers groups for the decoder, and refuses characters that it would take for padding.
class Groups {
 public:
  /// Adds the characters of a piece without white space, up to the first that is wrong.
  /// \return false when there is such a one
  bool add(const Bytes& piece) {
    for (const unsigned char byte : piece) {
      if (!isSpace(byte)) {
        if (!fits(byte)) {
          return false;
        }
        _text.append(byte);
        _padded = byte == '=' && !isWhole();
      }
      ++_position;
    }
    return true;
  }

  /// Takes out the bytes of the groups that are complete.
  Bytes takeBytes() {
    const std::size_t whole = _text.size() / 4 * 4;
    Bytes rest;
    rest.append(_text.data() + whole, _text.size() - whole);
    _text.setSize(whole);
    Bytes bytes;
    Kyr::Base64::decode(_text, &bytes);
    _text.swap(rest);
    return bytes;
  }

  bool isWhole() const { return _text.size() % 4 == 0; }
  /// The place of the wrong character in the input, counted from 0.
  quint64 position() const { return _position; }

 private:
  /// At most the last two characters of a group are padding.
  bool fits(unsigned char byte) const {
    return byte == '=' ? _text.size() % 4 >= 2 : isLetter(byte) && !_padded;
  }

  Bytes _text;
  bool _padded = false;  // whether the group that is not complete yet has padding
  quint64 _position = 0;
};

}  // namespace

int base64Encode(const Arguments& arguments) {
  Input input(arguments[0]);
  Bytes piece;
  Bytes text;
  do {
    input.read(piece, pieceSize);
    text.clear();
    Kyr::Base64::encode(piece, &text);
  } while (deliver(text) && piece.size() == pieceSize);
  print("\n");
  return Fine;
}

int base64Decode(const Arguments& arguments) {
  Input input(arguments[0]);
  Groups groups;
  Bytes piece;
  bool good = true;
  do {
    input.read(piece, pieceSize);
    good = groups.add(piece);
    if (!deliver(groups.takeBytes())) {
      return Fine;  // what becomes of lost output is decided at the end
    }
  } while (good && piece.size() == pieceSize);
  if (!good) {
    throw FileError{Kyr::translate("Kyr_tool", "%1: no Base64 at byte %2")
                        .arg(input.name())
                        .arg(groups.position())};
  }
  if (!groups.isWhole()) {
    throw FileError{
        Kyr::translate("Kyr_tool", "%1: ends within a group of four characters").arg(input.name())};
  }
  return Fine;
}

}  // namespace KyrTool
