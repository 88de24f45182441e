#include "dial.h"

#include "viewer/theme.h"

#include <QPainter>
#include <QtMath>

#include <algorithm>
#include <cmath>

namespace Gauge {

namespace {

namespace Theme = Viewer::Theme;

constexpr double startAngle = 210;  // degrees, anticlockwise from the right
constexpr double sweep = 240;       // clockwise
constexpr int trackWidth = 10;
constexpr double textPlace = 0.5;  // below the middle, in radii, as the ends of the scale

double angleOf(double share) {
  return startAngle - sweep * share;
}

QPointF direction(double degrees) {
  const double angle = qDegreesToRadians(degrees);
  return {std::cos(angle), -std::sin(angle)};
}

/// A scale in the user's unit, with steps that people can add in their heads: 1, 2 or 5 and zeros.
struct Scale {
  double least;
  double most;
  double step;
  int smallSteps;          // in one step
  unsigned decimals;       // of steps
  unsigned valueDecimals;  // a thousandth of a step and more
};

Scale scaleOf(double least, double most) {
  constexpr double steps = 9;
  const double span = most - least;
  const double power = std::pow(10.0, std::floor(std::log10(span / steps)));
  for (const auto& [digit, parts] : {std::pair(1.0, 5), {2.0, 4}, {5.0, 5}, {10.0, 5}}) {
    const double step = digit * power;
    if (span <= steps * step) {
      const int decimals = -static_cast<int>(std::floor(std::log10(step)));
      constexpr int more = 3;
      return {least,
              most,
              step,
              parts,
              static_cast<unsigned>(std::max(decimals, 0)),
              static_cast<unsigned>(std::max(decimals + more, 0))};
    }
  }
  return {least, most, span, 1, 0, 0};
}

Scale scaleOf(const Kyr::QuantityText& texts, Range range) {
  const Kyr::Unit::Units_t unit = texts.unitFor(range.least);
  return scaleOf(texts.kind().to(range.least, unit), texts.kind().to(range.most, unit));
}

/// Writes a text whose middle lies so far inside of a point that its box just touches it.
void drawInside(QPainter& painter, const QString& text, QPointF point, QPointF outwards) {
  const QFontMetricsF metrics(painter.font());
  const double width = metrics.horizontalAdvance(text);
  const double height = metrics.capHeight();
  const double reach = std::abs(outwards.x()) * width / 2 + std::abs(outwards.y()) * height / 2;
  painter.drawText(point - outwards * reach + QPointF(-width / 2, height / 2), text);
}

}  // namespace

/// The circle of the scale.
struct Dial::Face {
  QPointF middle;
  double radius;

  QPointF at(double share, double distance) const {
    return middle + direction(angleOf(share)) * distance;
  }
};

Dial::Dial(const Kyr::QuantityText& texts, Range range, QWidget* parent)
    : QWidget(parent), _texts(texts), _range(range) {
  setMinimumSize(300, 230);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void Dial::setTexts(const Kyr::QuantityText& texts) {
  _texts = texts;
  update();
}

void Dial::setValue(double value) {
  _value = value;
  setAccessibleDescription(_texts.text(value));
  update();
}

void Dial::setCurrent(bool current) {
  _current = current;
  update();
}

double Dial::shareOf(double value) const {
  return std::clamp((value - _range.least) / (_range.most - _range.least), 0.0, 1.0);
}

void Dial::paintEvent(QPaintEvent* /*event*/) {
  constexpr int margin = 8;
  constexpr int below = 16;  // for the lower half of the text
  const double radius =
      std::min(width() / 2.0 - margin, (height() - margin - below) / (1 + textPlace)) -
      trackWidth / 2.0;
  const Face face{{width() / 2.0, margin + trackWidth / 2.0 + radius}, radius};
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  drawTrack(painter, face);
  drawScale(painter, face);
  if (_value) {
    drawNeedle(painter, face);
    drawValue(painter, face);
  }
}

void Dial::drawTrack(QPainter& painter, const Face& face) const {
  constexpr int sixteenths = 16;
  const QRectF circle(face.middle.x() - face.radius, face.middle.y() - face.radius, 2 * face.radius,
                      2 * face.radius);
  const auto arc = [&](const QColor& colour, double share) {
    painter.setPen(QPen(colour, trackWidth, Qt::SolidLine, Qt::FlatCap));
    painter.drawArc(circle, qRound(startAngle * sixteenths), -qRound(sweep * share * sixteenths));
  };
  arc(Theme::quiet(), 1);
  if (_value) {
    arc(_current ? Theme::accent() : Theme::dimText(), shareOf(*_value));
  }
}

void Dial::drawScale(QPainter& painter, const Face& face) const {
  constexpr double rounding = 1e-9;
  constexpr int large = 9, small = 5, gap = 6;  // lengths of marks, and from them to numbers
  const Kyr::Unit& kind = _texts.kind();
  const Kyr::Unit::Units_t unit = _texts.unitFor(_range.least);
  const Scale scale = scaleOf(_texts, _range);
  const double step = scale.step / scale.smallSteps;
  const Kyr::QuantityText numbers = Kyr::QuantityText(_texts).setDecimals(scale.decimals);
  const double outer = face.radius - trackWidth;
  painter.setFont(Theme::small(font()));
  const auto last = static_cast<int>(std::floor(scale.most / step + rounding));
  for (auto i = static_cast<int>(std::ceil(scale.least / step - rounding)); i <= last; ++i) {
    const bool isLarge = i % scale.smallSteps == 0;
    const double value = kind.from(i * step, unit);
    const double share = shareOf(value);
    const double inner = outer - (isLarge ? large : small);
    painter.setPen(QPen(isLarge ? Theme::dimText() : Theme::quiet(), isLarge ? 1.6 : 1));
    painter.drawLine(face.at(share, outer), face.at(share, inner));
    if (isLarge) {
      painter.setPen(Theme::dimText());
      drawInside(painter, numbers.number(value), face.at(share, inner - gap),
                 direction(angleOf(share)));
    }
  }
}

void Dial::drawNeedle(QPainter& painter, const Face& face) const {
  constexpr double hub = 6;
  constexpr double reach = 0.6;  // as far as the numbers, which it is not to cover
  const double share = shareOf(*_value);
  const QPointF tip = face.at(share, face.radius * reach);
  const QPointF across = direction(angleOf(share) + 90) * (hub * 0.55);
  const QPointF needle[] = {face.middle + across, tip, face.middle - across};
  painter.setPen(Qt::NoPen);
  painter.setBrush(_current ? Theme::text() : Theme::dimText());
  painter.drawConvexPolygon(needle, 3);
  painter.drawEllipse(face.middle, hub, hub);
}

void Dial::drawValue(QPainter& painter, const Face& face) const {
  constexpr int smallest = 6;  // in pixels: fonts of a style sheet have no size in points
  QFont large = Theme::strong(font());
  large.setPixelSize(QFontInfo(large).pixelSize() * 19 / 10);
  const double width = face.radius * 1.1;
  const unsigned decimals = scaleOf(_texts, _range).valueDecimals;
  const QString text = Kyr::QuantityText(_texts).setDecimals(decimals).text(*_value);
  while (large.pixelSize() > smallest && QFontMetricsF(large).horizontalAdvance(text) > width) {
    large.setPixelSize(large.pixelSize() * 9 / 10);
  }
  const double height = QFontMetricsF(large).height();
  const QRectF place(face.middle.x() - width / 2,
                     face.middle.y() + face.radius * textPlace - height / 2, width, height);
  painter.setFont(large);
  painter.setPen(_current ? Theme::text() : Theme::dimText());
  painter.drawText(place, Qt::AlignCenter, text);
}

}  // namespace Gauge
