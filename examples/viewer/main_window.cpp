#include "main_window.h"

#include "file_dialog.h"
#include "message_bar.h"
#include "progress_bridge.h"
#include "side_panel.h"
#include "status_strip.h"
#include "view.h"

#include <kyr/i18n/KyrTranslate.h>
#include <kyr/jobs/KyrProgress.h>

#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QMimeData>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>
#include <QVariant>

namespace Viewer {

namespace {

using Kyr::Progress;
using Kyr::translate;

/// The name of the file that is dragged; empty for several files and anything else.
QString draggedFile(const QMimeData& data) {
  const QList<QUrl> urls = data.urls();
  return urls.size() == 1 && urls.first().isLocalFile() ? urls.first().toLocalFile() : QString();
}

QString nameOf(const QString& path) {
  return QFileInfo(path).fileName();
}

}  // namespace

MainWindow::MainWindow(double millimetresPerUnit, unsigned copies)
    : _millimetresPerUnit(millimetresPerUnit),
      _copies(copies),
      _messages(new MessageBar),
      _view(new View),
      _panel(new SidePanel),
      _strip(new StatusStrip),
      _bridge(std::make_unique<ProgressBridge>()) {
  setWindowTitle(translate("Viewer", "Scan viewer"));
  setAcceptDrops(true);
  setMinimumSize(660, 400);  // the buttons have room beside the legend, in every language
  resize(1280, 800);

  auto* const middle = new QWidget;
  auto* const row = new QHBoxLayout;
  row->setSpacing(0);
  row->addWidget(_view, 1);
  row->addWidget(_panel);
  auto* const column = new QVBoxLayout(middle);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(_messages);
  column->addLayout(row, 1);
  column->addWidget(_strip);
  setCentralWidget(middle);

  buildMenus();
  buildFloatingButtons();
  buildWelcome();
  _view->installEventFilter(this);
  connect(_bridge.get(), &ProgressBridge::progressed, _strip, &StatusStrip::setProgress);
  connect(_strip, &StatusStrip::abortRequested, this, [this] {
    _next.reset();
    abort();
  });
  connect(_panel, &SidePanel::unitChanged, _view, &View::changeUnit);
  connect(_view, &View::probed, _strip, &StatusStrip::setProbe);
  showScan(nullptr);
  _view->setFocus();
}

MainWindow::~MainWindow() {
  if (_loading) {
    abort();
    _loading->wait();
  }
}

void MainWindow::buildMenus() {
  buildFileMenu();
  buildViewMenu();
}

void MainWindow::buildFileMenu() {
  QMenu* const menu = menuBar()->addMenu(translate("Viewer", "&File"));
  menu->addAction(translate("Viewer", "&Open…"), this, &MainWindow::chooseFile, QKeySequence::Open);
  _savePicture = menu->addAction(translate("Viewer", "&Save picture…"), this,
                                 &MainWindow::savePicture, QKeySequence::Save);
  menu->addSeparator();
  menu->addAction(translate("Viewer", "&Quit"), this, &QWidget::close, QKeySequence::Quit);
}

void MainWindow::buildViewMenu() {
  QMenu* const menu = menuBar()->addMenu(translate("Viewer", "&View"));
  menu->addAction(translate("Viewer", "&Fit"), _view, &View::fit, QKeySequence(Qt::Key_F));
  menu->addSeparator();
  struct Entry {
    QString name;
    Standpoint from;
    int key;
  };
  const Entry entries[] = {
      {translate("Viewer", "&Oblique"), Standpoint::Oblique, Qt::Key_Home},
      {translate("Viewer", "F&ront"), Standpoint::Front, Qt::Key_1},
      {translate("Viewer", "&Back"), Standpoint::Back, Qt::Key_2},
      {translate("Viewer", "&Left"), Standpoint::Left, Qt::Key_3},
      {translate("Viewer", "Ri&ght"), Standpoint::Right, Qt::Key_4},
      {translate("Viewer", "&Top"), Standpoint::Top, Qt::Key_5},
      {translate("Viewer", "Botto&m"), Standpoint::Bottom, Qt::Key_6},
  };
  for (const Entry& entry : entries) {
    menu->addAction(
        entry.name, _view, [this, from = entry.from] { _view->look(from); },
        QKeySequence(entry.key));
  }
}

void MainWindow::buildFloatingButtons() {
  _buttons = new QWidget(_view);
  auto* const row = new QHBoxLayout(_buttons);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(6);
  const auto add = [&](const QString& name, const QString& help, auto action) {
    auto* const button = new QToolButton;
    button->setText(name);
    button->setToolTip(help);
    button->setAccessibleName(help);
    button->setFocusPolicy(Qt::TabFocus);
    connect(button, &QToolButton::clicked, _view, action);
    row->addWidget(button);
    return button;
  };
  add(translate("Viewer", "Fit"), translate("Viewer", "Show all of the scan (F)"), &View::fit)
      ->setObjectName("fit");
  add(translate("Viewer", "Reset"), translate("Viewer", "Back to the first view (Home)"), [this] {
    _view->look(Standpoint::Oblique);
  })->setObjectName("reset");
}

void MainWindow::buildWelcome() {
  _welcome = new QWidget(_view);
  auto* const title = new QLabel(translate("Viewer", "Drop a scan here"));
  QFont large = font();
  large.setPointSizeF(large.pointSizeF() * 1.7);
  title->setFont(large);
  title->setAlignment(Qt::AlignCenter);
  auto* const hint = new QLabel(translate("Viewer", "an OBJ file, or a project (.kyr)"));
  hint->setProperty("role", "hint");
  hint->setAlignment(Qt::AlignCenter);
  auto* const button = new QPushButton(translate("Viewer", "Open…"));
  button->setObjectName("openFirst");
  button->setAccessibleName(translate("Viewer", "Open a scan"));
  connect(button, &QPushButton::clicked, this, &MainWindow::chooseFile);
  auto* const column = new QVBoxLayout(_welcome);
  column->setSpacing(8);
  column->addWidget(title);
  column->addWidget(hint);
  column->addSpacing(10);
  column->addWidget(button, 0, Qt::AlignCenter);
}

void MainWindow::placeOnView() {
  _welcome->adjustSize();
  _welcome->move(_view->rect().center() - _welcome->rect().center());
  _buttons->adjustSize();
  _buttons->move(12, 12);
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched == _view && event->type() == QEvent::Resize) {
    placeOnView();
  }
  return QMainWindow::eventFilter(watched, event);
}

void MainWindow::chooseFile() {
  const QString filters = translate("Viewer", "Scans and projects") + " (*.obj *.OBJ *.kyr);;" +
                          translate("Viewer", "All files") + " (*)";
  const QString path =
      askForFile(*this, translate("Viewer", "Open a scan"), filters, QFileDialog::AcceptOpen);
  if (!path.isEmpty()) {
    open(path);
  }
}

void MainWindow::savePicture() {
  const QString path = askForFile(*this, translate("Viewer", "Save the picture"), "PNG (*.png)",
                                  QFileDialog::AcceptSave);
  if (!path.isEmpty() && !_view->grab().save(path, "PNG")) {
    _messages->showProblem(translate("Viewer", "%1 could not be written.").arg(path));
  }
}

void MainWindow::open(const QString& path) {
  if (_loading) {
    _next = path;
    abort();
    return;
  }
  begin(path);
}

void MainWindow::begin(const QString& path) {
  _messages->hide();
  Progress::setAbortFlag(false);
  Progress::reset();
  _strip->setBusy(true);
  _welcome->hide();
  Source source;
  source.path = path;
  source.millimetresPerUnit = _millimetresPerUnit;
  source.copies = _copies;
  _loading = std::make_unique<Loading>(source);
  connect(_loading.get(), &QThread::finished, this, &MainWindow::end);
  if (!_loading->begin()) {
    QMetaObject::invokeMethod(this, &MainWindow::end, Qt::QueuedConnection);
  }
}

void MainWindow::end() {
  if (!_loading || _loading->isRunning()) {
    return;  // a file that was given up as the window closed has ended late
  }
  _loading->wait();
  const std::unique_ptr<Loading> loading = std::move(_loading);
  Progress::setAbortFlag(false);
  Progress::reset();
  if (_next) {
    const QString path = *_next;
    _next.reset();
    begin(path);
    return;
  }
  _strip->setBusy(false);
  const QString name = nameOf(loading->source().path);
  switch (loading->outcome()) {
    case Outcome::Loaded:
      showScan(loading->scan());
      break;
    case Outcome::Failed:
      _messages->showProblem(
          translate("Viewer", "%1 was not opened: %2").arg(name, loading->problem()));
      break;
    case Outcome::Aborted:
      _messages->showNote(translate("Viewer", "Opening %1 was aborted.").arg(name));
      break;
  }
  _welcome->setVisible(!_scan);
  Q_EMIT ended(loading->outcome());
}

void MainWindow::showScan(const std::shared_ptr<const Scan>& scan) {
  _scan = scan;
  _view->setScan(scan);
  _panel->setScan(scan);
  _buttons->setVisible(scan != nullptr);
  _strip->setHintShown(scan != nullptr);
  _savePicture->setEnabled(scan != nullptr);
  _welcome->setVisible(!scan);
  placeOnView();
  if (scan) {
    setWindowTitle(translate("Viewer", "%1 – Scan viewer").arg(nameOf(scan->path)));
    if (!scan->remarks.isEmpty()) {
      _messages->showNote(scan->remarks);
    }
  }
}

void MainWindow::abort() {
  Progress::setAbortFlag(true);
}

void MainWindow::closeEvent(QCloseEvent* event) {
  _next.reset();
  if (_loading) {
    abort();
    disconnect(_loading.get(), nullptr, this, nullptr);
    _loading->wait();
    _loading.reset();
  }
  event->accept();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (!draggedFile(*event->mimeData()).isEmpty()) {
    event->acceptProposedAction();
    _view->setDropMark(true);
  }
}

void MainWindow::dragLeaveEvent(QDragLeaveEvent* /*event*/) {
  _view->setDropMark(false);
}

void MainWindow::dropEvent(QDropEvent* event) {
  _view->setDropMark(false);
  const QString path = draggedFile(*event->mimeData());
  if (!path.isEmpty()) {
    event->acceptProposedAction();
    open(path);
  }
}

}  // namespace Viewer
