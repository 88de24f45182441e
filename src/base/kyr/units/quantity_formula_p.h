/// \file
/// Sums and products of quantities that people type.
#pragma once

#include <kyr/units/KyrQuantityText.h>
#include <kyr/units/quantity_scan_p.h>

#include <QString>

#include <functional>
#include <optional>

namespace Kyr::Scan {

/// A quantity in its internal unit, or a number without a unit.
struct Operand {
  double value = 0.0;
  bool hasUnit = false;
  UnitName unit = {};  ///< the first that was typed
  Refusal refusal = {};

  bool isFine() const { return refusal.fault == Fault::None; }
};

/// Reads one operand, which is a text of its own.
using ReadOperand = std::function<Operand(const QString& text)>;

/// Reads "3*12.5 mm + 2 in", as docs/formats/quantities.md has it.
/// \return nothing for a text without any sign of a formula
std::optional<Operand> readFormula(const QString& text, const ReadOperand& read);

}  // namespace Kyr::Scan
