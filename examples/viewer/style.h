/// \file
/// How the controls are drawn that a style sheet cannot draw without pictures.
#pragma once

#include <QProxyStyle>

namespace Viewer {

/// Fusion with flat boxes and the icons of the theme.
class Style : public QProxyStyle {
 public:
  Style() : QProxyStyle("Fusion") {}

  QIcon standardIcon(StandardPixmap what, const QStyleOption* option,
                     const QWidget* widget) const override;
  QPixmap standardPixmap(StandardPixmap what, const QStyleOption* option,
                         const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                          QPainter* painter, const QWidget* widget) const override;
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
};

}  // namespace Viewer
