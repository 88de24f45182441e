#include <kyr/core/KyrException.h>
#include <kyr/files/KyrFilename.h>
#include <kyr/os/KyrOS.h>
#include <kyr/text/KyrParse.h>

#include <algorithm>
#include <limits>
#include <tuple>

namespace Kyr::Filename {

namespace {

using Member = Series::Member;

/// How the names of a series begin and end.
struct Pattern {
  QString begin;
  QString end;
  Qt::CaseSensitivity sensitivity;

  /// \return false for a name that is none of the series
  bool read(const QString& name, Member* member) const {
    const auto digits = static_cast<int>(name.size() - begin.size() - end.size());
    if (digits < 1 || !name.startsWith(begin, sensitivity) || !name.endsWith(end, sensitivity)) {
      return false;
    }
    const QString number = name.mid(begin.size(), digits);
    bool fits = findFirstNotOf(number, "0123456789") < 0;
    *member = {name, fits ? qstringToUInt(number, &fits) : 0, digits};
    return fits;
  }
};

bool precedes(const Member& left, const Member& right) {
  return std::tie(left.number, right.digits, left.fileName) <
         std::tie(right.number, left.digits, right.fileName);
}

}  // namespace

Series::Series(const NameWithNumber& example, Qt::CaseSensitivity sensitivity) {
  if (!example.isFilenameCorrect()) {
    throw Exception("A name without number belongs to no series");
  }
  const Pattern pattern = {example.getBaseNameNoNumber(), example.getExtension(), sensitivity};
  Member member = {};
  for (const QString& name : OS::listDirectory(example.getDirectory() + "/")) {
    if (pattern.read(name, &member)) {
      _members.push_back(member);
    }
  }
  std::sort(_members.begin(), _members.end(), precedes);
}

std::vector<Series::Gap> Series::getGaps() const {
  std::vector<Gap> gaps;
  for (std::size_t i = 1; i < _members.size(); ++i) {
    const unsigned before = _members[i - 1].number;
    const unsigned after = _members[i].number;
    if (after - before > 1) {
      gaps.push_back({before + 1, after - 1});
    }
  }
  return gaps;
}

std::vector<Member> Series::getDuplicates() const {
  std::vector<Member> duplicates;
  for (std::size_t i = 0; i < _members.size(); ++i) {
    const unsigned number = _members[i].number;
    const bool asBefore = i > 0 && _members[i - 1].number == number;
    const bool asAfter = i + 1 < _members.size() && _members[i + 1].number == number;
    if (asBefore || asAfter) {
      duplicates.push_back(_members[i]);
    }
  }
  return duplicates;
}

// Tries the least width that occurs: if any width makes all the names, that one does.
bool Series::hasMixedWidths() const {
  const auto narrower = [](const Member& a, const Member& b) { return a.digits < b.digits; };
  const auto least = std::min_element(_members.begin(), _members.end(), narrower);
  return std::any_of(_members.begin(), _members.end(), [least](const Member& member) {
    return member.digits !=
           std::max(least->digits, static_cast<int>(QString::number(member.number).size()));
  });
}

bool Series::getNextNumber(unsigned int* number) const {
  if (_members.empty()) {
    return true;
  }
  if (_members.back().number == std::numeric_limits<unsigned>::max()) {
    return false;
  }
  *number = _members.back().number + 1;
  return true;
}

}  // namespace Kyr::Filename
