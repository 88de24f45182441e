/// \file
/// The command line tool kyr: a look into files, and values in other units.

#include "arguments.h"
#include "command_table.h"
#include "console_p.h"
#include "generate.h"
#include "help.h"
#include "language.h"
#include "output.h"
#include "work.h"

#include <kyr/app/KyrInit.h>
#include <kyr/core/KyrQtVersion.h>
#include <kyr/core/KyrVersion.h>
#include <kyr/i18n/KyrTranslate.h>
#include <kyr/jobs/KyrStopToken.h>

#include <QCoreApplication>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <iterator>
#include <new>
#include <optional>

namespace {

using namespace KyrTool;

using Kyr::translate;

int complain(const QString& fault, const QString& usage) {
  printError(fault);
  const QString line = translate("Kyr_tool", "usage: %1").arg(usage);
  std::cerr << line.toUtf8().constData() << '\n';
  return WrongUsage;
}

int run(const Command& command, const QStringList& words) {
  std::optional<QString> fault;
  {
    const Work work(command);
    try {
      return command.run(Arguments(words, command));
    } catch (const UsageError& error) {
      return complain(error.fault, usageOf(command));
    } catch (const FileError& error) {
      // A stop may look like a file that ends too early.
      fault = work.wasInterrupted() ? QString() : error.fault;
    } catch (const Kyr::Stopped&) {
      fault = QString();
    }
  }
  const bool isStopped = fault->isEmpty();
  printError(isStopped ? translate("Kyr_tool", "ended by the user before all was done") : *fault);
  return isStopped ? EndedByUser : FileAtFault;
}

/// What may stand in the place of a command that is unknown.
QStringList namesBeside(const QStringList& name) {
  const bool isGroup = name.size() > 1;
  QStringList names = isGroup ? QStringList() : QStringList{"help", "--help", "--version"};
  for (const Command& command : commands()) {
    names += isGroup ? QString(command.name) : QString(command.name).section(' ', 0, 0);
  }
  return names;
}

/// How many of the words are a command's name, as far as there may be one.
int lengthOfName(const QStringList& words) {
  return membersOf(words.value(0)).isEmpty() ? 1 : 2;
}

int refuseName(const QStringList& name) {
  const QString whole = name.join(' ');
  const QStringList members = membersOf(name.value(0));
  const QString fault =
      name.isEmpty() ? translate("Kyr_tool", "a command is missing")
      : name.size() == 1 && !members.isEmpty()
          ? translate("Kyr_tool", "%1 needs one of %2").arg(whole, members.join(", "))
          : translate("Kyr_tool", "unknown command \"%1\"").arg(whole) +
                suggestion(whole, namesBeside(name));
  return complain(fault, translate("Kyr_tool", "kyr COMMAND ...   (kyr --help explains)"));
}

/// Explains the command that the words begin with, or all of them.
int help(const QStringList& words) {
  const QStringList name = words.mid(0, lengthOfName(words));
  if (name.isEmpty() || name.first() == "help") {
    showOverview();
    return Fine;
  }
  return showHelpOn(name.join(' ')) ? Fine : refuseName(name);
}

/// The words but those that ask for help.
QStringList withoutHelp(const QStringList& words) {
  QStringList others;
  std::copy_if(words.begin(), words.end(), std::back_inserter(others),
               [](const QString& word) { return !word.startsWith('-'); });
  return others;
}

int dispatch(const QStringList& words) {
  const QStringList options = words.mid(0, words.indexOf("--"));
  if (words.value(0) == "help") {
    return help(withoutHelp(words.mid(1)));
  }
  if (options.contains("--help") || options.contains("-h")) {
    return help(withoutHelp(options));
  }
  if (words.value(0) == "--version") {
    print(QString("kyr %1\n").arg(Kyr::libraryVersion()));
    return Fine;
  }
  if (generate(words)) {
    return Fine;
  }
  const QStringList name = words.mid(0, lengthOfName(words));
  const Command* const command = findCommand(name.join(' '));
  return command != nullptr ? run(*command, words.mid(name.size())) : refuseName(name);
}

/// Ends the process without running what belongs to its end, which needs Qt and the heap.
[[noreturn]] void endWithoutMemory() {
  std::cout.flush();
  std::fputs("kyr: not enough memory\n", stderr);  // std::cerr may just be in the making
  std::_Exit(FileAtFault);
}

std::terminate_handler byDefault = nullptr;

/// The terminate handler. An exception comes here when it leaves a function, of Qt perhaps, that
/// must not throw; the one for want of memory ends the tool as everywhere else.
[[noreturn]] void terminate() {
  try {
    if (const std::exception_ptr error = std::current_exception()) {
      std::rethrow_exception(error);
    }
  } catch (const std::bad_alloc&) {
    endWithoutMemory();
  } catch (...) {
    byDefault();
  }
  byDefault();
  std::abort();
}

int runStarted() {
  QStringList arguments = QCoreApplication::arguments();
  Kyr::KyrInit::InitLibrary({"kyr", Kyr::libraryVersion()}, arguments);
  byDefault = std::set_terminate(&terminate);  // in front of that of the crash handler
  useLanguageOfUser();
  const int code = dispatch(arguments.mid(1));
  const bool isWritten = finishOutput();
  forgetLanguage();
  Kyr::KyrInit::CloseLibrary();
  return isWritten ? code : std::max<int>(code, FileAtFault);
}

int runTool(int argc, char** argv) {
  prepareStandardStreams();
  std::ios_base::sync_with_stdio(false);
  prepareOutput();
  // Names of files and units are the same whatever the user's locale is.
  Kyr::QtVersion::setLocalEncoding("UTF-8");
  // Qt 6 would tell everybody without a UTF-8 locale that it takes another one.
  const QtMessageHandler usual = qInstallMessageHandler([](auto, const auto&, const auto&) {});
  const QCoreApplication application(argc, argv);
  qInstallMessageHandler(usual);
  try {
    return runStarted();
  } catch (const std::bad_alloc&) {
    endWithoutMemory();  // while the application lives, as its end needs memory
  }
}

}  // namespace

int main(int argc, char** argv) {
  byDefault = std::set_terminate(&terminate);
  try {
    return runTool(argc, argv);
  } catch (const std::bad_alloc&) {
    endWithoutMemory();
  }
}
