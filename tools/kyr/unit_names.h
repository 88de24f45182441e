/// \file
/// Kinds and units by the names that people type.
#pragma once

#include <kyr/units/KyrQuantityText.h>
#include <kyr/units/KyrUnits.h>

#include <QString>
#include <QStringList>

#include <vector>

namespace KyrTool {

/// All kinds of the catalogue in its order.
const std::vector<Kyr::Unit*>& allKinds();

/// The kind with an identifier, in upper or lower case.
/// \throws UsageError
Kyr::Unit* kindOfName(const QString& name);

/// The spelling of a unit's name with the characters of every keyboard: "um", "degC", "mm2".
QString asciiSpelling(const QString& unitName);

/// The identifiers of the kinds that have a unit of this name.
QStringList kindsWith(const QString& unitName);

}  // namespace KyrTool
