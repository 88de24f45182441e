#include "icons.h"

#include "theme.h"

#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

#include <algorithm>
#include <iterator>

namespace Viewer {

namespace {

// All of them are drawn into a square of 16 by 16.

QPainterPath lines(std::initializer_list<QVector<QPointF>> polygons) {
  QPainterPath path;
  for (const QVector<QPointF>& polygon : polygons) {
    path.addPolygon(QPolygonF(polygon));
  }
  return path;
}

/// Both; the sum of two paths would be the outline of their areas.
QPainterPath both(QPainterPath one, const QPainterPath& other) {
  one.addPath(other);
  return one;
}

QPainterPath back() {
  return lines({{{10, 3}, {5, 8}, {10, 13}}});
}
QPainterPath forward() {
  return lines({{{6, 3}, {11, 8}, {6, 13}}});
}
QPainterPath up() {
  return lines({{{8, 13.5}, {8, 3}}, {{3.5, 7.5}, {8, 3}, {12.5, 7.5}}});
}
QPainterPath folder() {
  return lines(
      {{{1.5, 12.5}, {1.5, 3.5}, {6, 3.5}, {7.5, 5.5}, {14.5, 5.5}, {14.5, 12.5}, {1.5, 12.5}}});
}
QPainterPath newFolder() {
  return both(folder(), lines({{{8, 7}, {8, 11}}, {{6, 9}, {10, 9}}}));
}
QPainterPath tiles() {
  QPainterPath path;
  for (const QPointF place : {QPointF(2.5, 2.5), {9.5, 2.5}, {2.5, 9.5}, {9.5, 9.5}}) {
    path.addRoundedRect(QRectF(place, QSizeF(4, 4)), 1, 1);
  }
  return path;
}
QPainterPath details() {
  return lines({{{2.5, 4}, {13.5, 4}}, {{2.5, 8}, {13.5, 8}}, {{2.5, 12}, {13.5, 12}}});
}
QPainterPath file() {
  return lines({{{3.5, 1.5}, {9, 1.5}, {12.5, 5}, {12.5, 14.5}, {3.5, 14.5}, {3.5, 1.5}},
                {{9, 1.5}, {9, 5}, {12.5, 5}}});
}
QPainterPath computer() {
  QPainterPath path;
  path.addRoundedRect(QRectF(1.5, 2.5, 13, 8.5), 1, 1);
  return both(path, lines({{{8, 11}, {8, 13.5}}, {{5, 13.5}, {11, 13.5}}}));
}
QPainterPath drive() {
  QPainterPath path;
  path.addRoundedRect(QRectF(1.5, 4.5, 13, 7), 1, 1);
  return both(path, lines({{{10, 9}, {12, 9}}}));
}
QPainterPath home() {
  return lines(
      {{{1.5, 8}, {8, 2}, {14.5, 8}}, {{3.5, 6.5}, {3.5, 13.5}, {12.5, 13.5}, {12.5, 6.5}}});
}
QPainterPath warning() {
  return lines({{{8, 1.5}, {15, 14}, {1, 14}, {8, 1.5}}, {{8, 6}, {8, 10}}, {{8, 12}, {8, 12.2}}});
}

struct Drawing {
  QStyle::StandardPixmap what;
  QPainterPath (*path)();
  QColor (*colour)();
};

constexpr Drawing drawings[] = {
    {QStyle::SP_FileDialogBack, &back, &Theme::text},
    {QStyle::SP_ArrowBack, &back, &Theme::text},
    {QStyle::SP_ArrowLeft, &back, &Theme::text},
    {QStyle::SP_ArrowForward, &forward, &Theme::text},
    {QStyle::SP_ArrowRight, &forward, &Theme::text},
    {QStyle::SP_FileDialogToParent, &up, &Theme::text},
    {QStyle::SP_FileDialogNewFolder, &newFolder, &Theme::text},
    {QStyle::SP_FileDialogListView, &tiles, &Theme::text},
    {QStyle::SP_FileDialogDetailedView, &details, &Theme::text},
    {QStyle::SP_DirIcon, &folder, &Theme::accent},
    {QStyle::SP_DirOpenIcon, &folder, &Theme::accent},
    {QStyle::SP_DirClosedIcon, &folder, &Theme::accent},
    {QStyle::SP_DirLinkIcon, &folder, &Theme::dimText},
    {QStyle::SP_DirLinkOpenIcon, &folder, &Theme::dimText},
    {QStyle::SP_DirHomeIcon, &home, &Theme::accent},
    {QStyle::SP_DesktopIcon, &computer, &Theme::accent},
    {QStyle::SP_ComputerIcon, &computer, &Theme::accent},
    {QStyle::SP_DriveHDIcon, &drive, &Theme::accent},
    {QStyle::SP_DriveNetIcon, &drive, &Theme::accent},
    {QStyle::SP_FileIcon, &file, &Theme::dimText},
    {QStyle::SP_FileLinkIcon, &file, &Theme::dimText},
    {QStyle::SP_MessageBoxWarning, &warning, &Theme::accent},
};

/// Draws at the size that is asked for, so that no scale blurs it.
class LineEngine : public QIconEngine {
 public:
  explicit LineEngine(const Drawing& drawing) : _drawing(drawing) {}

  QIconEngine* clone() const override { return new LineEngine(_drawing); }

  void paint(QPainter* painter, const QRect& area, QIcon::Mode mode, QIcon::State /*on*/) override {
    constexpr double side = 16;
    const double scale = std::min(area.width(), area.height()) / side;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(QRectF(area).center() - QPointF(side, side) * scale / 2);
    painter->scale(scale, scale);
    painter->setOpacity(mode == QIcon::Disabled ? 0.35 : 1);
    painter->setPen(QPen(mode == QIcon::Selected ? Theme::text() : _drawing.colour(), 1.3,
                         Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter->drawPath(_drawing.path());
    painter->restore();
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap drawn(size);
    drawn.fill(Qt::transparent);
    QPainter painter(&drawn);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return drawn;
  }

 private:
  const Drawing& _drawing;
};

}  // namespace

QIcon lineIcon(QStyle::StandardPixmap what) {
  const auto* const found =
      std::find_if(std::begin(drawings), std::end(drawings),
                   [what](const Drawing& drawing) { return drawing.what == what; });
  return found == std::end(drawings) ? QIcon() : QIcon(new LineEngine(*found));
}

}  // namespace Viewer
