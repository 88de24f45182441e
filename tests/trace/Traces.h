/// \file
/// Traces as another program sees them.
#pragma once

#include "support/Support.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <map>
#include <utility>

namespace KyrTest {

/// The events of a trace; fails the running test unless each has what its phase needs and the spans
/// of each thread lie inside or beside each other.
/// \param isWhole whether the array has its end; a process that died leaves none
inline std::vector<QJsonObject> eventsOf(const QString& file, bool isWhole = true) {
  QByteArray text = readFile(file);
  EXPECT_EQ(text.endsWith("\n]\n"), isWhole) << text.right(200).toStdString();
  text += isWhole ? "" : "]";
  QJsonParseError error{};
  const QJsonDocument document = QJsonDocument::fromJson(text, &error);
  EXPECT_TRUE(document.isArray()) << error.errorString().toStdString() << " at " << error.offset;
  const std::map<QString, QStringList> needed = {{"M", {"args"}},
                                                 {"X", {"cat", "ts", "dur"}},
                                                 {"b", {"cat", "ts", "id"}},
                                                 {"e", {"cat", "ts", "id"}},
                                                 {"i", {"cat", "ts", "s"}}};
  std::vector<QJsonObject> events;
  std::map<double, std::vector<std::pair<double, double>>> spans;  // of a thread
  for (const QJsonValue& value : document.array()) {
    const QJsonObject event = value.toObject();
    const auto found = needed.find(event["ph"].toString());
    EXPECT_NE(found, needed.end()) << event["ph"].toString().toStdString();
    for (const QString& key : found->second + QStringList{"name", "pid", "tid"}) {
      EXPECT_TRUE(event.contains(key)) << key.toStdString();
    }
    if (event["ph"] == "X") {
      const double from = event["ts"].toDouble();
      spans[event["tid"].toDouble()].emplace_back(from, -from - event["dur"].toDouble());
    }
    events.push_back(event);
  }
  for (auto& [thread, all] : spans) {
    std::sort(all.begin(), all.end());
    std::vector<double> ends;
    for (const auto& [from, minusEnd] : all) {
      while (!ends.empty() && ends.back() <= from) {
        ends.pop_back();
      }
      EXPECT_TRUE(ends.empty() || -minusEnd <= ends.back() + 0.0005) << "spans overlap";
      ends.push_back(-minusEnd);
    }
  }
  return events;
}

/// How many events there are of a phase and a name.
inline int count(const std::vector<QJsonObject>& events, const char* phase, const QString& name) {
  return static_cast<int>(std::count_if(events.begin(), events.end(), [&](const auto& event) {
    return event["ph"] == phase && event["name"] == name;
  }));
}

}  // namespace KyrTest
