#include <kyr/diagnostics/report_p.h>

#include <kyr/core/forever_p.h>

#include <QRegularExpression>

namespace Kyr {

namespace {

constexpr const char* blank = "[blanked]";

/// Characters of a value that are searched; the time of a search may grow with their square.
constexpr int longestChecked = 8192;

/// Words in the names of what nobody else may know.
constexpr const char* secretWords =
    "TOKEN|KEY|SECRET|PASS|PWD|CREDENTIAL|AUTH|COOKIE|PRIVATE|SIGNATURE|BEARER|JWT|PHRASE|"
    "WEBHOOK|CONN(?:ECTION)?_?STR|DSN";

QRegularExpression expression(const QString& pattern) {
  return Report::expression(
      QString(pattern).replace("WORDS", secretWords),
      QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
}

/// The text with all that was found, but for its first group, replaced. QString::replace() would
/// take a search that failed for one that found nothing.
QString replaced(const QString& text, const QRegularExpression& pattern, const QString& by) {
  QString shown;
  QString::size_type from = 0;
  for (QRegularExpressionMatch found = Report::search(pattern, text, from); found.hasMatch();
       found = Report::search(pattern, text, from)) {
    shown += text.mid(from, found.capturedStart() - from) + found.captured(1) + by;
    from = found.capturedEnd();
  }
  return shown + text.mid(from);
}

/// Whether a name tells of a secret. PWD and OLDPWD do not: they are the working directories.
bool isSecretName(const QString& name) {
  static const Forever<QRegularExpression> pattern(expression("WORDS"));
  return name != "PWD" && name != "OLDPWD" && Report::search(pattern.object, name).hasMatch();
}

/// Whether a name is that of a proxy, whose address needs no scheme: whatever stands in front of an
/// "@" in it is an account.
bool isProxyName(const QString& name) {
  return name.contains("proxy", Qt::CaseInsensitive);
}

}  // namespace

// Rather too much is blanked than too little: for the rest of a path with an "@" in it, support has
// to ask.
QString SystemReport::blankSecrets(const QString& name, const QString& value) {
  static const Forever<QRegularExpression> proxyAccount(expression(R"(^(\w+://)?[^\n]*@)"));
  static const Forever<QRegularExpression> account(expression(R"(//[^\s"'<>]*@)"));
  static const Forever<QRegularExpression> bareAccount(
      expression(R"((?<![^\s/@:"'=,;])[^\s/@:"'=,;]++:[^\s/@]+@)"));
  static const Forever<QRegularExpression> assignment(
      expression(R"((?<![\w.\-])([\w.\-]*(?:WORDS)[\w.\-]*["']?\s*[=:]\s*))"
                 R"((?:(?:bearer|basic|token)\s+)?(?:"[^"]*"|'[^']*'|[^\s;&,"']+))"));
  static const Forever<QRegularExpression> option(
      expression(R"((?<![\w.\-])(--?[\w.\-]*(?:WORDS)[\w.\-]*\s+)(?:"[^"]*"|'[^']*'|[^\s\-]\S*))"));
  static const Forever<QRegularExpression> pem(expression("-----BEGIN .*"));
  if (isSecretName(name)) {
    return value.isEmpty() ? value : QString(blank);
  }
  if (value.size() > longestChecked) {
    return QString("[%1 characters, left out]").arg(value.size());
  }
  QString shown = value;
  if (isProxyName(name)) {
    shown = replaced(shown, proxyAccount.object, QString(blank) + '@');
  }
  shown = replaced(shown, account.object, QString("//%1@").arg(blank));
  shown = replaced(shown, bareAccount.object, QString(blank) + '@');
  shown = replaced(shown, assignment.object, blank);
  shown = replaced(shown, option.object, blank);
  return replaced(shown, pem.object, blank);
}

// Each argument is looked at by itself, so that its end is known: a password may hold blanks, or
// begin with a minus.
QStringList Report::blankArguments(const QStringList& arguments) {
  static const Forever<QRegularExpression> option(expression(R"(\A(?:--?|/)[\w.\-]+\z)"));
  static const Forever<QRegularExpression> assignment(
      expression(R"(\A((?:--?|/)?[\w.\-]+)([=:])(.*)\z)"));
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
