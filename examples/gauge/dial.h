/// \file
/// The gauge with its scale and needle.
#pragma once

#include <kyr/units/KyrQuantityText.h>

#include <QWidget>

#include <optional>

namespace Gauge {

/// The least and the greatest quantity of a scale, in the internal unit.
struct Range {
  double least;
  double most;
};

/// Points at a quantity on a round scale in the user's unit, and shows it as text.
class Dial : public QWidget {
  Q_OBJECT

 public:
  Dial(const Kyr::QuantityText& texts, Range range, QWidget* parent = nullptr);

  /// Writes the scale and the quantity otherwise.
  void setTexts(const Kyr::QuantityText& texts);
  /// Points at a quantity within the range, in the internal unit.
  void setValue(double value);
  /// Shows that what it points at is not what stands in the field.
  void setCurrent(bool current);

  QSize sizeHint() const override { return {360, 270}; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  struct Face;
  double shareOf(double value) const;
  void drawTrack(QPainter& painter, const Face& face) const;
  void drawScale(QPainter& painter, const Face& face) const;
  void drawNeedle(QPainter& painter, const Face& face) const;
  void drawValue(QPainter& painter, const Face& face) const;

  Kyr::QuantityText _texts;
  const Range _range;
  std::optional<double> _value;
  bool _current = false;
};

}  // namespace Gauge
