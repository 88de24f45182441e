/// \file
/// Zip streams in pieces that are saved.
#pragma once

#include <kyr/pack/KyrZipStream.h>

#include <QByteArray>
#include <QString>

#include <iterator>
#include <string>

namespace KyrTest {

/// The content of a file that is a whole zip stream in pieces; empty for any other.
inline QByteArray unpackedPieces(const QString& path) {
  Kyr::ZipInStream in(path, 1);
  const std::string content((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  const bool isWhole =
      in.getState() == Kyr::ZipInStream::StreamComplete && in.getStatistics().hasIndex;
  return isWhole ? QByteArray::fromStdString(content) : QByteArray();
}

}  // namespace KyrTest
