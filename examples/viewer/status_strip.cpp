#include "status_strip.h"

#include "display_unit.h"
#include "theme.h"

#include <kyr/i18n/KyrTranslate.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVariant>

#include <cmath>

namespace Viewer {

namespace {

using Kyr::translate;

constexpr int stripHeight = 44;
constexpr int idlePage = 0;
constexpr int busyPage = 1;

QHBoxLayout* rowOf(QWidget* page) {
  auto* const row = new QHBoxLayout(page);
  row->setContentsMargins(16, 0, 16, 0);
  row->setSpacing(14);
  return row;
}

}  // namespace

StatusStrip::StatusStrip(QWidget* parent) : QStackedWidget(parent) {
  setFixedHeight(stripHeight);
  insertWidget(idlePage, makeIdle());
  insertWidget(busyPage, makeBusy());
}

QWidget* StatusStrip::makeIdle() {
  auto* const page = new QWidget;
  page->setObjectName("strip");
  _hint = new QLabel(translate("Viewer", "Drag to turn  ·  Shift-drag to move  ·  Wheel to zoom"));
  _hint->setProperty("role", "hint");
  _hint->setFont(Theme::small(font()));
  _probe = new QLabel;
  _probe->setObjectName("probe");
  _probe->setAccessibleName(translate("Viewer", "Curvature under the mouse"));
  QHBoxLayout* const row = rowOf(page);
  row->addWidget(_hint);
  row->addStretch(1);
  row->addWidget(_probe);
  return page;
}

QWidget* StatusStrip::makeBusy() {
  auto* const page = new QWidget;
  page->setObjectName("strip");
  _text = new QLabel;
  _text->setObjectName("progressText");
  _text->setMinimumWidth(190);
  _bar = new QProgressBar;
  _bar->setObjectName("progress");
  _bar->setAccessibleName(translate("Viewer", "Progress of the computation"));
  _bar->setRange(0, 100);
  _bar->setValue(0);
  _bar->setTextVisible(false);
  _percent = new QLabel;
  _percent->setFixedWidth(QFontMetrics(font()).horizontalAdvance("100 %"));
  _percent->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  _abort = new QPushButton(translate("Viewer", "Abort"));
  _abort->setObjectName("abort");
  _abort->setAccessibleName(translate("Viewer", "Abort the computation"));
  _abort->setToolTip(translate("Viewer", "Stops the computation and keeps what is shown (Esc)"));
  _abort->setShortcut(Qt::Key_Escape);
  connect(_abort, &QPushButton::clicked, this, [this] {
    _abort->setEnabled(false);
    Q_EMIT abortRequested();
  });
  QHBoxLayout* const row = rowOf(page);
  row->addWidget(_text);
  row->addWidget(_bar, 1);
  row->addWidget(_percent);
  row->addWidget(_abort);
  return page;
}

void StatusStrip::setBusy(bool busy) {
  _abort->setEnabled(busy);
  setProgress(0, {});
  setCurrentIndex(busy ? busyPage : idlePage);
}

void StatusStrip::setHintShown(bool shown) {
  _hint->setVisible(shown);
}

void StatusStrip::setProgress(int percent, const QString& text) {
  _bar->setValue(percent < 0 ? 0 : percent);
  _percent->setText(QString("%1 %").arg(_bar->value()));
  _text->setText(text);
}

void StatusStrip::setProbe(float curvature) {
  _probe->setText(std::isnan(curvature)
                      ? QString()
                      : translate("Viewer", "Curvature here  %1")
                            .arg(shownValue(Kyr::uCurvature, static_cast<double>(curvature))));
}

}  // namespace Viewer
