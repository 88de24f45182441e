/// \file
/// Bytes in memory: compressed, as text, with a checksum, in streams and in archives.
///
///   packing

#include <kyr/core/KyrException.h>
#include <kyr/core/KyrStructVector.h>
#include <kyr/pack/KyrCompress.h>
#include <kyr/pack/KyrZipSalvage.h>
#include <kyr/pack/KyrZipStream.h>
#include <kyr/pack/KyrZippedTar.h>
#include <kyr/text/KyrBase64.h>
#include <kyr/text/KyrCRC16.h>

#include <QTemporaryFile>

#include <cstdio>
#include <sstream>
#include <string>

using namespace Kyr;

namespace {

using Bytes = StructVector<unsigned char>;

/// Makes a picture one line of text, as a settings file may hold it, and a picture again.
bool goesThroughText(const Bytes& picture) {
  Bytes packed;
  Compress compress(&packed);
  compress.write(picture.data(), unsigned(picture.size()));
  compress.flush();
  Bytes text;
  Base64::encode(packed, &text);
  std::printf("%u bytes as %u letters\n", unsigned(picture.size()), unsigned(text.size()));

  Bytes decoded;
  Base64::decode(text, &decoded);
  Bytes again;
  return Decompress(decoded).read(&again) && CRC16::compute(again) == CRC16::compute(picture);
}

/// Compresses and decompresses through stream buffers, which are for who has a stream of his own;
/// everybody else takes ZipOutStream.
bool goesThroughStreams(const std::string& text) {
  std::ostringstream file;
  ZipOutStreamBuffer out(&file, 1);
  std::ostream(&out) << text;
  const bool isWritten = out.close();
  std::istringstream source(file.str());
  ZipInStreamBuffer in(&source, 1);
  std::string again;
  std::getline(std::istream(&in), again, '\0');
  return isWritten && again == text && in.state() == ZipInStream::StreamComplete;
}

/// The bytes that are saved from a damaged file are checked; the others are named.
bool losesOnePiece(std::string file, std::size_t size) {
  file[file.size() / 2] = '?';
  std::istringstream source(file);
  ZipSalvage salvage(&source);
  std::size_t saved = 0;
  for (ZipPart part; salvage.next(&part);) {
    if (part.state == ZipPart::Lost) {
      std::printf("%u bytes are lost\n", unsigned(part.plainSize));
      size -= std::size_t(part.plainSize);
    }
    saved += part.bytes.size();
  }
  return saved == size && !salvage.isWhole();
}

ZipPieces onTwoProcessors() {
  ZipPieces pieces;
  pieces.workers = 2;
  return pieces;
}

/// Big projects go out in pieces, which two processors compress.
bool goesThroughPieces(const std::string& scan) {
  std::ostringstream file;
  ZipOutStream out(&file, 1, onTwoProcessors());
  out.write(scan.data(), std::streamsize(scan.size()));
  out.close();
  std::istringstream source(file.str());
  ZipInStream in(&source, 1);
  std::string again(scan.size(), '\0');
  in.read(again.data(), std::streamsize(again.size()));
  return out && in && again == scan && losesOnePiece(file.str(), scan.size());
}

bool goesThroughArchives() {
  QTemporaryFile scan;
  if (!scan.open() || scan.write("a scan") != 6 || !scan.flush()) {
    throw Exception(QString("cannot write %1: %2").arg(scan.fileTemplate(), scan.errorString()));
  }
  Bytes archive;
  ZippedTarWriter writer(&archive, onTwoProcessors());
  writer.addFile(scan.fileName(), "scans/1.txt");
  writer.addEof();
  writer.flush();
  ZippedTarLimits limits;
  limits.entries = 10;  // an archive from elsewhere may have any number
  const ZippedTarReader reader(archive, limits);
  return reader.isValid() && reader.getName(0) == "scans/1.txt" &&
         reader.getContents(0).size() == 6;
}

}  // namespace

int main() {
  try {
    const bool isGood = goesThroughText(Bytes(100000, 'x')) && goesThroughStreams("a project") &&
                        goesThroughPieces(std::string(1000000, 'x')) && goesThroughArchives();
    std::printf(isGood ? "all came back\n" : "something was lost\n");
    return isGood ? 0 : 1;
  } catch (const Exception& error) {
    std::fprintf(stderr, "packing: %s\n", qPrintable(error.getText()));
    return 1;
  }
}
