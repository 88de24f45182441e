/// \file
/// Answers for other programs.
#pragma once

#include <QJsonObject>

#include <cstdint>

namespace KyrTool {

/// A number of bytes or things; JSON has only one kind of number.
QJsonValue jsonNumber(std::uint64_t number);

/// Writes an object, with its keys in the order of the alphabet, and a line end. Doubles have the
/// digits that give the same double again.
void printJson(const QJsonObject& object);

}  // namespace KyrTool
