#include "zip_state.h"

#include "arguments.h"

#include <vector>

namespace KyrTool {

using Kyr::ZipInStream;

bool readToEnd(ZipInStream& zip, const Taker& take) {
  std::vector<char> piece(1U << 16U);
  bool isTaken = true;
  do {
    zip.clear();
    zip.read(piece.data(), static_cast<std::streamsize>(piece.size()));
    isTaken = take(piece.data(), static_cast<std::size_t>(zip.gcount()));
  } while (isTaken && !zip.eof());
  return isTaken;
}

void readToEnd(ZipInStream& zip) {
  readToEnd(zip, [](const char*, std::size_t) { return true; });
}

std::uint64_t countRest(Input& input) {
  std::uint64_t count = 0;
  while (input.stream().ignore(1 << 16).gcount() > 0) {
    count += static_cast<std::uint64_t>(input.stream().gcount());
  }
  return count;
}

QString stateText(const ZipInStream& zip) {
  const QString at = QString(" at byte %1").arg(zip.getStatistics().offset);
  switch (zip.getState()) {
    case ZipInStream::StreamComplete:
      return "complete";
    case ZipInStream::StreamCutShort:
      return "cut short" + at;
    case ZipInStream::StreamDamaged:
      return "damaged" + at;
    case ZipInStream::StreamRefused:
      return zip.getHeaderErrorText().simplified();
    case ZipInStream::StreamOpen:
      break;
  }
  return "not read to its end";
}

int codeOf(const ZipInStream& zip) {
  return zip.getState() == ZipInStream::StreamComplete ? Fine : FileAtFault;
}

}  // namespace KyrTool
