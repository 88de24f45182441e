#include <kyr/env/settings_p.h>

#include <gtest/gtest.h>

TEST(SoftwareRoot, StandsBeforeTheLastBin) {
  const std::tuple<const char*, const char*, const char*, const char*> rows[] = {
      {"C:\\Prog\\BIN\\app.exe", "/c", "C:/Prog", "case of the letters; separators"},
      {"/a/bin/B\"\"\xc3\x84/bin/x/app", "/c", "/a/bin/B\xc3\x84", "the first one; quotes stay"},
      {"/\xc4\xb0\xc4\xb0/Bin/app", "/c", "/\xc4\xb0\xc4\xb0", "letters that grow in lower case"},
      {"/bin/app", "/c", "", "the system's own root passes for none"},
      {"/opt/cabin/app", "C:\\\"c\"", "C:/c", "a part of a name; the directory is not converted"},
      {"/a/bin", "/c", "/c", "a program of that name"},
      {"", "/c", "/c", "no name of the program"},
  };
  for (const auto& [executable, current, expected, catches] : rows) {
    const QString root = Kyr::Settings::softwareRoot(executable, current);
    EXPECT_TRUE(root == expected && !root.isNull()) << catches << ": " << root.toStdString();
  }
  EXPECT_TRUE(Kyr::Settings::softwareRoot("/opt/app", {}).isNull());
}
