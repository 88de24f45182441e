/// \file
/// What is known of the scan, in numbers.
#pragma once

#include <QScrollArea>

#include <functional>
#include <memory>
#include <vector>

class QComboBox;
class QLabel;
class QVBoxLayout;

namespace Viewer {

struct Scan;

/// The name of the scan, the choice of the unit, and a table of numbers in that unit.
class SidePanel : public QScrollArea {
  Q_OBJECT

 public:
  explicit SidePanel(QWidget* parent = nullptr);

  /// \param scan null for none
  void setScan(std::shared_ptr<const Scan> scan);

 Q_SIGNALS:
  /// The user has chosen another unit; it is the default of all kinds already.
  void unitChanged();

 private:
  /// A number that is shown, and how its text is made.
  struct Shown {
    QLabel* label;
    std::function<QString(const Scan&)> text;
  };
  using Text = std::function<QString(const Scan&)>;

  void addHead(QVBoxLayout& column);
  void addUnit(QVBoxLayout& column);
  void addSection(QVBoxLayout& column, const QString& caption);
  void addRow(QVBoxLayout& column, const QString& name, const QString& object, Text text);
  void addExtent(QVBoxLayout& column, const QString& name, const QString& object, std::size_t axis);
  void addSurface(QVBoxLayout& column);
  void addSize(QVBoxLayout& column);
  void addCurvature(QVBoxLayout& column);
  void chooseUnit(int row);
  void show(const Scan* scan);

  std::shared_ptr<const Scan> _scan;
  QLabel* _name = nullptr;
  QLabel* _origin = nullptr;
  QLabel* _remark = nullptr;
  QComboBox* _unit = nullptr;
  std::vector<Shown> _shown;
};

}  // namespace Viewer
