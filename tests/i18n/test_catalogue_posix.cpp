// What a disk may make of a catalogue, at the edge of memory that nobody may touch.
#include "support/Support.h"

#include <kyr/i18n/catalogue_p.h>

#include <sys/mman.h>

namespace {

using Kyr::Catalogue::check;

/// Pages between two that end the process when they are touched.
class Fenced {
 public:
  Fenced() {
    ::mprotect(_memory, page, PROT_NONE);
    ::mprotect(_memory + size + page, page, PROT_NONE);
  }
  /// \return a copy, at the first byte of the pages or up to the last one
  const uchar* hold(const QByteArray& bytes, bool atEnd) {
    char* const place = _memory + page + (atEnd ? size - std::size_t(bytes.size()) : 0);
    return reinterpret_cast<const uchar*>(std::copy(bytes.begin(), bytes.end(), place)) -
           bytes.size();
  }

 private:
  static constexpr std::size_t page = 4096;
  static constexpr std::size_t size = 16 * page;
  char* const _memory = static_cast<char*>(
      ::mmap(nullptr, size + 2 * page, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
};

/// A text and its context.
using Texts = std::vector<std::pair<QByteArray, QByteArray>>;

Texts textsOf(const QByteArray& catalogue) {
  Texts texts;
  const QRegularExpression message("\\x06\\0\\0..([^\\0]+)\\x07\\0\\0\\0.(\\w+)\\x01",
                                   QRegularExpression::DotMatchesEverythingOption);
  auto found = message.globalMatch(QString::fromLatin1(catalogue.data(), catalogue.size()));
  while (found.hasNext()) {
    const auto match = found.next();
    texts.emplace_back(match.captured(1).toLatin1(), match.captured(2).toLatin1());
  }
  return texts;
}

/// Looks up all texts in what the check leaves of a catalogue.
/// \return how many have a translation; -1 when the catalogue is refused
int lookUp(const QByteArray& catalogue, const Texts& texts, bool atEnd) {
  static Fenced memory;
  const QByteArray checked = check(catalogue).bytes;
  QTranslator translator;
  if (!translator.load(memory.hold(checked, atEnd), static_cast<int>(checked.size()))) {
    return -1;
  }
  return int(std::count_if(texts.begin(), texts.end(), [&](const auto& text) {
    translator.translate(text.second, text.first, "", 2);  // as a plural, which none of them has
    return !translator.translate(text.second, text.first).isEmpty();
  }));
}

TEST(Catalogues, MayBeDamagedAnywhere) {
  // With all tables that there are, and without the texts that look-ups can do without.
  const QByteArray whole = KyrTest::readFile(KYR_COMPRESSED_CATALOGUE);
  const Texts texts = textsOf(KyrTest::readFile(KYR_CATALOGUE));
  EXPECT_GT(texts.size(), 40U);
  EXPECT_EQ(check(whole).bytes.size(), whole.size() + 1) << "lrelease leaves the last chain open";
  EXPECT_EQ(lookUp(whole, texts, true), int(texts.size()));
  const auto ended = KyrTest::inChild([&] {
    int refused = 0;
    for (int bit = 0; bit < 8 * whole.size(); bit += 7) {  // every byte
      QByteArray damaged = whole;
      damaged[bit / 8] = char(damaged[bit / 8] ^ 1 << bit % 8);
      refused += lookUp(damaged, texts, bit % 2 == 0) < 0 ? 1 : 0;
    }
    for (int size = 0; size < whole.size(); size += 3) {
      refused += lookUp(whole.left(size), texts, true) < 0 ? 1 : 0;
    }
    std::printf("%d", refused);
  });
  EXPECT_TRUE(ended.exited && ended.code == 0) << "a look-up leaves the catalogue";
  EXPECT_GT(ended.output.toInt(), 0);
}

}  // namespace
