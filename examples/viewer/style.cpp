#include "style.h"

#include "icons.h"
#include "theme.h"

#include <QPainter>
#include <QStyleOption>

namespace Viewer {

namespace {

/// An angle that points down, or up.
void drawChevron(QPainter& painter, const QRectF& area, bool up) {
  const QPointF middle = area.center();
  const QPointF side(3.5, up ? 1.75 : -1.75);
  const QPointF tip(0, up ? -1.75 : 1.75);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(Theme::dimText(), 1.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPolyline(
      QPolygonF({middle + QPointF(-side.x(), side.y()), middle + tip, middle + side}));
}

void drawBox(QPainter& painter, const QStyleOptionComboBox& box) {
  const bool isHot = (box.state & QStyle::State_MouseOver) != 0;
  const bool hasFocus = (box.state & QStyle::State_HasFocus) != 0;
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(hasFocus ? Theme::accent() : Theme::controlEdge());
  painter.setBrush(isHot ? Theme::control().lighter(120) : Theme::control());
  painter.drawRoundedRect(QRectF(box.rect).adjusted(0.5, 0.5, -0.5, -0.5), 5, 5);
}

}  // namespace

QIcon Style::standardIcon(StandardPixmap what, const QStyleOption* option,
                          const QWidget* widget) const {
  const QIcon icon = lineIcon(what);
  return icon.isNull() ? QProxyStyle::standardIcon(what, option, widget) : icon;
}

QPixmap Style::standardPixmap(StandardPixmap what, const QStyleOption* option,
                              const QWidget* widget) const {
  const QIcon icon = lineIcon(what);
  return icon.isNull() ? QProxyStyle::standardPixmap(what, option, widget) : icon.pixmap(16, 16);
}

void Style::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                               QPainter* painter, const QWidget* widget) const {
  const auto* const box = qstyleoption_cast<const QStyleOptionComboBox*>(option);
  if (control != CC_ComboBox || !box) {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    return;
  }
  painter->save();
  drawBox(*painter, *box);
  drawChevron(*painter, subControlRect(CC_ComboBox, box, SC_ComboBoxArrow, widget), false);
  painter->restore();
}

void Style::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                          const QWidget* widget) const {
  const auto* const header = qstyleoption_cast<const QStyleOptionHeader*>(option);
  if (element != PE_IndicatorHeaderArrow || !header) {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
  } else if (header->sortIndicator != QStyleOptionHeader::None) {
    painter->save();
    drawChevron(*painter, header->rect, header->sortIndicator == QStyleOptionHeader::SortUp);
    painter->restore();
  }
}

}  // namespace Viewer
