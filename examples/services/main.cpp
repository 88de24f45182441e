/// \file
/// Undo and redo on the library's bases, and the time that they take.
///
///   undo_list
///
/// A container hands every change to the manager as a record of how to take it back and how to
/// make it again. Applications may have many containers; their manager is the only one.

#include <kyr/diagnostics/KyrDebugTimer.h>
#include <kyr/undo/KyrRecordManager.h>

#include <cstdint>
#include <cstdio>
#include <functional>
#include <utility>
#include <vector>

namespace {

/// Keeps the records, the newest at the end; those behind the present place were undone.
class RecordManager : public Kyr::RecordManagerBase {
 public:
  static RecordManager& instance() { return *static_cast<RecordManager*>(_manager_base); }

  void record(std::function<void()> back, std::function<void()> again) {
    _records.resize(_present);  // a new change ends the way to what was undone
    _records.push_back({_next_record_id++, std::move(back), std::move(again)});
    ++_present;
  }

  bool isRecording() const override { return true; }
  bool isUndoRedoAllowed() const override { return true; }
  void clearAll() override {
    _records.clear();
    _present = 0;
    Kyr::StructRecordVectorBase::resetAllRecordingModes();
  }
  bool undo() override {
    if (_present == 0) {
      return false;
    }
    _records[--_present].back();
    return true;
  }
  bool redo() override {
    if (_present == _records.size()) {
      return false;
    }
    _records[_present++].again();
    return true;
  }

 private:
  struct Record {
    std::uint32_t id;
    std::function<void()> back;
    std::function<void()> again;
  };
  std::vector<Record> _records;
  std::size_t _present = 0;
};

/// Lengths in millimetres that can be undone.
class Lengths : public Kyr::StructRecordVectorBase {
 public:
  void append(double length) {
    _lengths.push_back(length);
    if (_recording) {
      RecordManager::instance().record([this] { _lengths.pop_back(); },
                                       [this, length] { _lengths.push_back(length); });
    }
  }
  void pauseRecording() { _recording = false; }
  void resetRecordingMode() override { _recording = true; }

  void show(const char* what) const {
    std::printf("%s:", what);
    for (const double length : _lengths) {
      std::printf(" %d", static_cast<int>(length));
    }
    std::printf("\n");
  }

 private:
  std::vector<double> _lengths;
  bool _recording = true;
};

}  // namespace

int main() {
  Kyr::DebugTimer timer("undo and redo");
  RecordManager manager;
  Lengths lengths;
  for (const double length : {10, 20, 30, 40}) {
    timer.begin();
    lengths.append(length);
    timer.end("append");
  }
  lengths.show("four lengths");
  timer.mark("filled");

  manager.undo();
  manager.undo();
  lengths.show("undone twice");
  manager.redo();
  lengths.show("redone once");
  timer.mark("undone and redone");

  lengths.pauseRecording();  // what follows cannot be undone
  lengths.append(50);
  manager.clearAll();  // another project: every container records again
  lengths.append(60);
  const bool once = manager.undo();
  lengths.show(once && !manager.undo() ? "only the last one could be undone" : "a fault");
  timer.mark("paused");

  std::printf("\n");
  timer.print();
  return 0;
}
