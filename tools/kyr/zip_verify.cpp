#include "commands.h"
#include "output.h"
#include "zip_state.h"

namespace KyrTool {

namespace {

QString counted(std::uint64_t number, const char* thing) {
  return QString("%1 %2%3").arg(number).arg(thing, number == 1 ? "" : "s");
}

QString contentText(const Kyr::ZipStatistics& statistics) {
  return counted(statistics.plainBytes, "byte") + " of content in " +
         counted(statistics.blocks, "block");
}

QString restText(std::uint64_t bytes) {
  return bytes > 0 ? "; behind its end: " + counted(bytes, "byte") : QString();
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
