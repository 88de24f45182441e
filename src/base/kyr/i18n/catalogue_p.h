/// \file
/// Catalogues of translated texts as Qt's lrelease writes them, checked before Qt reads them.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTranslator>

#include <memory>
#include <vector>

namespace Kyr::Catalogue {

/// A catalogue in which no look-up leads anywhere but into its own tables.
struct Checked {
  QByteArray bytes;          ///< for QTranslator::load(); null when the catalogue is damaged
  QStringList dependencies;  ///< the catalogues that it continues in, without ".qm"
};

/// Checks every tag, length and offset. QTranslator follows them as they stand, so that one wrong
/// byte may end the process at the first look-up. A catalogue has no checksum: a text that is
/// another one is not noticed.
/// \param file the whole content of a file
Checked check(const QByteArray& file);

/// Loads a catalogue and those of the same directory that it continues in. One that is damaged,
/// has over 64 MiB or cannot be read is named on standard error.
/// \return in the order in which they are to be installed; empty when one is missing or damaged
std::vector<std::unique_ptr<QTranslator>> load(const QString& directory, const QString& file);

}  // namespace Kyr::Catalogue
