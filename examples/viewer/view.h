/// \file
/// The picture of the scan, which the mouse turns.
#pragma once

#include "camera.h"
#include "render.h"

#include <QTimer>
#include <QWidget>

#include <memory>

namespace Viewer {

class Artist;
class Legend;
struct Scan;

/// Shows a scan and lets the user turn, move and approach it. Drawing happens in threads of its
/// own: quickly while something moves, thoroughly as soon as it rests.
class View : public QWidget {
  Q_OBJECT

 public:
  explicit View(QWidget* parent = nullptr);
  ~View() override;

  /// Shows a scan from its best side.
  /// \param scan null for none
  void setScan(std::shared_ptr<const Scan> scan);
  void look(Standpoint from);
  /// Comes so near that the whole scan is just seen.
  void fit();
  /// To be called when the user's unit has changed.
  void changeUnit();
  void setDropMark(bool shown);

  /// The last picture that was drawn; null before the first.
  const Picture* picture() const { return _picture.get(); }
  /// Whether the last picture is thorough and shows what is to be seen now.
  bool isSettled() const;
  const Legend& legend() const { return *_legend; }

  QSize minimumSizeHint() const override { return {240, 200}; }
  QSize sizeHint() const override { return {900, 700}; }

 Q_SIGNALS:
  /// A thorough picture of what is to be seen now has come.
  void settled();
  /// The mouse points at a place of this curvature, in 1/mm; no number for none.
  void probed(float curvature);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  QRectF freeArea() const;
  void placeLegend();
  void probe(const QPointF& place);
  void refresh();
  void begin(bool thorough);
  void take(std::shared_ptr<Picture> picture);

  std::shared_ptr<const Scan> _scan;
  Camera _camera;
  Legend* _legend;
  std::unique_ptr<Artist> _artist;
  std::shared_ptr<Picture> _picture;
  QTimer _rest;            // from the last movement to the thorough picture
  bool _drawing = false;   // whether the artist is at work
  bool _changed = true;    // whether there is something new since the artist began
  unsigned _number = 0;    // of the order in work
  bool _thorough = false;  // whether the order in work is thorough
  bool _fitted = true;     // nobody has moved the scan since fit()
  int _coarseness = 1;
  bool _dropMark = false;
  QPoint _pressedAt;
};

}  // namespace Viewer
