/// \file
/// The window of the program.
#pragma once

#include "scan.h"

#include <QMainWindow>
#include <QMetaType>

#include <memory>
#include <optional>

class QAction;
class QMenu;

namespace Viewer {

class MessageBar;
class ProgressBridge;
class SidePanel;
class StatusStrip;
class View;

/// Shows one scan and opens others. A scan is replaced only by one that was loaded whole.
class MainWindow : public QMainWindow {
  Q_OBJECT

 public:
  explicit MainWindow(double millimetresPerUnit = 1, unsigned copies = 1);
  ~MainWindow() override;

  /// Begins to load a file. One that is being loaded is given up for it.
  void open(const QString& path);
  bool isBusy() const { return _loading != nullptr; }
  /// The scan that is shown; null for none.
  std::shared_ptr<const Scan> scan() const { return _scan; }
  const View& view() const { return *_view; }
  const MessageBar& messages() const { return *_messages; }

 Q_SIGNALS:
  /// The file that was opened last has been loaded or not, and the window shows it.
  void ended(Viewer::Outcome outcome);

 protected:
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragLeaveEvent(QDragLeaveEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void buildMenus();
  void buildFileMenu();
  void buildViewMenu();
  void buildFloatingButtons();
  void buildWelcome();
  void placeOnView();
  void chooseFile();
  void savePicture();
  void begin(const QString& path);
  void end();
  void showScan(const std::shared_ptr<const Scan>& scan);
  void abort();
  bool eventFilter(QObject* watched, QEvent* event) override;

  const double _millimetresPerUnit;
  const unsigned _copies;
  MessageBar* _messages;
  View* _view;
  SidePanel* _panel;
  StatusStrip* _strip;
  QWidget* _welcome = nullptr;
  QWidget* _buttons = nullptr;
  QAction* _savePicture = nullptr;
  std::unique_ptr<ProgressBridge> _bridge;
  std::unique_ptr<Loading> _loading;
  std::optional<QString> _next;  // to be opened when the one in work has stopped
  std::shared_ptr<const Scan> _scan;
};

}  // namespace Viewer

Q_DECLARE_METATYPE(Viewer::Outcome)
