/// \file
/// The window of the program.
#pragma once

#include "dial.h"

#include <QWidget>

class QComboBox;
class QLabel;

namespace Gauge {

class QuantityField;

/// A kind of quantity, and what the gauge shows of it.
struct Instrument {
  const Kyr::Unit* kind;
  QString name;  ///< in the user's language
  Range range;
};

/// The instruments that there are, the usual one first.
std::vector<Instrument> instruments();

/// A gauge, below it a field for a quantity and the unit to see it in.
class GaugeWindow : public QWidget {
  Q_OBJECT

 public:
  explicit GaugeWindow(const Instrument& instrument);
  ~GaugeWindow() override;
  Q_DISABLE_COPY(GaugeWindow)

  /// Chooses the unit as the user does.
  void setUnit(Kyr::Unit::Units_t unit);
  QuantityField& field() const { return *_field; }
  /// What stands below the field.
  QString message() const;

 private:
  Kyr::QuantityText texts() const;
  void buildRow(const QString& name);
  void chooseUnit();
  void judge(const Kyr::QuantityReading& reading);
  void say(const QString& text, const QString& role);

  const Instrument _instrument;
  QComboBox* _unit;
  QuantityField* _field;
  Dial* _dial;
  QLabel* _message;
};

}  // namespace Gauge
