#include "commands.h"
#include "input.h"
#include "output.h"

#include <kyr/text/KyrNumString.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace KyrTool {

namespace {

constexpr std::size_t longestLine = 1U << 29U;

/// A line as it stands, without its end; bytes that are no UTF-8 come out as they came in.
struct Line {
  Kyr::NumString key;
  std::string_view bytes;
};

std::string readAll(Input& input) {
  constexpr std::size_t pieceSize = 1U << 16U;
  std::string text;
  Kyr::StructVector<unsigned char> piece;
  do {
    input.read(piece, pieceSize);
    text.append(piece.begin(), piece.end());
  } while (piece.size() == pieceSize);
  return text;
}

Line lineOf(std::string_view bytes) {
  const bool carriageReturn = !bytes.empty() && bytes.back() == '\r';
  const std::size_t size = bytes.size() - (carriageReturn ? 1 : 0);
  return {QString::fromUtf8(bytes.data(), static_cast<int>(size)), bytes};
}

std::vector<Line> linesOf(std::string_view text, const QString& name) {
  std::vector<Line> lines;
  while (!text.empty()) {
    const std::size_t size = std::min(text.find('\n'), text.size());
    if (size > longestLine) {
      throw FileError{QString("%1: a line is too long").arg(name)};
    }
    lines.push_back(lineOf(text.substr(0, size)));
    text.remove_prefix(std::min(size + 1, text.size()));
  }
  return lines;
}

}  // namespace

int sortLines(const Arguments& arguments) {
  Input input(arguments.count() > 0 ? arguments[0] : "-");
  const std::string text = readAll(input);
  std::vector<Line> lines = linesOf(text, input.name());
  std::stable_sort(lines.begin(), lines.end(),
                   [](const Line& left, const Line& right) { return left.key < right.key; });
  for (const Line& line : lines) {
    writeBytes(line.bytes.data(), line.bytes.size());
    writeBytes("\n", 1);
  }
  return Fine;
}

}  // namespace KyrTool
