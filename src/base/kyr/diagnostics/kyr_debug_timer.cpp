#include <kyr/diagnostics/KyrDebugTimer.h>
#include <kyr/diagnostics/performance_counter_p.h>

#include <kyr/core/KyrProgError.h>
#include <kyr/text/numeric_p.h>
#include <kyr/trace/KyrTrace.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdio>
#include <new>

namespace Kyr {

/// Support matches reports by these numbers; they do not follow edits of this file.
namespace site {
constexpr unsigned Mark = 94, End = 118, ToString = 198;
constexpr const char* File = "kyr_debug_timer";
}  // namespace site

namespace {

std::atomic<const PerformanceCounter::Source*> counterSource{nullptr};

std::int64_t presentCount() {
  const PerformanceCounter::Source* const source = counterSource;
  return source ? source->count() : Platform::performanceCount();
}

std::int64_t presentFrequency() {
  const PerformanceCounter::Source* const source = counterSource;
  return source ? source->frequency : Platform::performanceFrequency();
}

constexpr std::size_t columns = 3;
using Row = std::array<QString, columns>;

/// A header and rows of a name and two numbers.
class Table {
 public:
  explicit Table(const Row& header) : _header(header) { fit(header); }

  void add(const Row& row) {
    fit(row);
    _rows.push_back(row);
  }
  QString text() const {
    Width width = 8;  // of the two separators, and two columns more
    for (const Width column : _widths) {
      width += column;
    }
    QString text = aligned(_header, &QString::leftJustified) + '\n' + QString(width, '-') + '\n';
    for (const Row& row : _rows) {
      text += aligned(row, &QString::rightJustified) + '\n';
    }
    return text;
  }
  /// A line below the rows; it ends with the separator before the last column.
  QString totalLine(const QString& name, const QString& number) const {
    return name.leftJustified(_widths[0]) + separator + number.rightJustified(_widths[1]) +
           separator + '\n';
  }
  /// Makes room for a number of the second column.
  void fit(const QString& number) { _widths[1] = std::max(_widths[1], number.size()); }

 private:
  using Width = QString::size_type;
  using Justified = QString (QString::*)(Width, QChar, bool) const;
  static constexpr const char* separator = " | ";

  void fit(const Row& row) {
    for (std::size_t i = 0; i < columns; ++i) {
      _widths[i] = std::max(_widths[i], row[i].size());
    }
  }
  QString aligned(const Row& row, Justified number) const {
    QString line = row[0].leftJustified(_widths[0]);
    for (std::size_t i = 1; i < columns; ++i) {
      line += separator + (row[i].*number)(_widths[i], ' ', false);
    }
    return line;
  }

  Row _header;
  std::vector<Row> _rows;
  std::array<Width, columns> _widths = {};
};

}  // namespace

const PerformanceCounter::Source* PerformanceCounter::setSource(const Source* source) noexcept {
  return counterSource.exchange(source);
}

DebugTimer::DebugTimer(const QString& title) : _title(title), _frequency(presentFrequency()) {
  start();
}

void DebugTimer::start() {
  _marks.clear();
  _startCount = presentCount();
  _started = true;
}

void DebugTimer::mark(const QString& name) {
  const std::int64_t now = presentCount();
  if (!_started) {
    throw ProgError("Kyr::DebugTimer::mark", site::File, site::Mark, "Timer not started");
  }
  _marks.push_back({name, milliseconds(_startCount, now)});
  if (Trace::isOn()) {
    Trace::mark(name.toUtf8().constData());
  }
}

void DebugTimer::begin() {
  _begun.push_back({0, Trace::isOn() ? Trace::now() : 0});
  _begun.back().count =
      presentCount();  // now that there is memory, whose allocation does not count
}

void DebugTimer::end(const char* label) {
  const std::int64_t now = presentCount();
  if (_begun.empty()) {
    throw ProgError("Kyr::DebugTimer::end", site::File, site::End, "end without begin");
  }
  const double elapsed = milliseconds(_begun.back().count, now);
  Trace::addSpan(label, "timer", _begun.back().traced);
  _begun.pop_back();  // the interval ends even if there is no memory for a new label
  Interval& interval = _intervals[label ? label : ""];
  interval.total += elapsed;
  ++interval.count;
}

DebugTimer::Scope::Scope(DebugTimer& timer, const char* label)
    : _timer(timer), _label(label ? label : "") {
  timer.begin();
}

DebugTimer::Scope::~Scope() {
  try {
    _timer.end(_label.c_str());
  } catch (const std::bad_alloc&) {
    // A stopwatch must not end the program that it watches.
  }
}

QString DebugTimer::toString() const {
  if (!_started) {
    throw ProgError("Kyr::DebugTimer::toString", site::File, site::ToString, "Timer not started");
  }
  const QString title = _title.isEmpty() ? QString() : QString("Timer : %1\n").arg(_title) + '\n';
  return title + marksText() + intervalsText();
}

void DebugTimer::print() const {
  const QByteArray bytes = toString().toLocal8Bit() + '\n';
  std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stdout);
  std::fflush(stdout);
}

double DebugTimer::milliseconds(std::int64_t from, std::int64_t to) const {
  return static_cast<double>(to - from) / static_cast<double>(_frequency) * 1000.0;
}

QString DebugTimer::timeText(double time) const {
  std::array<char, Numeric::doubleCapacity> text{};
  const std::size_t length = Numeric::formatDouble(time, 'f', _precision, text.data());
  return QString::fromLatin1(text.data(), static_cast<int>(length));
}

QString DebugTimer::marksText() const {
  if (_marks.empty()) {
    return {};
  }
  Table table({"Mark", "Abs. time [ms]", "Delta [ms]"});
  double previous = 0;
  for (const Mark& mark : _marks) {
    table.add({mark.name, timeText(mark.time), timeText(mark.time - previous)});
    previous = mark.time;
  }
  return table.text();
}

QString DebugTimer::intervalsText() const {
  if (_intervals.empty()) {
    return {};
  }
  Table table({"Interval", "Time [ms]", "Count"});
  double sum = 0;
  for (const auto& [label, interval] : _intervals) {
    table.add(
        {QString::fromStdString(label), timeText(interval.total), QString::number(interval.count)});
    sum += interval.total;
  }
  const QString total = timeText(sum);
  table.fit(total);
  return "\n\n" + table.text() + (_intervals.size() > 1 ? table.totalLine("Summe", total) : "");
}

}  // namespace Kyr
