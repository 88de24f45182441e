#include "commands.h"
#include "output.h"
#include "zip_state.h"

namespace KyrTool {

namespace {

QString contentText(const Kyr::ZipStatistics& statistics) {
  return QString("%1 bytes of content in %2 blocks")
      .arg(statistics.plainBytes)
      .arg(statistics.blocks);
}

QString restText(std::uint64_t bytes) {
  return bytes > 0 ? QString("; %1 bytes follow its end").arg(bytes) : QString();
}

}  // namespace

int zipVerify(const Arguments& arguments) {
  Input input(arguments[0]);
  Kyr::ZipInStream zip(&input.stream(), anyVersion);
  readToEnd(zip);
  input.expectNoFailure();
  QString text = stateText(zip);
  if (codeOf(zip) == Fine) {
    text += ", " + contentText(zip.getStatistics()) + restText(countRest(input));
  } else if (zip.getHeaderError() == Kyr::ZipInStream::HeaderGood) {
    text += "; readable before: " + contentText(zip.getStatistics());
  }
  print(QString("%1: %2\n").arg(printable(input.name()), text));
  return codeOf(zip);
}

}  // namespace KyrTool
