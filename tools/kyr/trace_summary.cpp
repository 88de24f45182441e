#include "commands.h"
#include "output.h"
#include "trace_events.h"

#include <kyr/i18n/KyrTranslate.h>

#include <QHash>
#include <QPair>

#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <tuple>
#include <utility>
#include <vector>

namespace KyrTool {

namespace {

using Thread = std::pair<double, double>;  // the numbers of its process and its own

/// What all events of one name and category come to; times in microseconds.
struct Sum {
  QString name;
  QString category;
  int count = 0;
  int open = 0;  // of those around the span at hand
  double all = 0;
  double total = 0;  // without spans inside of others of their name
  double self = 0;   // without spans of any name inside of them
  double longest = 0;
  std::set<Thread> threads;
};

struct Span {
  double begin;
  double duration;
  std::size_t sum;
};

class Summary {
 public:
  void read(TraceEvents& events);
  /// \return by the time that they took
  std::vector<Sum> sums();

 private:
  using Life = std::tuple<QString, QString, QString, double>;  // category, name, id, process

  void add(const TraceEvents& events, const QJsonObject& event);
  void addLife(const TraceEvents& events, const QJsonObject& event, const Life& life);
  std::size_t sumOf(const QJsonObject& event);
  void count(std::size_t place, const QJsonObject& event, double duration);
  void nest(std::vector<Span>& spans);

  std::vector<Sum> _sums;
  QHash<QPair<QString, QString>, std::size_t> _places;
  std::map<Thread, std::vector<Span>> _spans;
  std::map<Life, double> _lives;  // that have begun
};

double timeOf(const TraceEvents& events, const QJsonObject& event, const char* key) {
  const double time = event[key].toDouble(-1);
  if (!std::isfinite(time) || time < 0) {
    events.fail(Kyr::translate("Kyr_tool", "the event has no \"%1\"").arg(key));
  }
  return time;
}

Thread threadOf(const QJsonObject& event) {
  return {event["pid"].toDouble(), event["tid"].toDouble()};
}

std::size_t Summary::sumOf(const QJsonObject& event) {
  const QPair<QString, QString> key(event["name"].toString(), event["cat"].toString());
  const auto found = _places.constFind(key);
  if (found != _places.constEnd()) {
    return *found;
  }
  Sum sum;
  sum.name = key.first;
  sum.category = key.second;
  _sums.push_back(std::move(sum));
  return _places[key] = _sums.size() - 1;
}

void Summary::count(std::size_t place, const QJsonObject& event, double duration) {
  Sum& sum = _sums[place];
  ++sum.count;
  sum.all += duration;
  sum.longest = std::max(sum.longest, duration);
  sum.threads.insert(threadOf(event));
}

void Summary::addLife(const TraceEvents& events, const QJsonObject& event, const Life& life) {
  const double time = timeOf(events, event, "ts");
  if (event["ph"] == "b") {
    _lives[life] = time;
  } else if (const auto begun = _lives.find(life); begun != _lives.end()) {
    const double duration = std::max(time - begun->second, 0.0);
    const std::size_t place = sumOf(event);
    _lives.erase(begun);
    count(place, event, duration);
    _sums[place].total += duration;
    _sums[place].self += duration;
  }
}

void Summary::add(const TraceEvents& events, const QJsonObject& event) {
  const QString phase = event["ph"].toString();
  if (phase == "X") {
    const double duration = timeOf(events, event, "dur");
    const std::size_t place = sumOf(event);
    count(place, event, duration);
    _spans[threadOf(event)].push_back({timeOf(events, event, "ts"), duration, place});
  } else if (phase == "b" || phase == "e") {
    addLife(events, event,
            {event["cat"].toString(), event["name"].toString(), event["id"].toVariant().toString(),
             event["pid"].toDouble()});
  }
}

void Summary::read(TraceEvents& events) {
  QJsonObject event;
  while (events.next(event)) {
    add(events, event);
  }
}

/// Takes from each span of a thread what those inside of it have taken.
void Summary::nest(std::vector<Span>& spans) {
  std::sort(spans.begin(), spans.end(), [](const Span& one, const Span& other) {
    return std::make_pair(one.begin, -one.duration) < std::make_pair(other.begin, -other.duration);
  });
  std::vector<const Span*> around;
  const auto leave = [&] {
    --_sums[around.back()->sum].open;
    around.pop_back();
  };
  for (const Span& span : spans) {
    while (!around.empty() && around.back()->begin + around.back()->duration <= span.begin) {
      leave();
    }
    Sum& sum = _sums[span.sum];
    sum.total += sum.open == 0 ? span.duration : 0;
    sum.self += span.duration;
    if (!around.empty()) {
      _sums[around.back()->sum].self -= span.duration;
    }
    ++sum.open;
    around.push_back(&span);
  }
  while (!around.empty()) {
    leave();
  }
}

std::vector<Sum> Summary::sums() {
  for (auto& [thread, spans] : _spans) {
    nest(spans);
  }
  std::sort(_sums.begin(), _sums.end(), [](const Sum& one, const Sum& other) {
    return std::tie(other.total, one.name, one.category) <
           std::tie(one.total, other.name, other.category);
  });
  return _sums;
}

QString milliseconds(double microseconds) {
  return QString::number(std::max(microseconds, 0.0) / 1000, 'f', 3);
}

void printRow(const QStringList& columns) {
  constexpr int name = 32, category = 12, number = 12;
  QString line = columns[0].leftJustified(name) + ' ' + columns[1].leftJustified(category);
  for (int i = 2; i < columns.size(); ++i) {
    line += ' ' + columns[i].rightJustified(number);
  }
  print(line + '\n');
}

}  // namespace

int traceSummary(const Arguments& arguments) {
  Input input(arguments[0]);
  TraceEvents events(input);
  Summary summary;
  summary.read(events);
  print(Kyr::translate("Kyr_tool", "# times in milliseconds") + '\n');
  printRow({"NAME", "CATEGORY", "COUNT", "TOTAL", "SELF", "MEAN", "LONGEST", "THREADS"});
  for (const Sum& sum : summary.sums()) {
    printRow({printable(sum.name), printable(sum.category), QString::number(sum.count),
              milliseconds(sum.total), milliseconds(sum.self), milliseconds(sum.all / sum.count),
              milliseconds(sum.longest), QString::number(sum.threads.size())});
  }
  if (!events.isWhole()) {
    print(
        Kyr::translate("Kyr_tool", "# the trace has no end: its process died, or writes it still") +
        '\n');
  }
  return Fine;
}

}  // namespace KyrTool
