#include <kyr/diagnostics/report_p.h>

#include <QRegularExpression>

namespace Kyr {

namespace {

constexpr const char* blank = "[blanked]";

/// Characters; the search may take the square of it.
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

/// The text with what was found, but for its first group, replaced. Not by QString, for which a
/// search that failed has found nothing.
QString replaced(const QString& text, const QRegularExpression& pattern, const QString& by) {
  QString shown;
  int from = 0;
  for (QRegularExpressionMatch found = Report::search(pattern, text, from); found.hasMatch();
       found = Report::search(pattern, text, from)) {
    shown += text.midRef(from, found.capturedStart() - from) + found.captured(1) + by;
    from = found.capturedEnd();
  }
  return shown + text.midRef(from);
}

/// The working directory is none.
bool isSecretName(const QString& name) {
  static const QRegularExpression pattern = expression("WORDS");
  return name != "PWD" && name != "OLDPWD" && Report::search(pattern, name).hasMatch();
}

/// An address of a proxy needs no scheme; whatever stands in front of its "@" is an account.
bool isProxyName(const QString& name) {
  return name.contains("proxy", Qt::CaseInsensitive);
}

}  // namespace

// Rather too much is blanked than too little: an "@" in a path costs support a question.
QString SystemReport::blankSecrets(const QString& name, const QString& value) {
  static const QRegularExpression proxyAccount = expression(R"(^(\w+://)?[^\n]*@)");
  static const QRegularExpression account = expression(R"(//[^\s"'<>]*@)");
  static const QRegularExpression bareAccount =
      expression(R"((?<![^\s/@:"'=,;])[^\s/@:"'=,;]++:[^\s/@]+@)");
  static const QRegularExpression assignment =
      expression(R"((?<![\w.\-])([\w.\-]*(?:WORDS)[\w.\-]*["']?\s*[=:]\s*))"
                 R"((?:(?:bearer|basic|token)\s+)?(?:"[^"]*"|'[^']*'|[^\s;&,"']+))");
  static const QRegularExpression option =
      expression(R"((?<![\w.\-])(--?[\w.\-]*(?:WORDS)[\w.\-]*\s+)(?:"[^"]*"|'[^']*'|[^\s\-]\S*))");
  static const QRegularExpression pem = expression("-----BEGIN .*");
  if (isSecretName(name)) {
    return value.isEmpty() ? value : QString(blank);
  }
  if (value.size() > longestChecked) {
    return QString("[%1 characters, left out]").arg(value.size());
  }
  QString shown = value;
  if (isProxyName(name)) {
    shown = replaced(shown, proxyAccount, QString(blank) + '@');
  }
  shown = replaced(shown, account, QString("//%1@").arg(blank));
  shown = replaced(shown, bareAccount, QString(blank) + '@');
  shown = replaced(shown, assignment, blank);
  shown = replaced(shown, option, blank);
  return replaced(shown, pem, blank);
}

// Here the ends of values are known: a password may hold blanks, or begin with a minus.
QStringList Report::blankArguments(const QStringList& arguments) {
  static const QRegularExpression option = expression(R"(\A(?:--?|/)[\w.\-]+\z)");
  static const QRegularExpression assignment = expression(R"(\A((?:--?|/)?[\w.\-]+)([=:])(.*)\z)");
  QStringList shown;
  bool isValue = false;
  for (const QString& argument : arguments) {
    const QRegularExpressionMatch assigned = Report::search(assignment, argument);
    shown += isValue ? QString(blank)
             : isSecretName(assigned.captured(1))
                 ? assigned.captured(1) + assigned.captured(2) + blank
                 : SystemReport::blankSecrets("", argument);
    isValue = !isValue && isSecretName(Report::search(option, argument).captured());
  }
  return shown;
}

}  // namespace Kyr
