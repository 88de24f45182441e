#include "file_dialog.h"

#include <QFileInfo>
#include <QHeaderView>
#include <QSplitter>
#include <QStandardPaths>
#include <QTreeView>
#include <QUrl>
#include <QWidget>

namespace Viewer {

namespace {

/// Where people keep files, as far as there are such places.
QList<QUrl> places() {
  QList<QUrl> places;
  for (const auto place : {QStandardPaths::HomeLocation, QStandardPaths::DesktopLocation,
                           QStandardPaths::DocumentsLocation, QStandardPaths::DownloadLocation}) {
    const QUrl url = QUrl::fromLocalFile(QStandardPaths::writableLocation(place));
    if (!places.contains(url) && QFileInfo(url.toLocalFile()).isDir()) {
      places << url;
    }
  }
  return places << QUrl("file:");  // all of the computer
}

/// Gives the names what the other columns leave.
void arrange(QTreeView& list) {
  QHeaderView& header = *list.header();
  header.setSectionResizeMode(QHeaderView::ResizeToContents);
  header.setSectionResizeMode(0, QHeaderView::Stretch);
  header.setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

}  // namespace

QString askForFile(QWidget& parent, const QString& title, const QString& filters,
                   QFileDialog::AcceptMode mode) {
  QFileDialog dialog(&parent, title, QString(), filters);
  dialog.setAcceptMode(mode);
  dialog.setFileMode(mode == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile
                                                     : QFileDialog::AnyFile);
  dialog.setSidebarUrls(places());
  dialog.setSizeGripEnabled(false);  // its frame does that
  dialog.resize(820, 520);
  if (auto* const sides = dialog.findChild<QSplitter*>("splitter")) {
    sides->setSizes({170, 650});
  }
  if (auto* const list = dialog.findChild<QTreeView*>("treeView")) {
    arrange(*list);  // as the splitter, it is not there in the dialog of a desktop
  }
  return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

}  // namespace Viewer
