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
  return QRegularExpression(
      QString(pattern).replace("WORDS", secretWords),
      QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
}

/// The working directory is none.
bool isSecretName(const QString& name) {
  static const QRegularExpression pattern = expression("WORDS");
  return name != "PWD" && name != "OLDPWD" && pattern.match(name).hasMatch();
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
    shown.replace(proxyAccount, QString(R"(\1%1@)").arg(blank));
  }
  shown.replace(account, QString("//%1@").arg(blank));
  shown.replace(bareAccount, QString("%1@").arg(blank));
  shown.replace(assignment, QString(R"(\1%1)").arg(blank));
  shown.replace(option, QString(R"(\1%1)").arg(blank));
  return shown.replace(pem, blank);
}

// Here the ends of values are known: a password may hold blanks, or begin with a minus.
QStringList Report::blankArguments(const QStringList& arguments) {
  static const QRegularExpression option(R"(\A(?:--?|/)[\w.\-]+\z)");
  static const QRegularExpression assignment(R"(\A((?:--?|/)?[\w.\-]+)([=:])(.*)\z)",
                                             QRegularExpression::DotMatchesEverythingOption);
  QStringList shown;
  bool isValue = false;
  for (const QString& argument : arguments) {
    const QRegularExpressionMatch assigned = assignment.match(argument);
    shown += isValue ? QString(blank)
             : isSecretName(assigned.captured(1))
                 ? assigned.captured(1) + assigned.captured(2) + blank
                 : SystemReport::blankSecrets("", argument);
    isValue = !isValue && isSecretName(option.match(argument).captured());
  }
  return shown;
}

}  // namespace Kyr
