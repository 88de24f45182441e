#include "commands.h"
#include "input.h"
#include "output.h"

#include <kyr/text/KyrCRC16.h>

namespace KyrTool {

namespace {

unsigned short checksumOf(Input& input) {
  constexpr std::size_t pieceSize = 1U << 16U;
  Kyr::StructVector<unsigned char> piece;
  unsigned short checksum = 0;
  do {
    input.read(piece, pieceSize);
    checksum = Kyr::CRC16::compute(piece.data(), piece.size(), checksum);
  } while (piece.size() == pieceSize);
  return checksum;
}

}  // namespace

int crc16(const Arguments& arguments) {
  for (int i = 0; i < arguments.count(); ++i) {
    Input input(arguments[i]);
    const QString checksum = QString("%1").arg(checksumOf(input), 4, 16, QLatin1Char('0'));
    print(checksum + "  " + printable(arguments[i]) + "\n");
  }
  return Fine;
}

}  // namespace KyrTool
