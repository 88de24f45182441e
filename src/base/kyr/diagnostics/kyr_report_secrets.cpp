#include <kyr/diagnostics/report_p.h>

#include <kyr/core/forever_p.h>
#include <kyr/text/secrets_p.h>

#include <QRegularExpression>

#include <algorithm>
#include <string>

namespace Kyr {

namespace {

constexpr const char* blank = "[blanked]";

/// Characters of a value that are searched; the time of a search may grow with their square.
constexpr int longestChecked = 8192;

/// The text in ASCII, with a byte that means nothing for each other unit.
std::string lettersOf(const QString& text) {
  std::string letters(static_cast<std::size_t>(text.size()), '\0');
  std::transform(text.begin(), text.end(), letters.begin(), [](QChar unit) {
    return unit.unicode() < 0x80 ? static_cast<char>(unit.unicode()) : '\x80';
  });
  return letters;
}

/// The text without one kind of secrets.
QString blanked(const QString& text, Secrets::Rule rule) {
  const std::string letters = lettersOf(text);
  QString shown;
  std::size_t from = 0;
  for (Secrets::Found found = rule(letters, from); found.end > found.begin;
       found = rule(letters, from)) {
    shown += text.mid(static_cast<QString::size_type>(from),
                      static_cast<QString::size_type>(found.begin - from));
    shown += QLatin1String(found.by.data(), static_cast<QString::size_type>(found.by.size()));
    from = found.end;
  }
  return shown + text.mid(static_cast<QString::size_type>(from));
}

/// Whether a name tells of a secret. PWD and OLDPWD do not: they are the working directories.
bool isSecretName(const QString& name) {
  return name != "PWD" && name != "OLDPWD" && Secrets::tellsOfSecret(lettersOf(name));
}

/// Whether a name is that of a proxy, whose address needs no scheme: whatever stands in front of an
/// "@" in it is an account.
bool isProxyName(const QString& name) {
  return name.contains("proxy", Qt::CaseInsensitive);
}

QString withoutAccount(const QString& address) {
  static const Forever<QRegularExpression> account(Report::expression(R"(^(\w+://)?[^\n]*@)"));
  const QRegularExpressionMatch found = Report::search(account.object, address);
  return found.hasMatch() ? found.captured(1) + blank + '@' + address.mid(found.capturedEnd())
                          : address;
}

}  // namespace

// Rather too much is blanked than too little: for the rest of a path with an "@" in it, support has
// to ask.
QString SystemReport::blankSecrets(const QString& name, const QString& value) {
  if (isSecretName(name)) {
    return value.isEmpty() ? value : QString(blank);
  }
  if (value.size() > longestChecked) {
    return QString("[%1 characters, left out]").arg(value.size());
  }
  QString shown = isProxyName(name) ? withoutAccount(value) : value;
  for (const Secrets::Rule rule : Secrets::rules) {
    shown = blanked(shown, rule);
  }
  return shown;
}

// Each argument is looked at by itself, so that its end is known: a password may hold blanks, or
// begin with a minus.
QStringList Report::blankArguments(const QStringList& arguments) {
  static const Forever<QRegularExpression> option(Report::expression(R"(\A(?:--?|/)[\w.\-]+\z)"));
  static const Forever<QRegularExpression> assignment(
      Report::expression(R"(\A((?:--?|/)?[\w.\-]+)([=:])(.*)\z)"));
  QStringList shown;
  bool isValue = false;
  for (const QString& argument : arguments) {
    const QRegularExpressionMatch assigned = Report::search(assignment.object, argument);
    shown += isValue ? QString(blank)
             : isSecretName(assigned.captured(1))
                 ? assigned.captured(1) + assigned.captured(2) + blank
                 : SystemReport::blankSecrets("", argument);
    isValue = !isValue && isSecretName(Report::search(option.object, argument).captured());
  }
  return shown;
}

}  // namespace Kyr
