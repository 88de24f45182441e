// Proxies and versions.
#include "support/Support.h"

using Kyr::OS;

TEST(OsProxy, IsReadFromTheEnvironment) {
  const struct {
    const char* http;
    const char* https;
    const char* all;
    const char* except;
    const char* address;
    const char* proxy;
    const char* catches;
  } rows[] = {
      {"http://p:3128/", "s:1", "", "", "http://h/", "p:3128", "a scheme in the name"},
      {"p:1", "s:1", "", "", "https://h/", "s:1", "one for both"},
      {"p:1", "", "", "", "https://h/", "", "http's for https"},
      {"", "", "a:9", "", "https://h/", "a:9", "the one for all"},
      {"", "", "socks5://a:9", "", "http://h/", "socks5://a:9", "another kind loses its name"},
      {"p:1", "s:1", "a:1", "", "ftp://h/", "", "other schemes"},
      {"p:1", "", "", "h", "http://H/", "", "capital letters"},
      {"p:1", "", "", "b.c", "http://a.b.c/", "", "what lies below"},
      {"p:1", "", "", ".b.c", "http://b.c/", "", "the domain itself"},
      {"p:1", "", "", "b.c", "http://xb.c/", "p:1", "half a name"},
      {"p:1", "", "", " x , h ,,", "http://h/", "", "blanks"},
      {"p:1", "", "", "*", "http://h/", "", "all"},
      {"p:1", "", "", "10.*", "http://10.1.2.3/", "", "a star"},
      {"p:1", "", "", "10.*", "http://110.1/", "p:1", "a star finds its place anywhere"},
      {"p:1", "", "", "h:81", "http://h/", "p:1", "a port"},
      {"p:1", "", "", "h:80", "http://h/", "", "the usual port"},
  };
  const KyrTest::ScopedEnvironment capitals[] = {
      {"HTTP_PROXY", ""}, {"HTTPS_PROXY", ""}, {"ALL_PROXY", ""}, {"NO_PROXY", ""}};
  for (const auto& row : rows) {
    const KyrTest::ScopedEnvironment http("http_proxy", row.http);
    const KyrTest::ScopedEnvironment https("https_proxy", row.https);
    const KyrTest::ScopedEnvironment all("all_proxy", row.all);
    const KyrTest::ScopedEnvironment except("no_proxy", row.except);
    EXPECT_EQ(OS::getProxyFor(row.address, OS::getProxySettings()), row.proxy) << row.catches;
  }
  const KyrTest::ScopedEnvironment small("http_proxy", "");
  const KyrTest::ScopedEnvironment capital("HTTP_PROXY", "p:1");
  OS::ProxySettings settings = OS::getProxySettings();
  settings.exceptions = QStringList{"<local>"};
  EXPECT_EQ(OS::getProxyFor("http://printer/", settings), "");
  EXPECT_EQ(OS::getProxyFor("http://a.b/", settings), "p:1");
}

TEST(OsVersion, HasItsMarketingName) {
  const struct {
    unsigned major;
    unsigned minor;
    unsigned build;
    const char* desktop;
    const char* server;
  } rows[] = {
      {4, 0, 1381, "Windows 4.0", "Windows Server 4.0"},
      {5, 1, 2600, "Windows XP", "Windows XP"},
      {6, 0, 6002, "Windows Vista", "Windows Server 2008"},
      {6, 3, 9600, "Windows 8.1", "Windows Server 2012 R2"},
      {10, 0, 14393, "Windows 10", "Windows Server 2016"},
      {10, 0, 19045, "Windows 10", "Windows Server 2019"},
      {10, 0, 22000, "Windows 11", "Windows Server 2022"},
      {10, 0, 26100, "Windows 11", "Windows Server 2025"},
      {12, 3, 1, "Windows 12.3", "Windows Server 12.3"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(OS::getWindowsName(row.major, row.minor, row.build, false), row.desktop);
    EXPECT_EQ(OS::getWindowsName(row.major, row.minor, row.build, true), row.server);
  }
  EXPECT_TRUE(OS::getSystemName().contains(' ') && OS::getSystemVersion().count('.') >= 2);
  EXPECT_FALSE(OS::getProcessorName().isEmpty());
}
