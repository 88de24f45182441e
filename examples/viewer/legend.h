/// \file
/// Which colour means which curvature.
#pragma once

#include <QString>
#include <QWidget>

#include <limits>
#include <memory>
#include <vector>

namespace Viewer {

struct Scan;

/// A colour bar with numbers in the user's unit, and beside it how often each curvature occurs.
/// Lies on the picture and lets the mouse through.
class Legend : public QWidget {
  Q_OBJECT

 public:
  explicit Legend(QWidget* parent);

  /// \param scan null for none, and then the legend hides
  void setScan(std::shared_ptr<const Scan> scan);
  /// Marks a value on the bar; no number for none.
  void setMark(float value);
  /// To be called when the user's unit has changed.
  void changeUnit();

  /// Takes less room, for small windows.
  void setCompact(bool compact);

  /// The numbers beside the bar, from the lowest up.
  QStringList numbers() const;

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  struct Tick {
    double position;  // from -1 to 1
    QString text;
  };

  QString titleText() const;
  QString unitText() const;
  int numbersWidth() const;
  QRectF barArea() const;
  double heightOf(double position) const;
  void paintTitle(QPainter& painter) const;
  void paintHistogram(QPainter& painter) const;
  void paintBar(QPainter& painter) const;
  void paintTicks(QPainter& painter) const;
  void paintMark(QPainter& painter) const;

  std::shared_ptr<const Scan> _scan;
  std::vector<Tick> _ticks;
  bool _compact = false;
  float _mark = std::numeric_limits<float>::quiet_NaN();
};

}  // namespace Viewer
