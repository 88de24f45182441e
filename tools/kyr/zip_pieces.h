/// \file
/// The pieces of a zip stream as people read them.
#pragma once

#include <kyr/pack/KyrZipStream.h>

#include <QJsonArray>

namespace KyrTool {

/// Prints one line about all pieces that the index knows, and one about each; of many only of the
/// first and the last. Prints nothing when there are none.
/// \param isAllWanted whether also many are all printed
void showPieces(const Kyr::ZipInStream& zip, bool isAllWanted);

/// All pieces for other programs.
QJsonArray jsonOfPieces(const Kyr::ZipInStream& zip);

}  // namespace KyrTool
