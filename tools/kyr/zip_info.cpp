#include "commands.h"
#include "output.h"
#include "zip_state.h"

#include <QDateTime>

namespace KyrTool {

namespace {

void row(const char* title, const QString& text) {
  constexpr int width = 17;
  print(QString(title).leftJustified(width) + text + "\n");
}

QString bytesText(std::uint64_t count) {
  return QString("%1 bytes").arg(count);
}

QString ratioText(const Kyr::ZipStatistics& statistics) {
  if (statistics.compressedBytes == 0) {
    return "-";
  }
  return QString::number(
      static_cast<double>(statistics.plainBytes) / static_cast<double>(statistics.compressedBytes),
      'f', 2);
}

void showHeader(const Kyr::ZipHeaderInfo& header) {
  row("file version", QString::number(header.fileVersion));
  row("library version", printable(header.libraryVersion));
  row("written", QDateTime::fromSecsSinceEpoch(header.time, Qt::UTC).toString(Qt::ISODate));
  row("header size", bytesText(header.headerSize));
}

void showBlocks(const Kyr::ZipStatistics& statistics) {
  row("blocks", QString::number(statistics.blocks));
  row("compressed", bytesText(statistics.compressedBytes));
  row("content", bytesText(statistics.plainBytes));
  row("ratio", ratioText(statistics));
  row("stream size", bytesText(statistics.offset));
}

}  // namespace

int zipInfo(const Arguments& arguments) {
  Input input(arguments[0]);
  Kyr::ZipInStream zip(&input.stream(), anyVersion);
  readToEnd(zip);
  input.expectNoFailure();
  if (zip.getHeaderError() != Kyr::ZipInStream::HeaderGood) {
    throw FileError{QString("%1: %2").arg(input.name(), stateText(zip))};
  }
  row("file", printable(input.name()));
  row("state", stateText(zip));
  showHeader(zip.getHeaderInfo());
  showBlocks(zip.getStatistics());
  if (codeOf(zip) == Fine) {
    row("behind the end", bytesText(countRest(input)));
  }
  return codeOf(zip);
}

}  // namespace KyrTool
