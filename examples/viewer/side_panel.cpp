#include "side_panel.h"

#include "display_unit.h"
#include "scan.h"
#include "theme.h"

#include <kyr/i18n/KyrTranslate.h>
#include <kyr/units/KyrUnits.h>

#include <QComboBox>
#include <QFileInfo>
#include <QFrame>
#include <QLabel>
#include <QVBoxLayout>
#include <QVariant>

#include <utility>

namespace Viewer {

namespace {

using Kyr::translate;

constexpr int panelWidth = 272;
constexpr int sideMargin = 18;
const QString none = QString::fromUtf8("–");

QLabel* label(const QString& text, const QString& role) {
  auto* const made = new QLabel(text);
  made->setProperty("role", role);
  return made;
}

/// The text of a curvature; none without any curvatures, for which the numbers are zero too.
QString curvature(const Scan& scan, double value) {
  return scan.curvature.defined > 0 ? shownValue(Kyr::uCurvature, value) : none;
}

}  // namespace

SidePanel::SidePanel(QWidget* parent) : QScrollArea(parent) {
  setObjectName("numbers");
  setAccessibleName(translate("Viewer", "Numbers of the scan"));
  setFixedWidth(panelWidth);
  setWidgetResizable(true);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setFocusPolicy(Qt::NoFocus);
  auto* const panel = new QWidget;
  panel->setObjectName("panel");
  auto* const column = new QVBoxLayout(panel);
  column->setContentsMargins(sideMargin, 16, sideMargin, 16);
  column->setSpacing(5);
  addHead(*column);
  addUnit(*column);
  addSurface(*column);
  addSize(*column);
  addCurvature(*column);
  column->addStretch(1);
  setWidget(panel);
  show(nullptr);
}

void SidePanel::addHead(QVBoxLayout& column) {
  _name = label({}, "title");
  _name->setObjectName("name");
  QFont large = Theme::strong(font());
  large.setPointSizeF(large.pointSizeF() * 1.2);
  _name->setFont(large);
  _origin = label({}, "name");
  _origin->setFont(Theme::small(font()));
  column.addWidget(_name);
  column.addWidget(_origin);
  column.addSpacing(8);
}

void SidePanel::addUnit(QVBoxLayout& column) {
  _unit = new QComboBox;
  _unit->setObjectName("unit");
  _unit->setMinimumWidth(90);
  _unit->setAccessibleName(translate("Viewer", "Unit of length"));
  _unit->setToolTip(translate("Viewer", "Unit of length; areas, volumes and curvatures follow"));
  for (const Kyr::Unit::Units_t unit : displayUnits()) {
    _unit->addItem(Kyr::uLength.getUName(unit), unit);
  }
  _unit->setCurrentIndex(_unit->findData(Kyr::uLength.getDefault()));
  connect(_unit, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &SidePanel::chooseUnit);
  auto* const name = label(translate("Viewer", "&Unit"), "name");
  name->setBuddy(_unit);
  auto* const row = new QHBoxLayout;
  row->addWidget(name);
  row->addStretch(1);
  row->addWidget(_unit);
  column.addLayout(row);
}

void SidePanel::addSection(QVBoxLayout& column, const QString& caption) {
  auto* const rule = new QFrame;
  rule->setProperty("role", "rule");
  auto* const title = label(caption.toUpper(), "caption");
  QFont spaced = Theme::strong(Theme::small(font()));
  spaced.setLetterSpacing(QFont::PercentageSpacing, 108);
  title->setFont(spaced);
  column.addSpacing(8);
  column.addWidget(rule);
  column.addSpacing(6);
  column.addWidget(title);
}

void SidePanel::addRow(QVBoxLayout& column, const QString& name, const QString& object, Text text) {
  auto* const number = label({}, "number");
  number->setObjectName(object);
  number->setAccessibleName(name);
  number->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  number->setTextInteractionFlags(Qt::TextSelectableByMouse);
  auto* const row = new QHBoxLayout;
  row->addWidget(label(name, "name"));
  row->addWidget(number, 1);
  column.addLayout(row);
  _shown.push_back({number, std::move(text)});
}

void SidePanel::addSurface(QVBoxLayout& column) {
  addSection(column, translate("Viewer", "Surface"));
  addRow(column, translate("Viewer", "Points"), "points",
         [](const Scan& scan) { return shownCount(scan.points); });
  addRow(column, translate("Viewer", "Triangles"), "triangles",
         [](const Scan& scan) { return shownCount(scan.triangles); });
  addRow(column, translate("Viewer", "Open edges"), "openEdges",
         [](const Scan& scan) { return shownCount(scan.measures.openEdges); });
}

void SidePanel::addExtent(QVBoxLayout& column, const QString& name, const QString& object,
                          std::size_t axis) {
  addRow(column, name, object,
         [axis](const Scan& scan) { return shownValue(Kyr::uLength, scan.measures.extent[axis]); });
}

void SidePanel::addSize(QVBoxLayout& column) {
  addSection(column, translate("Viewer", "Size"));
  addExtent(column, translate("Viewer", "Width"), "width", 0);
  addExtent(column, translate("Viewer", "Height"), "height", 1);
  addExtent(column, translate("Viewer", "Depth"), "depth", 2);
  addRow(column, translate("Viewer", "Area"), "area",
         [](const Scan& scan) { return shownValue(Kyr::uArea, scan.measures.area); });
  addRow(column, translate("Viewer", "Volume"), "volume",
         [](const Scan& scan) { return shownValue(Kyr::uVolume, scan.measures.volume); });
  _remark =
      label(translate("Viewer", "Open surface: its volume is closed over its middle."), "hint");
  _remark->setFont(Theme::small(font()));
  _remark->setWordWrap(true);
  column.addWidget(_remark);
}

void SidePanel::addCurvature(QVBoxLayout& column) {
  addSection(column, translate("Viewer", "Mean curvature"));
  addRow(column, translate("Viewer", "Highest"), "highest",
         [](const Scan& scan) { return curvature(scan, scan.curvature.highest); });
  addRow(column, translate("Viewer", "5 % lie above"), "high",
         [](const Scan& scan) { return curvature(scan, scan.curvature.high); });
  addRow(column, translate("Viewer", "Median"), "median",
         [](const Scan& scan) { return curvature(scan, scan.curvature.median); });
  addRow(column, translate("Viewer", "5 % lie below"), "low",
         [](const Scan& scan) { return curvature(scan, scan.curvature.low); });
  addRow(column, translate("Viewer", "Lowest"), "lowest",
         [](const Scan& scan) { return curvature(scan, scan.curvature.lowest); });
}

void SidePanel::setScan(std::shared_ptr<const Scan> scan) {
  _scan = std::move(scan);
  show(_scan.get());
}

void SidePanel::chooseUnit(int row) {
  setDisplayUnit(static_cast<Kyr::Unit::Units_t>(_unit->itemData(row).toInt()));
  show(_scan.get());
  Q_EMIT unitChanged();
}

void SidePanel::show(const Scan* scan) {
  const QString file =
      scan != nullptr ? QFileInfo(scan->path).fileName() : translate("Viewer", "No scan");
  const int width = panelWidth - 2 * sideMargin;
  _name->setText(QFontMetrics(_name->font()).elidedText(file, Qt::ElideMiddle, width));
  _name->setToolTip(scan != nullptr ? scan->path : QString());
  _origin->setText(scan != nullptr ? scan->origin
                                   : translate("Viewer", "Open one to see its numbers"));
  _remark->setVisible(scan != nullptr && scan->measures.openEdges > 0);
  for (const Shown& shown : _shown) {
    shown.label->setText(scan != nullptr ? shown.text(*scan) : none);
  }
}

}  // namespace Viewer
