#include <kyr/app/KyrInit.h>

#include "support/Support.h"

using namespace Kyr;

TEST(CrashDump, IsNamedWhereverItFits) {
  const QString whole = OS::getTempDirectory() + QDir::separator() + "ORV-4294967295.dmp";
  const auto size = static_cast<unsigned>(whole.size());
  for (unsigned given = 0; given <= size + 2; ++given) {
    std::vector<wchar_t> buffer(given + 1, L'#');
    const bool fits = KyrInit::getProgramCrashdumpfile(4294967295U, buffer.data(), given);
    EXPECT_EQ(fits, given > size) << given;
    EXPECT_EQ(buffer[given], L'#') << "written behind a buffer of " << given;
    const QString text = given > 0 ? QString::fromWCharArray(buffer.data()) : QString();
    EXPECT_EQ(text, fits ? whole : QString());
  }
}

TEST(Log, IsNamedByTheProcess) {
  EXPECT_EQ(KyrInit::getProgramLogfile(0), OS::nullDevice());
  EXPECT_EQ(KyrInit::getProgramLogfile(4294967295U),
            OS::getTempDirectory() + QDir::separator() + "ORV-4294967295.log");
}

TEST(Settings, KnowNothingBeforeTheStart) {
  EXPECT_TRUE(KyrInit::getConfigDirectory(KyrInit::ConfigRoaming).isEmpty());
  EXPECT_TRUE(KyrInit::getVersionConfigName("etc").isEmpty()) << "a file of the root directory";
  const auto unknown = KyrTest::inChild(
      [] { KyrInit::getProfileDirectory(static_cast<KyrInit::ProfileDirectory_t>(3)); });
  EXPECT_EQ(reportProblem(unknown, "\nInternal program error: unknown directory\n\n"), "");
}
