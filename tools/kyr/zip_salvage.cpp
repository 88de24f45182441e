#include "commands.h"
#include "input.h"
#include "output.h"
#include "pieces.h"
#include "target.h"
#include "zip_state.h"

#include <kyr/i18n/KyrTranslate.h>
#include <kyr/pack/KyrZipSalvage.h>

#include <algorithm>
#include <iostream>
#include <vector>

namespace KyrTool {

namespace {

using Kyr::translate;
using Kyr::ZipPart;

/// What came out of a stream.
struct Sums {
  std::uint64_t checked = 0;
  std::uint64_t unchecked = 0;
  std::uint64_t zeros = 0;
  QStringList losses;
};

void writeZeros(std::ostream& target, std::uint64_t count) {
  static const std::vector<char> zeros(1U << 16U);
  for (std::uint64_t left = count; left > 0 && target;) {
    const std::uint64_t portion = std::min<std::uint64_t>(left, zeros.size());
    target.write(zeros.data(), static_cast<std::streamsize>(portion));
    left -= portion;
  }
}

Sums salvageInto(std::ostream& target, Kyr::ZipSalvage& salvage, bool withZeros) {
  Sums sums;
  for (ZipPart part; target && salvage.next(&part);) {
    target.write(part.bytes.data(), static_cast<std::streamsize>(part.bytes.size()));
    switch (part.state) {
      case ZipPart::Checked:
        sums.checked += part.plainSize;
        break;
      case ZipPart::Unchecked:
        sums.unchecked += part.plainSize;
        break;
      case ZipPart::Lost:
        writeZeros(target, withZeros ? part.plainSize : 0);
        sums.zeros += withZeros ? part.plainSize : 0;
        sums.losses += lossText(part);
        break;
    }
  }
  return sums;
}

QString sumText(const Sums& sums, bool isWhole) {
  QString text = translate("Kyr_tool", "%1 of content saved")
                     .arg(counted(sums.checked + sums.unchecked, Byte));
  if (isWhole) {
    return text + translate("Kyr_tool", ": all that was written");
  }
  if (sums.unchecked > 0) {
    text += translate("Kyr_tool", ", which may be wrong: there is no index");
  } else if (sums.checked > 0) {
    text += translate("Kyr_tool", ", all of them checked");
  }
  if (sums.zeros > 0) {
    text += translate("Kyr_tool", "; zeros in place of %1").arg(counted(sums.zeros, Byte));
  }
  return text;
}

/// \param isOnOutput whether standard output has the content
void tell(const QString& line, bool isOnOutput) {
  isOnOutput ? printError(line) : print(line + "\n");
}

int report(const QString& name, const Sums& sums, bool isWhole, bool isOnOutput) {
  for (const QString& loss : sums.losses) {
    tell(QString("%1: %2").arg(printable(name), loss), isOnOutput);
  }
  tell(QString("%1: %2").arg(printable(name), sumText(sums, isWhole)), isOnOutput);
  return isWhole ? Fine : FileAtFault;
}

}  // namespace

int zipSalvage(const Arguments& arguments) {
  const Kyr::ZipPieces pieces = piecesOf(arguments);
  const bool isOnOutput = arguments[1] == "-";
  const bool withZeros = !arguments.has("leave-out");
  expectOtherFile(arguments[0], arguments[1]);
  Input input(arguments[0]);
  Kyr::ZipSalvage salvage(&input.stream());
  salvage.setWorkers(pieces);
  if (!salvage.hasIndex() && salvage.getHeaderError() != Kyr::ZipInStream::HeaderGood) {
    input.expectNoFailure();
    throw FileError{QString("%1: %2").arg(input.name(), salvage.getHeaderErrorText().simplified())};
  }
  if (isOnOutput) {
    const Sums sums = salvageInto(std::cout, salvage, withZeros);
    return report(input.name(), sums, salvage.isWhole(), isOnOutput);
  }
  Target target(arguments[1]);
  const Sums sums = salvageInto(target.stream(), salvage, withZeros);
  target.complete();
  return report(input.name(), sums, salvage.isWhole(), isOnOutput);
}

}  // namespace KyrTool
