#include <kyr/os/KyrOS.h>
#include <kyr/os/os_proxy_p.h>

#include <QRegularExpression>
#include <QUrl>

namespace Kyr {

namespace {

QString firstSet(const QByteArray& name) {
  const QString small = OS::getEnv(name);
  return small.isEmpty() ? OS::getEnv(name.toUpper()) : small;
}

/// "proxy:3128" of "http://proxy:3128/"; other kinds of proxies keep their scheme.
QString withoutScheme(QString proxy) {
  for (const char* scheme : {"http://", "https://"}) {
    if (proxy.startsWith(scheme, Qt::CaseInsensitive)) {
      proxy.remove(0, static_cast<int>(qstrlen(scheme)));
    }
  }
  while (proxy.endsWith('/')) {
    proxy.chop(1);
  }
  return proxy;
}

QString proxyInEnvironment(const QByteArray& name) {
  const QString own = firstSet(name);
  return withoutScheme((own.isEmpty() ? firstSet("all_proxy") : own).trimmed());
}

/// The exceptions of $no_proxy, where a host also stands for all hosts below it.
QStringList exceptionsInEnvironment() {
  QStringList hosts;
  for (const QString& entry : firstSet("no_proxy").split(',', Qt::SkipEmptyParts)) {
    const QString host = entry.trimmed();
    const bool isComplete = host.isEmpty() || host.startsWith('.') || host.contains('*');
    hosts.append(isComplete ? host : '.' + host);
  }
  hosts.removeAll(QString(""));
  return hosts;
}

bool matchesPattern(const QString& host, const QString& pattern) {
  const QString expression = QRegularExpression::escape(pattern).replace("\\*", ".*");
  return QRegularExpression(QRegularExpression::anchoredPattern(expression)).match(host).hasMatch();
}

/// Whether an exception covers a host.
/// \param exception in small letters
bool isExcepted(const QString& host, int port, QString exception) {
  if (exception == "<local>") {
    return !host.contains('.') && !host.contains(':');
  }
  if (exception.count(':') == 1) {
    if (exception.section(':', 1).toInt() != port) {
      return false;
    }
    exception = exception.section(':', 0, 0);
  }
  return exception.startsWith('.') ? ('.' + host).endsWith(exception)
                                   : matchesPattern(host, exception);
}

}  // namespace

OS::ProxySettings OS::getProxySettings() {
  ProxySettings settings;
  if (!Platform::readProxySettings(settings)) {
    settings.http = proxyInEnvironment("http_proxy");
    settings.https = proxyInEnvironment("https_proxy");
    settings.exceptions = exceptionsInEnvironment();
  }
  return settings;
}

QString OS::getProxyFor(const QString& address, const ProxySettings& settings) {
  const QUrl url(address);
  const bool isSecure = url.scheme() == "https";
  if (url.host().isEmpty() || (!isSecure && url.scheme() != "http")) {
    return {};
  }
  for (const QString& exception : settings.exceptions) {
    if (isExcepted(url.host(), url.port(isSecure ? 443 : 80), exception.toLower())) {
      return {};
    }
  }
  return isSecure ? settings.https : settings.http;
}

}  // namespace Kyr
