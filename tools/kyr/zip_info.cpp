#include "commands.h"
#include "json.h"
#include "output.h"
#include "zip_pieces.h"
#include "zip_state.h"

#include <kyr/i18n/KyrTranslate.h>
#include <kyr/terminal/KyrColumns.h>

#include <QDateTime>

#include <algorithm>
#include <utility>
#include <vector>

namespace KyrTool {

namespace {

using Kyr::translate;

/// Titles with what they are about.
using Rows = std::vector<std::pair<QString, QString>>;

void show(const Rows& rows) {
  int width = 17;
  for (const auto& row : rows) {
    width = std::max(width, Kyr::columnsOf(row.first) + 2);
  }
  for (const auto& row : rows) {
    print(Kyr::filledTo(row.first, width) + row.second + '\n');
  }
}

QString ratioText(const Kyr::ZipStatistics& statistics) {
  if (statistics.compressedBytes == 0) {
    return "-";
  }
  return QString::number(
      static_cast<double>(statistics.plainBytes) / static_cast<double>(statistics.compressedBytes),
      'f', 2);
}

QString timeText(unsigned seconds) {
  return QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC).toString(Qt::ISODate);
}

void addHeader(Rows& rows, const Kyr::ZipHeaderInfo& header) {
  rows.insert(rows.end(),
              {{translate("Kyr_tool", "file version"), QString::number(header.fileVersion)},
               {translate("Kyr_tool", "library version"), printable(header.libraryVersion)},
               {translate("Kyr_tool", "written"), timeText(header.time)},
               {translate("Kyr_tool", "header size"), counted(header.headerSize, Byte)}});
}

void addBlocks(Rows& rows, const Kyr::ZipStatistics& statistics) {
  rows.insert(rows.end(),
              {{translate("Kyr_tool", "blocks"), QString::number(statistics.blocks)},
               {translate("Kyr_tool", "compressed"), counted(statistics.compressedBytes, Byte)},
               {translate("Kyr_tool", "content"), counted(statistics.plainBytes, Byte)},
               {translate("Kyr_tool", "ratio"), ratioText(statistics)}});
  if (statistics.hasIndex) {
    rows.emplace_back(translate("Kyr_tool", "pieces"), QString::number(statistics.pieces));
  }
  rows.emplace_back(translate("Kyr_tool", "stream size"), counted(statistics.offset, Byte));
}

QJsonObject jsonOf(const QString& file, const Kyr::ZipInStream& zip) {
  const Kyr::ZipHeaderInfo header = zip.getHeaderInfo();
  const Kyr::ZipStatistics statistics = zip.getStatistics();
  return {{"file", file},
          {"state", stateName(zip)},
          {"fileVersion", jsonNumber(header.fileVersion)},
          {"libraryVersion", header.libraryVersion},
          {"written", timeText(header.time)},
          {"headerSize", jsonNumber(header.headerSize)},
          {"blocks", jsonNumber(statistics.blocks)},
          {"compressedBytes", jsonNumber(statistics.compressedBytes)},
          {"contentBytes", jsonNumber(statistics.plainBytes)},
          {"pieces", jsonNumber(statistics.pieces)},
          {"streamSize", jsonNumber(statistics.offset)}};
}

}  // namespace

int zipInfo(const Arguments& arguments) {
  Input input(arguments[0]);
  Kyr::ZipInStream zip(&input.stream(), anyVersion);
  readToEnd(zip);
  input.expectNoFailure();
  if (codeOf(zip) == Fine && !zip.getStatistics().hasIndex) {
    input.expectAllRead();  // there may be an index that could not be read
  }
  if (zip.getHeaderError() != Kyr::ZipInStream::HeaderGood) {
    throw FileError{QString("%1: %2").arg(input.name(), stateText(zip))};
  }
  if (arguments.has("json")) {
    QJsonObject facts = jsonOf(arguments[0], zip);
    if (codeOf(zip) == Fine) {
      facts["bytesBehind"] = jsonNumber(countRest(input));
    }
    if (arguments.has("all")) {
      facts["pieceList"] = jsonOfPieces(zip);
    }
    printJson(facts);
    return codeOf(zip);
  }
  Rows rows = {
      {translate("Kyr_tool", "file"), printable(input.name())},
      {translate("Kyr_tool", "state"), styled(stateText(zip), codeOf(zip) == Fine ? Good : Bad)}};
  addHeader(rows, zip.getHeaderInfo());
  addBlocks(rows, zip.getStatistics());
  if (codeOf(zip) == Fine) {
    const QString title = zip.getStatistics().hasIndex ? translate("Kyr_tool", "index")
                                                       : translate("Kyr_tool", "behind the end");
    rows.emplace_back(title, counted(countRest(input), Byte));
  }
  show(rows);
  showPieces(zip, arguments.has("all"));
  return codeOf(zip);
}

}  // namespace KyrTool
