#include "commands.h"
#include "json.h"
#include "output.h"
#include "pieces.h"
#include "zip_state.h"

#include <kyr/i18n/KyrTranslate.h>
#include <kyr/pack/KyrZipSalvage.h>

#include <QJsonArray>

#include <vector>

namespace KyrTool {

namespace {

using Kyr::translate;

QString contentText(const Kyr::ZipStatistics& statistics) {
  return translate("Kyr_tool", "%1 of content in %2")
      .arg(counted(statistics.plainBytes, Byte), counted(statistics.blocks, Block));
}

QString restText(std::uint64_t bytes) {
  return bytes > 0 ? translate("Kyr_tool", "; behind its end: %1").arg(counted(bytes, Byte))
                   : QString();
}

/// What was found out about a stream.
struct Findings {
  Kyr::ZipStatistics statistics;
  std::uint64_t bytesBehind = 0;
  /// Whether the pieces of a damaged stream were checked one by one, and how.
  bool hasCheckedPieces = false;
  std::uint64_t pieces = 0;
  std::uint64_t checkedBytes = 0;
  std::vector<Kyr::ZipPart> losses;
};

/// Looks for what can be checked in spite of damage.
void checkPieces(Kyr::ZipSalvage& salvage, Findings& findings) {
  findings.hasCheckedPieces = salvage.hasIndex();
  if (!findings.hasCheckedPieces) {
    return;
  }
  for (Kyr::ZipPart part; salvage.next(&part);) {
    findings.checkedBytes += part.bytes.size();
    if (part.state == Kyr::ZipPart::Lost) {
      findings.losses.push_back(part);
    }
  }
  findings.pieces = salvage.getPieceCount();
}

/// What the stream itself says of its content.
QString verdict(const Kyr::ZipInStream& zip, const Findings& findings) {
  const Kyr::ZipStatistics& statistics = findings.statistics;
  if (codeOf(zip) != Fine) {
    const bool isHeaderGood = zip.getHeaderError() == Kyr::ZipInStream::HeaderGood;
    return isHeaderGood ? translate("Kyr_tool", "; readable before: %1, which may be wrong")
                              .arg(contentText(statistics))
                        : QString();
  }
  const QString text = ", " + contentText(statistics);
  // The index of pieces is all that is behind the end of those that have one.
  return statistics.hasIndex ? text + ", " + counted(statistics.pieces, CheckedPiece)
                             : text + restText(findings.bytesBehind);
}

QString verdictOnPieces(const Findings& findings) {
  return translate("Kyr_tool", "; checked: %1 in %2 of %3")
      .arg(counted(findings.checkedBytes, Byte))
      .arg(findings.pieces - findings.losses.size())
      .arg(counted(findings.pieces, Piece));
}

void show(const QString& name, const Kyr::ZipInStream& zip, const Findings& findings) {
  const QString text =
      findings.hasCheckedPieces ? verdictOnPieces(findings) : verdict(zip, findings);
  const QString state = styled(stateText(zip), codeOf(zip) == Fine ? Good : Bad);
  print(QString("%1: %2\n").arg(printable(name), state + text));
  for (const Kyr::ZipPart& loss : findings.losses) {
    print(QString("%1: %2\n").arg(printable(name), lossText(loss)));
  }
}

QJsonObject jsonOf(const Kyr::ZipPart& loss) {
  return {{"offset", jsonNumber(loss.offset)},
          {"size", jsonNumber(loss.size)},
          {"contentOffset", jsonNumber(loss.plainOffset)},
          {"contentSize", loss.isSizeKnown ? jsonNumber(loss.plainSize) : QJsonValue()},
          {"isUnreadable", loss.isUnreadable}};
}

QJsonObject jsonOf(const QString& file, const Kyr::ZipInStream& zip, const Findings& findings) {
  QJsonObject facts = {{"file", file},
                       {"state", stateName(zip)},
                       {"offset", jsonNumber(findings.statistics.offset)},
                       {"contentBytes", jsonNumber(findings.statistics.plainBytes)},
                       {"blocks", jsonNumber(findings.statistics.blocks)},
                       {"pieces", jsonNumber(findings.statistics.pieces)},
                       {"bytesBehind", jsonNumber(findings.bytesBehind)}};
  if (findings.hasCheckedPieces) {
    QJsonArray lost;
    for (const Kyr::ZipPart& loss : findings.losses) {
      lost += jsonOf(loss);
    }
    facts["pieces"] = jsonNumber(findings.pieces);
    facts["checkedBytes"] = jsonNumber(findings.checkedBytes);
    facts["lost"] = lost;
  }
  return facts;
}

}  // namespace

int zipVerify(const Arguments& arguments) {
  const Kyr::ZipPieces pieces = piecesOf(arguments);
  Input input(arguments[0]);
  const std::streampos start = input.stream().tellg();
  Kyr::ZipInStream zip(&input.stream(), anyVersion);
  zip.setWorkers(pieces);
  readToEnd(zip);
  input.expectNoFailure();
  Findings findings;
  findings.statistics = zip.getStatistics();
  if (codeOf(zip) != Fine && start != std::streampos(-1)) {
    input.stream().clear();
    input.stream().seekg(start);
    Kyr::ZipSalvage salvage(&input.stream());
    salvage.setWorkers(pieces);
    checkPieces(salvage, findings);
  } else if (codeOf(zip) == Fine && !findings.statistics.hasIndex) {
    input.expectAllRead();  // there may be an index that could not be read
    // The index of pieces is all that is behind the end of those that have one.
    findings.bytesBehind = countRest(input);
  }
  if (arguments.has("json")) {
    printJson(jsonOf(arguments[0], zip, findings));
  } else {
    show(input.name(), zip, findings);
  }
  return codeOf(zip);
}

}  // namespace KyrTool
