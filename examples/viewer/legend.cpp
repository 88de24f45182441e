#include "legend.h"

#include "colour_map.h"
#include "scan.h"
#include "theme.h"

#include <kyr/i18n/KyrTranslate.h>
#include <kyr/units/KyrQuantityText.h>
#include <kyr/units/KyrUnits.h>

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <utility>

namespace Viewer {

namespace {

using Kyr::translate;

constexpr int padding = 14;
constexpr int barWidth = 16;
constexpr int leastHistogram = 24;
constexpr int tickWidth = 12;

/// The largest of 1, 2 and 5 times a power of ten that makes at least \a steps steps.
double roundStep(double range, int steps) {
  const double coarse = range / steps;
  const double power = std::pow(10.0, std::floor(std::log10(coarse)));
  const double digit = coarse / power;
  if (digit >= 5) {
    return 5 * power;
  }
  return digit >= 2 ? 2 * power : power;
}

/// The counts without the spikes that few points leave.
std::vector<double> smoothed(const std::vector<std::size_t>& counts) {
  std::vector<double> smooth(counts.begin(), counts.end());
  for (int pass = 0; pass < 3; ++pass) {
    const std::vector<double> rough = smooth;
    for (std::size_t i = 1; i + 1 < rough.size(); ++i) {
      smooth[i] = (rough[i - 1] + 2 * rough[i] + rough[i + 1]) / 4;
    }
  }
  return smooth;
}

}  // namespace

Legend::Legend(QWidget* parent) : QWidget(parent) {
  setObjectName("legend");
  setAccessibleName(translate("Viewer", "Legend of the colours"));
  setAttribute(Qt::WA_TransparentForMouseEvents);
  hide();
}

void Legend::setScan(std::shared_ptr<const Scan> scan) {
  _scan = std::move(scan);
  _mark = std::numeric_limits<float>::quiet_NaN();
  setVisible(_scan != nullptr);
  changeUnit();
}

void Legend::setMark(float value) {
  _mark = value;
  update();
}

void Legend::changeUnit() {
  _ticks.clear();
  if (_scan) {
    const double end = Kyr::uCurvature.to(_scan->range);
    const double step = roundStep(end, 3);
    const double decimals = std::clamp(-std::floor(std::log10(step) + 1e-9), 0.0, 15.0);
    const Kyr::QuantityText text =
        Kyr::QuantityText(Kyr::uCurvature).setDecimals(static_cast<unsigned>(decimals));
    const int most = static_cast<int>(std::floor(end / step * (1 + 1e-9)));
    for (int number = -most; number <= most; ++number) {
      const double value = number * step;
      _ticks.push_back({value / end, text.number(Kyr::uCurvature.from(value))});
    }
    setAccessibleDescription(
        translate("Viewer", "Mean curvature, %1: %2").arg(unitText(), numbers().join(' ')));
  }
  update();
}

void Legend::setCompact(bool compact) {
  _compact = compact;
  update();
}

QStringList Legend::numbers() const {
  QStringList numbers;
  for (const Tick& tick : _ticks) {
    numbers << tick.text;
  }
  return numbers;
}

QString Legend::titleText() const {
  return _compact ? translate("Viewer", "Curvature") : translate("Viewer", "Mean curvature");
}

QString Legend::unitText() const {
  // What stands behind a number, as "/ in", stands alone here.
  return Kyr::uCurvature.getName().replace("/ ", "1/");
}

int Legend::numbersWidth() const {
  const QFontMetrics metrics(Theme::small(font()));
  int widest = 0;
  for (const Tick& tick : _ticks) {
    widest = std::max(widest, metrics.horizontalAdvance(tick.text));
  }
  return widest;
}

QSize Legend::sizeHint() const {
  const int contents = leastHistogram + barWidth + tickWidth + numbersWidth();
  const int title = QFontMetrics(Theme::strong(font())).horizontalAdvance(titleText()) + 8;
  return {std::max(contents, title) + 2 * padding, 430};
}

QRectF Legend::barArea() const {
  const int titleHeight = QFontMetrics(font()).height() * 2 + 16;
  const int wordHeight = QFontMetrics(Theme::small(font())).height() + 6;
  const int top = padding + titleHeight + wordHeight;
  const int bottom = height() - padding - wordHeight;
  const int right = width() - padding - numbersWidth() - tickWidth;
  return QRectF(right - barWidth, top, barWidth, std::max(bottom - top, 20));
}

double Legend::heightOf(double position) const {
  const QRectF bar = barArea();
  return bar.bottom() - (std::clamp(position, -1.0, 1.0) + 1) / 2 * bar.height();
}

void Legend::paintEvent(QPaintEvent* /*event*/) {
  if (!_scan) {
    return;
  }
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(Theme::glassEdge(), 1));
  painter.setBrush(Theme::glass());
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 8, 8);
  paintTitle(painter);
  paintHistogram(painter);
  paintBar(painter);
  paintTicks(painter);
  paintMark(painter);
}

void Legend::paintTitle(QPainter& painter) const {
  const int line = QFontMetrics(font()).height();
  const int width = this->width() - 2 * padding;
  painter.setFont(Theme::strong(font()));
  painter.setPen(Theme::text());
  painter.drawText(QRect(padding, padding, width, line), Qt::AlignLeft, titleText());
  painter.setFont(Theme::small(font()));
  painter.setPen(Theme::dimText());
  painter.drawText(QRect(padding, padding + line + 2, width, line), Qt::AlignLeft,
                   translate("Viewer", "in %1").arg(unitText()));
  const QRectF bar = barArea();
  const int small = QFontMetrics(painter.font()).height();
  painter.drawText(QRectF(padding, bar.top() - small - 6, width, small), Qt::AlignLeft,
                   translate("Viewer", "ridges"));
  painter.drawText(QRectF(padding, bar.bottom() + 6, width, small), Qt::AlignLeft,
                   translate("Viewer", "hollows"));
}

void Legend::paintHistogram(QPainter& painter) const {
  const std::vector<double> counts = smoothed(_scan->histogram);
  const double most = *std::max_element(counts.begin(), counts.end());
  if (!(most > 0)) {
    return;
  }
  const QRectF bar = barArea();
  const double part = bar.height() / static_cast<double>(counts.size());
  QPainterPath outline(bar.bottomLeft());
  for (std::size_t i = 0; i < counts.size(); ++i) {
    const double share = std::sqrt(counts[i] / most);
    const double x = bar.left() - 3 - share * (bar.left() - 3 - padding);
    outline.lineTo(x, bar.bottom() - (static_cast<double>(i) + 0.5) * part);
  }
  outline.lineTo(bar.topLeft());
  painter.setPen(Qt::NoPen);
  painter.setBrush(Theme::quiet());
  painter.drawPath(outline);
}

void Legend::paintBar(QPainter& painter) const {
  const QRectF bar = barArea();
  QLinearGradient colours(bar.bottomLeft(), bar.topLeft());
  constexpr int stops = 64;
  for (int stop = 0; stop <= stops; ++stop) {
    const double place = static_cast<double>(stop) / stops;
    colours.setColorAt(place, colourOf(static_cast<float>(2 * place - 1)));
  }
  painter.setPen(Qt::NoPen);
  painter.setBrush(colours);
  painter.drawRoundedRect(bar, 3, 3);
}

void Legend::paintTicks(QPainter& painter) const {
  const QRectF bar = barArea();
  painter.setFont(Theme::small(font()));
  const int line = QFontMetrics(painter.font()).height();
  for (const Tick& tick : _ticks) {
    const double y = heightOf(tick.position);
    painter.setPen(QPen(Theme::dimText(), 1));
    painter.drawLine(QPointF(bar.right() + 2, y), QPointF(bar.right() + 6, y));
    painter.setPen(Theme::text());
    painter.drawText(
        QRectF(bar.right() + 6, y - line / 2.0, width() - bar.right() - 6 - padding, line),
        Qt::AlignRight | Qt::AlignVCenter, tick.text);
  }
}

void Legend::paintMark(QPainter& painter) const {
  if (std::isnan(_mark)) {
    return;
  }
  const QRectF bar = barArea();
  const double y = heightOf(static_cast<double>(_mark) / _scan->range);
  painter.setPen(QPen(Theme::glass().darker(), 1));
  painter.setBrush(Qt::white);
  painter.drawRoundedRect(QRectF(bar.left() - 4, y - 2.5, bar.width() + 8, 5), 2.5, 2.5);
}

}  // namespace Viewer
