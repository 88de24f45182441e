#include <kyr/pack/tar_sparse_p.h>

namespace Kyr::Tar {

bool fits(const SparseMap& map, std::int64_t stored) {
  std::int64_t end = 0;
  std::int64_t sum = 0;
  if (map.size < 0 || map.numbers.size() % 2 != 0) {
    return false;
  }
  for (std::size_t i = 0; i < map.numbers.size(); i += 2) {
    const std::int64_t offset = map.numbers[i];
    const std::int64_t size = map.numbers[i + 1];
    if (offset < end || offset > map.size || size < 0 || size > map.size - offset) {
      return false;
    }
    end = offset + size;
    sum += size;
  }
  return sum == stored;
}

bool readNumbers(const QByteArray& text, char separator, std::vector<std::int64_t>& numbers,
                 std::uint64_t& left) {
  constexpr int mostDigits = 18;
  int digits = 0;
  std::int64_t number = 0;
  for (int i = 0; i <= text.size(); ++i) {
    const char character = i < text.size() ? text[i] : separator;
    const bool isDigit = character >= '0' && character <= '9';
    if (isDigit && digits < mostDigits) {
      number = number * 10 + (character - '0');
      ++digits;
    } else if (character == separator && digits > 0 && left > 0) {
      numbers.push_back(number);
      number = digits = 0;
      --left;
    } else {
      return false;
    }
  }
  return true;
}

}  // namespace Kyr::Tar
