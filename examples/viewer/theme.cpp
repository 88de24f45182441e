#include "theme.h"

#include "style.h"

#include <QApplication>
#include <QPalette>

namespace Viewer::Theme {

namespace {

constexpr const char* styleSheet = R"(
QMainWindow, QScrollArea, QWidget#panel, QWidget#strip { background: #1d2025; }
QMenuBar { background: #1d2025; color: #c6ccd4; padding: 2px 4px; border-bottom: 1px solid #2b3037; }
QMenuBar::item { padding: 4px 9px; border-radius: 4px; background: transparent; }
QMenuBar::item:selected { background: #31373f; color: #ffffff; }
QMenu { background: #25292f; border: 1px solid #3a414a; padding: 4px; }
QMenu::item { padding: 5px 26px 5px 22px; border-radius: 4px; }
QMenu::item:selected { background: #2f5fb3; color: #ffffff; }
QMenu::item:disabled { color: #6b737d; }
QMenu::separator { height: 1px; background: #3a414a; margin: 4px 8px; }
QScrollArea { border: none; border-left: 1px solid #2b3037; }
QWidget#strip { border-top: 1px solid #2b3037; }
QLabel { background: transparent; }
QLabel[role="name"], QLabel[role="hint"] { color: #949ca7; }
QLabel[role="caption"] { color: #7f8894; }
QFrame[role="rule"] { background: #2d323a; border: none; max-height: 1px; min-height: 1px; }
QPushButton, QToolButton { background: #30363f; color: #e7eaee; border: 1px solid #424a55;
  border-radius: 5px; padding: 4px 14px; }
QPushButton:hover, QToolButton:hover { background: #3a424d; }
QPushButton:pressed, QToolButton:pressed { background: #262b32; }
QPushButton:focus, QToolButton:focus { border-color: #5b97ff; }
QPushButton#openFirst { background: #2f6be0; border-color: #4480f0; padding: 8px 22px; }
QPushButton#openFirst:hover { background: #3c78ee; }
QPushButton#abort:hover { background: #93323a; border-color: #b0444d; }
QToolButton { padding: 4px 10px; background: rgba(32, 36, 42, 200); border-color: rgba(255, 255, 255, 28); }
QProgressBar { background: #2a2f36; border: none; border-radius: 4px; max-height: 8px; min-height: 8px; }
QProgressBar::chunk { background: #4d8df6; border-radius: 4px; }
QFrame#messages { background: #4a2529; border: none; border-bottom: 1px solid #7a3a41; }
QFrame#messages[kind="note"] { background: #2b3442; border-bottom: 1px solid #43536b; }
QFrame#messages QToolButton { background: transparent; border: none; padding: 2px 8px; }
QScrollBar { background: transparent; border: none; }
QScrollBar:vertical { width: 8px; }
QScrollBar:horizontal { height: 8px; }
QScrollBar::handle { background: #3d444e; border-radius: 4px; min-height: 24px; min-width: 24px; }
QScrollBar::add-line, QScrollBar::sub-line { height: 0; width: 0; }
QComboBox QAbstractItemView { background: #25292f; border: 1px solid #4a525d; padding: 3px; }
QFileDialog QToolButton { background: transparent; border-color: transparent; padding: 4px; }
QFileDialog QToolButton:hover { background: #31373f; }
QFileDialog QToolButton:checked { background: #31373f; border-color: #424a55; }
QFileDialog QListView, QFileDialog QTreeView { background: #16191d; border: 1px solid #2b3037; border-radius: 5px;
  padding: 2px; outline: none; }
QFileDialog QListView::item, QFileDialog QTreeView::item { padding: 3px 4px; border: none; }
QFileDialog QListView::item:selected, QFileDialog QTreeView::item:selected { background: #2f5fb3;
  color: #ffffff; }
QHeaderView { background: transparent; border: none; }
QHeaderView::section { background: transparent; color: #949ca7; padding: 5px 8px; border: none;
  border-bottom: 1px solid #2b3037; }
QLineEdit { background: #16191d; color: #e7eaee; border: 1px solid #424a55; border-radius: 5px;
  padding: 4px 7px; }
QLineEdit:focus { border-color: #5b97ff; }
QSplitter::handle { background: transparent; }
QToolTip { background: #2a2f36; color: #e7eaee; border: 1px solid #424a55; padding: 3px; }
)";

QPalette palette() {
  QPalette palette;
  palette.setColor(QPalette::Window, QColor(0x1d, 0x20, 0x25));
  palette.setColor(QPalette::WindowText, text());
  palette.setColor(QPalette::Base, QColor(0x16, 0x19, 0x1d));
  palette.setColor(QPalette::AlternateBase, QColor(0x25, 0x29, 0x2f));
  palette.setColor(QPalette::Text, text());
  palette.setColor(QPalette::Button, QColor(0x30, 0x36, 0x3f));
  palette.setColor(QPalette::ButtonText, text());
  palette.setColor(QPalette::ToolTipBase, QColor(0x2a, 0x2f, 0x36));
  palette.setColor(QPalette::ToolTipText, text());
  palette.setColor(QPalette::Highlight, QColor(0x2f, 0x5f, 0xb3));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::Link, accent());
  palette.setColor(QPalette::Disabled, QPalette::Text, QColor(0x6b, 0x73, 0x7d));
  palette.setColor(QPalette::Disabled, QPalette::ButtonText, QColor(0x6b, 0x73, 0x7d));
  return palette;
}

QFont resized(QFont font, double factor) {
  if (font.pointSizeF() > 0) {
    font.setPointSizeF(font.pointSizeF() * factor);
  } else {
    font.setPixelSize(qRound(font.pixelSize() * factor));
  }
  return font;
}

}  // namespace

void apply(QApplication& application) {
  QApplication::setStyle(new Style);
  QApplication::setPalette(palette());
  if (QGuiApplication::platformName() == "offscreen") {
    // Without a desktop nobody has chosen the size of the font.
    QFont font = QApplication::font();
    font.setPointSizeF(10);
    QApplication::setFont(font);
  }
  application.setStyleSheet(styleSheet);
}

QColor text() {
  return {0xe7, 0xea, 0xee};
}
QColor dimText() {
  return {0x9f, 0xa7, 0xb2};
}
QColor quiet() {
  return {255, 255, 255, 46};
}
QColor accent() {
  return {0x5b, 0x97, 0xff};
}
QColor control() {
  return {0x30, 0x36, 0x3f};
}
QColor controlEdge() {
  return {0x42, 0x4a, 0x55};
}
QColor glass() {
  return {0x17, 0x1a, 0x1f, 190};
}
QColor glassEdge() {
  return {255, 255, 255, 26};
}

QFont strong(QFont font) {
  font.setWeight(QFont::DemiBold);
  return font;
}
QFont small(const QFont& font) {
  return resized(font, 0.88);
}

}  // namespace Viewer::Theme
