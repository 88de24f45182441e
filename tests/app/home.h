/// \file
/// A folder in which processes start that must leave the user's own alone.
#pragma once

#include "support/Support.h"

#include <kyr/app/KyrInit.h>

namespace KyrTest {

using Variables = std::vector<std::pair<const char*, QString>>;

/// The folder of one test. A child of the test has the same one, also if it runs the test again.
class Home {
 public:
  Home() {
    if (Kyr::OS::getEnv("KYR_TEST_HOME").isNull()) {
      _own = std::make_unique<TempDir>();
      Kyr::OS::setEnv("KYR_TEST_HOME", _own->path());
    }
    _path = Kyr::OS::getEnv("KYR_TEST_HOME");
  }
  ~Home() { Kyr::OS::unsetEnv("KYR_TEST_HOME"); }
  Home(const Home&) = delete;
  Home& operator=(const Home&) = delete;

  const QString& path() const { return _path; }
  QString file(const QString& name) const { return _path + "/" + name; }

  /// In a child: starts the library with its folders here, unless the variables say otherwise.
  /// \return the arguments that are left
  QStringList start(const Variables& variables, QStringList arguments = {"app"},
                    Kyr::Application_t application = Kyr::ApplicationMotion) const {
    setVariables(variables);
    Kyr::KyrInit::InitLibrary(application, arguments);
    return arguments;
  }
  /// In a child: starts the library as a program that is no application of the suite does.
  QStringList start(const Variables& variables, QStringList arguments,
                    const Kyr::StartOptions& options) const {
    setVariables(variables);
    Kyr::KyrInit::InitLibrary(options, arguments);
    return arguments;
  }

  void setVariables(const Variables& variables) const {
    Variables all{{"KYR_CONSOLE", "file:" + file("output")},
                  {"KYR_CONFIG_DIR", file("config")},
                  {"TMPDIR", _path},
                  {"TMP", _path}};
    all.insert(all.end(), variables.begin(), variables.end());
    for (const auto& [name, value] : all) {
      value.isNull() ? Kyr::OS::unsetEnv(name) : Kyr::OS::setEnv(name, value);
    }
  }

  /// In a child: leaves a text for said().
  void say(const QString& text) const {
    QFile answer(file("said"));
    answer.open(QIODevice::WriteOnly | QIODevice::Append);
    answer.write(text.toUtf8());
  }
  /// What a child has said since the last time.
  std::string said() const {
    QFile answer(file("said"));
    answer.open(QIODevice::ReadOnly);
    const std::string text = answer.readAll().toStdString();
    answer.remove();
    return text;
  }

 private:
  std::unique_ptr<TempDir> _own;
  QString _path;
};

}  // namespace KyrTest
