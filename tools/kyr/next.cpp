#include "commands.h"
#include "output.h"

#include <kyr/core/KyrException.h>
#include <kyr/files/KyrFilename.h>
#include <kyr/i18n/KyrTranslate.h>

#include <algorithm>
#include <limits>

namespace KyrTool {

namespace {

using Kyr::Filename::Name;
using Kyr::Filename::NameWithNumber;
using Kyr::Filename::Series;

/// A name of a numbered series.
/// \throws UsageError when a name does not end in a number that can be counted up
NameWithNumber numbered(const QString& fullName) {
  NameWithNumber name(fullName, -1);
  if (!name.isFilenameCorrect() || name.getFileName() != Name::stripElementPath(fullName)) {
    throw UsageError{
        Kyr::translate("Kyr_tool", "\"%1\" does not end in a number below 2^32").arg(fullName)};
  }
  return name;
}

Series seriesOf(const NameWithNumber& name) {
  try {
    return Series(name);
  } catch (const Kyr::Exception& error) {
    throw FileError{error.getText()};
  }
}

/// Moves a name on to the first number that is not below its own and behind all of the series.
/// \return false when there is none
bool moveOn(NameWithNumber& name) {
  unsigned number = name.getNumber();
  if (!seriesOf(name).getNextNumber(&number)) {
    return false;
  }
  name.setNumber(std::max(name.getNumber(), number));
  // Where case does not count in names, a file that is not of the series may have the name.
  while (name.exists() && name.getNumber() < std::numeric_limits<unsigned>::max()) {
    name.incrementNumber(1);
  }
  return !name.exists();
}

}  // namespace

int nextName(const Arguments& arguments) {
  const QString& given = arguments[0];
  NameWithNumber name = numbered(given);
  if (!moveOn(name)) {
    throw FileError{Kyr::translate("Kyr_tool", "%1: no number is left").arg(given)};
  }
  const bool bare = Name::stripElementPath(given) == given;
  print((bare ? name.getFileName() : name.getFullName()) + "\n");
  return Fine;
}

}  // namespace KyrTool
