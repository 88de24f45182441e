#include "Fuzz.h"

#include <kyr/files/KyrFilename.h>
#include <kyr/text/KyrNumString.h>

#include <limits>

namespace KyrFuzz {

namespace {

using Kyr::NumString;

void checkParts(const NumString& name) {
  QString joined;
  for (unsigned i = 0; i < name.partsCount(); ++i) {
    const QString part = name.getStringPart(i);
    int value = -1;
    expect(!part.isEmpty(), "no part is empty");
    expect(name.getNumberPart(i, &value) == part[0].isDigit() && (value >= 0 || !part[0].isDigit()),
           "parts of digits have values");
    joined += part;
  }
  expect(joined == name.getString(), "a name is the sum of its parts");
}

/// The laws of a strict weak order, for sorting.
void checkOrder(const NumString& a, const NumString& b, const NumString& c) {
  const NumString& same = a;
  expect(a.compare(same) == 0 && !(a < same), "nothing comes before itself");
  expect(a.compare(b) == -b.compare(a), "who comes before does not come behind");
  expect(!(a < b && b < c) || a < c, "the order is transitive");
  expect(!(a == b && b == c) || a == c, "so is being equal");
  expect(!(a == b && b < c) || a < c, "equal names have the same place");
}

void checkIncrement(const NumString& name) {
  bool grows = false;
  for (unsigned i = 0; i < name.partsCount(); ++i) {
    int value = 0;
    grows = name.getNumberPart(i, &value) ? value < std::numeric_limits<int>::max() : grows;
  }
  NumString next = name;
  next.increment();
  next.setString(next.getString());
  expect(grows ? name < next : next.getString() == name.getString(), "the next name comes behind");
}

void checkFileName(const QString& text) {
  const Kyr::Filename::Name name(text);
  const QString full = name.getFullName();
  expect(full == name.getDirectory() + '/' + name.getBaseName() + name.getExtension(),
         "a name is the sum of its parts");
  const Kyr::Filename::Name again(full);
  expect(full.contains("//") || again == name, "a whole name leads back");
  expect(!name.getBaseName().contains('/') && !name.getExtension().contains('/'),
         "only the directory has separators");

  Kyr::Filename::NameWithNumber image(text, -1);
  if (image.isFilenameCorrect() && image.getNumber() < std::numeric_limits<unsigned>::max()) {
    const QString first = image.getFullName();
    image.incrementNumber();
    expect(image.getFullName() != first, "the next file is another one");
    const unsigned number = image.getNumber();
    image.setFullName(image.getFullName());
    expect(image.getNumber() == number, "its number is read again");
  }
}

}  // namespace

void harness(Choices input) {
  const bool hasHalves = input.yes();
  QString texts[3];
  for (QString& text : texts) {
    const std::string_view line = input.line();
    text = hasHalves ? halvesOf(line) : textOf(line);
    checkParts(text);
    checkIncrement(text);
    checkFileName(text);
  }
  int order[] = {0, 1, 2};
  do {
    checkOrder(texts[order[0]], texts[order[1]], texts[order[2]]);
  } while (std::next_permutation(std::begin(order), std::end(order)));
}

}  // namespace KyrFuzz
