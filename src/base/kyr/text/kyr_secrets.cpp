#include <kyr/text/secrets_p.h>

#include <algorithm>
#include <cstring>

namespace Kyr::Secrets {

namespace {

constexpr std::string_view blanked = "[blanked]";
constexpr std::string_view blankedAccount = "[blanked]@";

/// Words in the names of what nobody else may know, in capitals.
constexpr std::array<std::string_view, 19> words = {
    "TOKEN",   "KEY",      "SECRET",        "PASS",           "PWD", "CREDENTIAL", "AUTH",
    "COOKIE",  "PRIVATE",  "SIGNATURE",     "BEARER",         "JWT", "PHRASE",     "WEBHOOK",
    "CONNSTR", "CONN_STR", "CONNECTIONSTR", "CONNECTION_STR", "DSN"};

/// What may stand between the name of a secret and the secret.
constexpr std::array<std::string_view, 3> kinds = {"BEARER", "BASIC", "TOKEN"};

constexpr std::string_view blanks = " \t\n\v\f\r";
constexpr std::string_view endsAccount = " \t\n\v\f\r\"'<>";
constexpr std::string_view endsUser = " \t\n\v\f\r/@:\"'=,;";
constexpr std::string_view endsPassword = " \t\n\v\f\r/@";
constexpr std::string_view endsValue = " \t\n\v\f\r;&,\"'";

char capital(char character) noexcept {
  return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A')
                                              : character;
}

bool isIn(std::string_view set, char character) noexcept {
  return set.find(character) != std::string_view::npos;
}

bool isOfName(char character) noexcept {
  const char big = capital(character);
  return (big >= 'A' && big <= 'Z') || (big >= '0' && big <= '9') || isIn("_.-", big);
}

bool beginsWith(std::string_view text, std::string_view capitals) noexcept {
  if (text.size() < capitals.size()) {
    return false;
  }
  for (std::size_t i = 0; i < capitals.size(); ++i) {
    if (capital(text[i]) != capitals[i]) {
      return false;
    }
  }
  return true;
}

std::size_t endOf(std::string_view text, std::size_t found) noexcept {
  return found == std::string_view::npos ? text.size() : found;
}

std::size_t skipBlanks(std::string_view text, std::size_t from) noexcept {
  return endOf(text, text.find_first_not_of(blanks, from));
}

std::size_t skipName(std::string_view text, std::size_t from) noexcept {
  while (from < text.size() && isOfName(text[from])) {
    ++from;
  }
  return from;
}

/// Behind what a quotation mark begins; at \a from where there is none.
std::size_t skipQuoted(std::string_view text, std::size_t from) noexcept {
  if (from >= text.size() || !isIn("\"'", text[from])) {
    return from;
  }
  const std::size_t close = text.find(text[from], from + 1);
  return close == std::string_view::npos ? text.size() : close + 1;
}

/// Behind a value that ends at one of these characters, or is quoted.
std::size_t skipValue(std::string_view text, std::size_t from, std::string_view ends) noexcept {
  const std::size_t quoted = skipQuoted(text, from);
  return quoted != from ? quoted : endOf(text, text.find_first_of(ends, from));
}

/// Behind a word as "Bearer" with blanks; at \a from where there is none.
std::size_t skipKind(std::string_view text, std::size_t from) noexcept {
  for (const std::string_view kind : kinds) {
    const std::size_t end = from + kind.size();
    if (beginsWith(text.substr(from), kind) && skipBlanks(text, end) != end) {
      return skipBlanks(text, end);
    }
  }
  return from;
}

/// Where the value begins that is assigned to what ends at \a from; npos where none is.
std::size_t findValue(std::string_view text, std::size_t from) noexcept {
  from += from < text.size() && isIn("\"'", text[from]) ? 1 : 0;
  from = skipBlanks(text, from);
  return from < text.size() && isIn("=:", text[from]) ? skipBlanks(text, from + 1)
                                                      : std::string_view::npos;
}

/// An account between "//" and the last "@" before a blank.
Found findAccount(std::string_view text, std::size_t from) noexcept {
  for (std::size_t at = text.find("//", from); at != std::string_view::npos;
       at = text.find("//", at + 1)) {
    const std::size_t end = endOf(text, text.find_first_of(endsAccount, at + 2));
    const std::size_t sign = text.substr(0, end).rfind('@');
    if (sign != std::string_view::npos && sign >= at + 2) {
      return {at + 2, sign + 1, blankedAccount};
    }
  }
  return {text.size(), text.size(), {}};
}

/// The same without "//": a user, a colon, and a password up to the "@".
Found findBareAccount(std::string_view text, std::size_t from) noexcept {
  for (std::size_t at = from; at < text.size(); ++at) {
    if ((at > 0 && !isIn(endsUser, text[at - 1])) || isIn(endsUser, text[at])) {
      continue;
    }
    const std::size_t colon = endOf(text, text.find_first_of(endsUser, at));
    if (colon == text.size() || text[colon] != ':') {
      continue;
    }
    const std::size_t sign = endOf(text, text.find_first_of(endsPassword, colon + 1));
    if (sign < text.size() && text[sign] == '@' && sign > colon + 1) {
      return {at, sign + 1, blankedAccount};
    }
  }
  return {text.size(), text.size(), {}};
}

/// What is assigned to a name that tells of a secret.
Found findAssignment(std::string_view text, std::size_t from) noexcept {
  for (std::size_t at = from; at < text.size(); ++at) {
    if (!isOfName(text[at]) || (at > 0 && isOfName(text[at - 1]))) {
      continue;
    }
    const std::size_t end = skipName(text, at);
    const std::size_t value = findValue(text, end);
    if (value == std::string_view::npos || !tellsOfSecret(text.substr(at, end - at))) {
      continue;
    }
    const std::size_t secret = skipKind(text, value);
    const std::size_t behind = skipValue(text, secret, endsValue);
    const std::size_t last = behind > secret ? behind : skipValue(text, value, endsValue);
    if (last > value) {
      return {value, last, blanked};
    }
  }
  return {text.size(), text.size(), {}};
}

/// The word behind an option whose name tells of a secret.
Found findOption(std::string_view text, std::size_t from) noexcept {
  for (std::size_t at = from; at < text.size(); ++at) {
    if (text[at] != '-' || (at > 0 && isOfName(text[at - 1]))) {
      continue;
    }
    const std::size_t end = skipName(text, at);
    const std::size_t value = skipBlanks(text, end);
    if (value > end && value < text.size() && text[value] != '-' &&
        tellsOfSecret(text.substr(at, end - at))) {
      return {value, skipValue(text, value, blanks), blanked};
    }
  }
  return {text.size(), text.size(), {}};
}

/// A private key or a certificate, with all that follows.
Found findKey(std::string_view text, std::size_t from) noexcept {
  for (std::size_t at = from; at < text.size(); ++at) {
    if (beginsWith(text.substr(at), "-----BEGIN ")) {
      return {at, text.size(), blanked};
    }
  }
  return {text.size(), text.size(), {}};
}

}  // namespace

const std::array<Rule, 5> rules = {&findAccount, &findBareAccount, &findAssignment, &findOption,
                                   &findKey};

bool tellsOfSecret(std::string_view name) noexcept {
  for (std::size_t i = 0; i < name.size(); ++i) {
    for (const std::string_view word : words) {
      if (beginsWith(name.substr(i), word)) {
        return true;
      }
    }
  }
  return false;
}

void Blanker::Room::add(std::string_view piece) noexcept {
  if (piece.size() > _bytes.size() - _length) {
    _isFull = true;
    return;
  }
  std::copy(piece.begin(), piece.end(), _bytes.data() + _length);
  _length += piece.size();
}

void Blanker::apply(Rule rule) noexcept {
  const std::string_view text = _rooms[_present].view();
  Room& shown = _rooms[1 - _present];
  shown.clear();
  std::size_t from = 0;
  for (Found found = rule(text, from); found.end > found.begin; found = rule(text, from)) {
    shown.add(text.substr(from, found.begin - from));
    shown.add(found.by);
    from = found.end;
  }
  shown.add(text.substr(from));
  _present = 1 - _present;
}

// What was cut off is taken for the sign that makes an account of the word in front of it.
std::string_view Blanker::blank(std::string_view text, bool isCut) noexcept {
  constexpr std::string_view sign = "@";
  _rooms[_present].clear();
  _rooms[_present].add(text);
  _rooms[_present].add(isCut ? sign : std::string_view());
  bool isFull = _rooms[_present].isFull();
  for (const Rule rule : rules) {
    apply(rule);
    isFull = isFull || _rooms[_present].isFull();
  }
  if (isFull) {
    return blanked;
  }
  if (isCut && _rooms[_present].view().back() == '@') {
    _rooms[_present].shorten();
  }
  return _rooms[_present].view();
}

}  // namespace Kyr::Secrets
