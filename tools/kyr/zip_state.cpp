#include "zip_state.h"

#include "arguments.h"

#include <kyr/i18n/KyrTranslate.h>

#include <vector>

namespace KyrTool {

using Kyr::translate;
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

QString counted(std::uint64_t number, Thing_t thing) {
  const struct {
    const char* one;
    const char* many;
  } texts[] = {
      QT_TRANSLATE_N_NOOP3("Kyr_tool", "%1 byte", "%1 bytes"),
      QT_TRANSLATE_N_NOOP3("Kyr_tool", "%1 block", "%1 blocks"),
      QT_TRANSLATE_N_NOOP3("Kyr_tool", "%1 piece", "%1 pieces"),
      QT_TRANSLATE_N_NOOP3("Kyr_tool", "%1 checked piece", "%1 checked pieces"),
  };
  return translate("Kyr_tool", texts[thing].one, texts[thing].many, number).arg(number);
}

QString lossText(const Kyr::ZipPart& part) {
  if (!part.isSizeKnown) {
    return translate("Kyr_tool",
                     "lost: nobody knows how much behind byte %1 of the content (bytes %2 to %3 of "
                     "the stream)")
        .arg(part.plainOffset)
        .arg(part.offset)
        .arg(part.offset + part.size);
  }
  const QString text =
      part.isUnreadable
          ? translate(
                "Kyr_tool",
                "cannot be read: bytes %1 to %2 of the content (bytes %3 to %4 of the stream)")
          : translate("Kyr_tool",
                      "lost: bytes %1 to %2 of the content (bytes %3 to %4 of the stream)");
  return text.arg(part.plainOffset)
      .arg(part.plainOffset + part.plainSize)
      .arg(part.offset)
      .arg(part.offset + part.size);
}

QString stateText(const ZipInStream& zip) {
  const QString offset = QString::number(zip.getStatistics().offset);
  switch (zip.getState()) {
    case ZipInStream::StreamComplete:
      return translate("Kyr_tool", "complete");
    case ZipInStream::StreamCutShort:
      return translate("Kyr_tool", "cut short at byte %1").arg(offset);
    case ZipInStream::StreamDamaged:
      return translate("Kyr_tool", "damaged at byte %1").arg(offset);
    case ZipInStream::StreamUnreadable:
      return translate("Kyr_tool", "cannot be read at byte %1").arg(offset);
    case ZipInStream::StreamRefused:
      return zip.getHeaderErrorText().simplified();
    case ZipInStream::StreamOpen:
      break;
  }
  return translate("Kyr_tool", "not read to its end");
}

QString stateName(const ZipInStream& zip) {
  switch (zip.getState()) {
    case ZipInStream::StreamComplete:
      return "complete";
    case ZipInStream::StreamCutShort:
      return "cut short";
    case ZipInStream::StreamDamaged:
      return "damaged";
    case ZipInStream::StreamUnreadable:
      return "unreadable";
    case ZipInStream::StreamRefused:
      return "refused";
    case ZipInStream::StreamOpen:
      break;
  }
  return "open";
}

int codeOf(const ZipInStream& zip) {
  return zip.getState() == ZipInStream::StreamComplete ? Fine : FileAtFault;
}

}  // namespace KyrTool
