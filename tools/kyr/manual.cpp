#include "command_table.h"
#include "generate.h"
#include "help.h"

#include <kyr/core/KyrVersion.h>

namespace KyrTool {

namespace {

/// Text as it stands, whatever roff would read into it.
QString plain(const QString& text) {
  QString roff = text;
  roff.replace('\\', "\\e").replace('-', "\\-");
  return roff.startsWith('.') || roff.startsWith('\'') ? "\\&" + roff : roff;
}

QString plain(const char* text) {
  return plain(QString::fromUtf8(text));
}

QString bold(const QString& text) {
  return "\\fB" + plain(text) + "\\fR";
}

/// A term with its explanation.
QString entry(const QString& term, const char* explanation) {
  return ".TP\n" + term + '\n' + plain(explanation) + ".\n";
}

QString termOf(const Option& option) {
  const QString letter = option.letter == 0 ? QString() : bold('-' + QString(option.letter)) + ", ";
  const QString value = option.isFlag() ? QString() : " \\fI" + plain(option.value) + "\\fR";
  return letter + bold("--" + QString(option.name)) + value;
}

QString sectionOf(const Command& command) {
  QString text = ".SS " + plain(command.name) + '\n';
  const QString start = "kyr " + QString(command.name);
  text += bold(start) + plain(usageOf(command).mid(start.size())) + '\n';
  text += ".PP\n" + plain(command.summary) + ".\n";
  for (const Option& option : command.options) {
    text += entry(termOf(option), option.description);
  }
  return text;
}

}  // namespace

QString manualPage() {
  QString page = QString(
                     ".\\\" Made from the table of commands of kyr.\n"
                     ".TH KYR 1 \"\" \"libKyr %1\" \"User Commands\"\n"
                     ".SH NAME\nkyr \\- looks into files and converts values\n"
                     ".SH SYNOPSIS\n\\fBkyr\\fR \\fICOMMAND\\fR [\\fIOPTION\\fR]... "
                     "[\\fIARGUMENT\\fR]...\n.SH DESCRIPTION\n\\fBkyr\\fR looks into files and "
                     "converts values.\n")
                     .arg(plain(Kyr::libraryVersion()));
  for (const char* const note : notes()) {
    page += ".PP\n" + plain(note) + '\n';
  }
  page += ".SH COMMANDS\n";
  for (const Command& command : commands()) {
    page += sectionOf(command);
  }
  page += ".SH OPTIONS\n";
  for (const Option& option : commonOptions()) {
    page += entry(termOf(option), option.description);
  }
  page += entry(bold("--version"), "names the version");
  page += ".SH ENVIRONMENT\n";
  page += entry(
      bold("LANGUAGE") + ", " + bold("LC_ALL") + ", " + bold("LC_MESSAGES") + ", " + bold("LANG"),
      "the language of texts, and how numbers are typed");
  page += entry(bold("NO_COLOR"), "no colours, whatever it is set to");
  return page;
}

}  // namespace KyrTool
