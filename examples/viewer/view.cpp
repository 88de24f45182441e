#include "view.h"

#include "artist.h"
#include "legend.h"
#include "scan.h"
#include "theme.h"

#include <kyr/i18n/KyrTranslate.h>

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace Viewer {

namespace {

using Kyr::translate;

constexpr int edge = 12;        // pixels around what lies on the picture
constexpr int roomy = 640;      // pixels of width
constexpr int restTime = 70;    // ms
constexpr int fastEnough = 18;  // ms for a quick picture
constexpr int tooSlow = 45;     // ms
constexpr int coarsest = 3;
constexpr double turnPerPixel = 0.4;  // degrees
constexpr float nothing = std::numeric_limits<float>::quiet_NaN();

}  // namespace

View::View(QWidget* parent) : QWidget(parent), _legend(new Legend(this)) {
  setObjectName("view");
  setAccessibleName(translate("Viewer", "Picture of the scan"));
  setAccessibleDescription(
      translate("Viewer", "Arrow keys turn it, plus and minus come nearer and go away"));
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setAttribute(Qt::WA_OpaquePaintEvent);
  _camera.look(Standpoint::Oblique);
  _rest.setSingleShot(true);
  _rest.setInterval(restTime);
  connect(&_rest, &QTimer::timeout, this, [this] { begin(true); });
  _artist = std::make_unique<Artist>([this](std::shared_ptr<Picture> picture) {
    QMetaObject::invokeMethod(
        this, [this, picture = std::move(picture)] { take(picture); }, Qt::QueuedConnection);
  });
}

View::~View() = default;

void View::setScan(std::shared_ptr<const Scan> scan) {
  _scan = std::move(scan);
  _legend->setScan(_scan);
  placeLegend();
  look(Standpoint::Oblique);
}

void View::look(Standpoint from) {
  _camera.look(from);
  fit();
}

void View::fit() {
  _fitted = true;
  if (_scan) {
    _camera.fit(*_scan->model, size(), freeArea().size());
  }
  refresh();
}

void View::changeUnit() {
  _legend->changeUnit();
  placeLegend();
  _fitted ? fit() : refresh();
}

void View::setDropMark(bool shown) {
  _dropMark = shown;
  update();
}

bool View::isSettled() const {
  return _picture && _picture->thorough && !_changed && !_drawing;
}

QRectF View::freeArea() const {
  const int right = _legend->isHidden() ? 0 : _legend->width() + edge;
  return QRectF(rect()).adjusted(edge, edge, -edge - right, -edge);
}

void View::placeLegend() {
  _legend->setCompact(width() < roomy);
  const QSize hint = _legend->sizeHint();
  const int height = std::min(hint.height(), this->height() - 2 * edge);
  _legend->setGeometry(width() - hint.width() - edge, edge, hint.width(), std::max(height, 120));
}

/// Draws after a movement: quickly at once, and thoroughly when nothing moves any more.
void View::refresh() {
  _changed = true;
  _rest.stop();
  if (_drawing && _thorough) {
    _artist->cancel();
    _drawing = false;
  }
  if (!_drawing) {
    begin(false);
  }
}

void View::begin(bool thorough) {
  const qreal ratio = devicePixelRatioF();
  Order order;
  order.model = _scan ? _scan->model : nullptr;
  order.camera = _camera;
  order.size = (QSizeF(size()) * ratio).toSize();
  order.middle = freeArea().center() * ratio;
  order.range = _scan ? static_cast<float>(_scan->range) : 1.0F;
  order.thorough = thorough;
  order.coarseness = _coarseness;
  order.number = ++_number;
  _thorough = thorough;
  _drawing = true;
  _changed = false;
  _artist->begin(order);
}

void View::take(std::shared_ptr<Picture> picture) {
  if (picture->number != _number || !_drawing) {
    return;  // the picture was cancelled after it had been sent
  }
  _drawing = false;
  _picture = std::move(picture);
  update();
  if (_picture->thorough && !_changed) {
    Q_EMIT settled();
    return;
  }
  if (!_picture->thorough) {
    const int slower = _picture->milliseconds > tooSlow ? 1 : 0;
    const int faster = _picture->milliseconds < fastEnough ? 1 : 0;
    _coarseness = std::clamp(_coarseness + slower - faster, 1, coarsest);
  }
  if (_changed) {
    begin(false);
  } else {
    _rest.start();
  }
}

void View::probe(const QPointF& place) {
  float value = nothing;
  if (_scan && _picture && !_picture->values.empty()) {
    const QSize size = _picture->image.size();
    const int x = static_cast<int>(place.x() * size.width() / width());
    const int y = static_cast<int>(place.y() * size.height() / height());
    if (QRect(QPoint(), size).contains(x, y)) {
      value =
          _picture->values[static_cast<std::size_t>(y) * static_cast<std::size_t>(size.width()) +
                           static_cast<std::size_t>(x)];
    }
  }
  _legend->setMark(value);
  Q_EMIT probed(value);
}

void View::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  if (_picture) {
    painter.setRenderHint(QPainter::SmoothPixmapTransform, !_picture->thorough);
    painter.drawImage(rect(), _picture->image);
  } else {
    painter.fillRect(rect(), QColor(0x1f, 0x23, 0x28));
  }
  if (_dropMark) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Theme::accent(), 3, Qt::DashLine));
    painter.drawRoundedRect(QRectF(rect()).adjusted(8, 8, -8, -8), 10, 10);
  }
}

void View::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  placeLegend();
  _fitted ? fit() : refresh();
}

void View::mousePressEvent(QMouseEvent* event) {
  _pressedAt = event->pos();
  setCursor(Qt::ClosedHandCursor);
}

void View::mouseMoveEvent(QMouseEvent* event) {
  if (event->buttons() == Qt::NoButton) {
    probe(event->localPos());
    return;
  }
  const QPoint way = event->pos() - _pressedAt;
  _pressedAt = event->pos();
  const bool turns = event->buttons() == Qt::LeftButton && event->modifiers() == Qt::NoModifier;
  if (turns) {
    _camera.turn(way.x() * turnPerPixel, way.y() * turnPerPixel);
  } else {
    _camera.move(QPointF(way) / std::max(1, std::min(width(), height())));
  }
  _fitted = false;
  refresh();
}

void View::mouseReleaseEvent(QMouseEvent* /*event*/) {
  unsetCursor();
}

void View::mouseDoubleClickEvent(QMouseEvent* /*event*/) {
  fit();
}

void View::wheelEvent(QWheelEvent* event) {
  constexpr double perStep = 1.0 / 8 / 15;  // of a wheel that clicks
  _camera.zoom(std::pow(1.15, event->angleDelta().y() * perStep));
  _fitted = false;
  refresh();
}

void View::keyPressEvent(QKeyEvent* event) {
  constexpr double turn = 10;  // degrees
  constexpr double nearer = 1.15;
  switch (event->key()) {
    case Qt::Key_Left:
      _camera.turn(-turn, 0);
      break;
    case Qt::Key_Right:
      _camera.turn(turn, 0);
      break;
    case Qt::Key_Up:
      _camera.turn(0, -turn);
      break;
    case Qt::Key_Down:
      _camera.turn(0, turn);
      break;
    case Qt::Key_Plus:
    case Qt::Key_Equal:
      _camera.zoom(nearer);
      break;
    case Qt::Key_Minus:
      _camera.zoom(1 / nearer);
      break;
    default:
      QWidget::keyPressEvent(event);
      return;
  }
  _fitted = false;
  refresh();
}

void View::leaveEvent(QEvent* /*event*/) {
  _legend->setMark(nothing);
  Q_EMIT probed(nothing);
}

}  // namespace Viewer
