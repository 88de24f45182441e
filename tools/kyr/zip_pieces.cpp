#include "zip_pieces.h"

#include "json.h"
#include "output.h"
#include "zip_state.h"

#include <kyr/i18n/KyrTranslate.h>
#include <kyr/terminal/KyrColumns.h>

#include <algorithm>
#include <limits>

namespace KyrTool {

namespace {

constexpr std::uint64_t manyPieces = 20;
constexpr std::uint64_t firstOfMany = 12;
constexpr std::uint64_t lastOfMany = 3;

QString atRight(const QString& text, int columns) {
  return QString(std::max(columns - Kyr::columnsOf(text), 0), ' ') + text;
}

void showRow(const QString& number, const QString& place, const QString& size,
             const QString& plainPlace, const QString& plainSize, const QString& crc) {
  print(QString("%1 %2 %3 %4 %5  %6\n")
            .arg(atRight(number, 7), atRight(place, 14), atRight(size, 9), atRight(plainPlace, 14),
                 atRight(plainSize, 9), crc));
}

void showSummary(const Kyr::ZipInStream& zip, std::uint64_t count) {
  std::uint64_t smallest = std::numeric_limits<std::uint64_t>::max(), largest = 0, all = 0;
  std::uint64_t content = 0;
  for (std::uint64_t i = 0; i < count; ++i) {
    const Kyr::ZipPieceInfo piece = zip.getPiece(i);
    smallest = std::min(smallest, piece.size);
    largest = std::max(largest, piece.size);
    all += piece.size;
    content += piece.plainSize;
  }
  print(Kyr::translate("Kyr_tool", "%1 with %2 of content in %3, %4 to %5 each")
            .arg(counted(count, Piece), counted(content, Byte), counted(all, Byte))
            .arg(smallest)
            .arg(largest) +
        '\n');
}

QString checksumText(const Kyr::ZipPieceInfo& piece) {
  return QString("%1").arg(piece.crc, 8, 16, QLatin1Char('0'));
}

void showPiece(const Kyr::ZipInStream& zip, std::uint64_t number) {
  const Kyr::ZipPieceInfo piece = zip.getPiece(number);
  showRow(QString::number(number), QString::number(piece.offset), QString::number(piece.size),
          QString::number(piece.plainOffset), QString::number(piece.plainSize),
          checksumText(piece));
}

}  // namespace

void showPieces(const Kyr::ZipInStream& zip, bool isAllWanted) {
  const std::uint64_t count = zip.getStatistics().pieces;
  if (count == 0) {
    return;
  }
  const bool isShortened = !isAllWanted && count > manyPieces;
  showSummary(zip, count);
  showRow(Kyr::translate("Kyr_tool", "piece"), Kyr::translate("Kyr_tool", "at byte"),
          Kyr::translate("Kyr_tool", "packed"), Kyr::translate("Kyr_tool", "content at"),
          Kyr::translate("Kyr_tool", "content"), "CRC-32");
  for (std::uint64_t i = 0; i < (isShortened ? firstOfMany : count); ++i) {
    showPiece(zip, i);
  }
  if (isShortened) {
    print("    ... " +
          Kyr::translate("Kyr_tool", "%1 more; --all shows them")
              .arg(count - firstOfMany - lastOfMany) +
          '\n');
    for (std::uint64_t i = count - lastOfMany; i < count; ++i) {
      showPiece(zip, i);
    }
  }
}

QJsonArray jsonOfPieces(const Kyr::ZipInStream& zip) {
  QJsonArray pieces;
  for (std::uint64_t i = 0; i < zip.getStatistics().pieces; ++i) {
    const Kyr::ZipPieceInfo piece = zip.getPiece(i);
    pieces += QJsonObject{{"offset", jsonNumber(piece.offset)},
                          {"size", jsonNumber(piece.size)},
                          {"contentOffset", jsonNumber(piece.plainOffset)},
                          {"contentSize", jsonNumber(piece.plainSize)},
                          {"crc32", checksumText(piece)}};
  }
  return pieces;
}

}  // namespace KyrTool
