#include "json.h"

#include "output.h"

#include <QJsonDocument>

namespace KyrTool {

QJsonValue jsonNumber(std::uint64_t number) {
  return static_cast<qint64>(number);
}

void printJson(const QJsonObject& object) {
  const QByteArray text = QJsonDocument(object).toJson();
  writeBytes(text.constData(), static_cast<std::size_t>(text.size()));
}

}  // namespace KyrTool
