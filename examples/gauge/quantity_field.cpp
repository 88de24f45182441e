#include "quantity_field.h"

#include <QPainter>
#include <QPainterPath>
#include <QStyle>
#include <QVariant>

#include <algorithm>

namespace Gauge {

QuantityField::QuantityField(const Kyr::QuantityText& texts, QWidget* parent)
    : QLineEdit(parent), _validator(new QuantityValidator(texts, this)) {
  setValidator(_validator);
  connect(this, &QLineEdit::textChanged, this, &QuantityField::read);
  connect(this, &QLineEdit::inputRejected, this,
          [this] { Q_EMIT refused(_validator->last().reason); });
  connect(this, &QLineEdit::editingFinished, this, [this] { setValue(_reading.value); });
}

void QuantityField::setTexts(const Kyr::QuantityText& texts) {
  const Kyr::QuantityReading before = _reading;
  _validator->setTexts(texts);
  if (before.isAcceptable()) {
    setValue(before.value);
  }
  read();
}

void QuantityField::setValue(double value) {
  const Kyr::QuantityText& texts = _validator->texts();
  const QString rounded = texts.text(value);
  const bool isInRange = texts.read(rounded).isAcceptable();  // a limit may be rounded outwards
  setText(isInRange ? rounded : Kyr::QuantityText(texts).setExact().text(value));
}

void QuantityField::read() {
  _reading = _validator->texts().read(text());
  setProperty("wrong", !_reading.isAcceptable());
  style()->unpolish(this);
  style()->polish(this);
  Q_EMIT changed(_reading);
}

/// Draws a wave below what is wrong, or where something is missing.
void QuantityField::paintEvent(QPaintEvent* event) {
  QLineEdit::paintEvent(event);
  if (_reading.isAcceptable() || text().isEmpty()) {
    return;
  }
  const QFontMetrics metrics(font());
  const QRect cursor = cursorRect();
  const int textBegin =
      cursor.center().x() - metrics.horizontalAdvance(text().left(cursorPosition()));
  const int begin = textBegin + metrics.horizontalAdvance(text().left(_reading.position));
  const int end =
      std::max(textBegin + metrics.horizontalAdvance(text()), begin + metrics.averageCharWidth());
  constexpr int wave = 4;
  QPainterPath path(QPointF(begin, cursor.bottom()));
  for (int x = begin; x < end; x += wave) {
    path.quadTo(x + wave / 4.0, cursor.bottom() - 2, x + wave / 2.0, cursor.bottom());
    path.quadTo(x + wave * 3 / 4.0, cursor.bottom() + 2, x + wave, cursor.bottom());
  }
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setClipRect(rect().adjusted(6, 1, -6, -1));
  painter.setPen(QPen(QColor(0xff, 0x6b, 0x74), 1.3));
  painter.drawPath(path);
}

}  // namespace Gauge
