#include "help.h"

#include "command_table.h"
#include "console_p.h"
#include "output.h"

#include <kyr/i18n/KyrTranslate.h>
#include <kyr/terminal/KyrColumns.h>

#include <algorithm>

namespace KyrTool {

namespace {

constexpr int usualWidth = 80;
constexpr int widest = 100;  // longer lines are hard to read

QString inUsersLanguage(const char* text) {
  return Kyr::translate("Kyr_tool", text);
}

int width() {
  const int ofTerminal = static_cast<int>(outputWidth());
  return ofTerminal == 0 ? usualWidth : std::min(ofTerminal, widest);
}

/// Splits at blanks outside of brackets: "[--workers N]" stays together.
QStringList partsOf(const QString& text) {
  QStringList parts;
  int depth = 0;
  bool starts = true;
  for (const QChar character : text) {
    depth += character == '[' ? 1 : character == ']' ? -1 : 0;
    if (character == ' ' && depth == 0) {
      starts = true;
    } else if (starts) {
      parts += QString(character);
      starts = false;
    } else {
      parts.last() += character;
    }
  }
  return parts;
}

/// The text in lines that fit, each after the first behind so many blanks.
/// \param used columns of the first line that are taken
QString wrapped(const QString& text, int used, int indent) {
  QString lines;
  int column = used;
  const QStringList parts = partsOf(text);
  for (const QString& part : parts) {
    QString gap = lines.isEmpty() ? "" : " ";
    const QStringList pieces = part[0] == '[' ? QStringList(part) : Kyr::breakablePieces(part);
    for (const QString& piece : pieces) {
      const int columns = Kyr::columnsOf(gap + piece);
      const bool fits = lines.isEmpty() || column + columns < width();
      lines += fits ? gap + piece : '\n' + QString(indent, ' ') + piece;
      column = fits ? column + columns : indent + Kyr::columnsOf(piece);
      gap.clear();
    }
  }
  return lines + '\n';
}

/// A term with its explanation beside it, or below it where there is no room.
QString entry(const QString& term, const QString& explanation, int column) {
  constexpr int narrow = 30, below = 10;  // what an explanation needs, and where it is without
  const bool hasRoom = width() - column >= narrow;
  const bool beside = hasRoom && term.size() + 2 <= column;
  const int start = hasRoom ? column : below;
  const QString gap = beside ? QString(column - term.size(), ' ') : '\n' + QString(start, ' ');
  return styled(term, Strong) + gap + wrapped(explanation, start, start);
}

void printUsage(const Command& command) {
  constexpr int indent = 6;
  const QString start = "kyr " + QString(command.name) + ' ';
  print(styled(start, Strong) +
        wrapped(usageOf(command).mid(start.size()), static_cast<int>(start.size()), indent));
}

QString termOf(const Option& option) {
  return "  " + (option.letter == 0 ? QString("    ") : QString("-%1, ").arg(option.letter)) +
         option.text();
}

void printCommand(const Command& command) {
  constexpr int column = 26, indent = 2;
  printUsage(command);
  print('\n' + QString(indent, ' ') + wrapped(inUsersLanguage(command.summary), indent, indent) +
        '\n');
  for (const Option& option : optionsOf(command)) {
    print(entry(termOf(option), inUsersLanguage(option.description), column));
  }
}

void printSummaries(const QString& group) {
  constexpr int column = 18;
  for (const Command& command : commands()) {
    if (group.isEmpty() || QString(command.name).startsWith(group + ' ')) {
      print(entry("  " + QString(command.name), inUsersLanguage(command.summary), column));
    }
  }
}

/// How many letters were missed, added, mistaken or swapped with their neighbour.
int distance(const QString& one, const QString& other) {
  std::vector<std::vector<int>> least(static_cast<std::size_t>(one.size() + 1),
                                      std::vector<int>(static_cast<std::size_t>(other.size() + 1)));
  const auto at = [&](int i, int j) -> int& {
    return least[static_cast<std::size_t>(i)][static_cast<std::size_t>(j)];
  };
  for (int i = 0; i <= one.size(); ++i) {
    for (int j = 0; j <= other.size(); ++j) {
      if (i == 0 || j == 0) {
        at(i, j) = i + j;
        continue;
      }
      const int mistaken = at(i - 1, j - 1) + (one[i - 1] == other[j - 1] ? 0 : 1);
      at(i, j) = std::min({mistaken, at(i - 1, j) + 1, at(i, j - 1) + 1});
      if (i > 1 && j > 1 && one[i - 1] == other[j - 2] && one[i - 2] == other[j - 1]) {
        at(i, j) = std::min(at(i, j), at(i - 2, j - 2) + 1);
      }
    }
  }
  return at(static_cast<int>(one.size()), static_cast<int>(other.size()));
}

}  // namespace

const std::vector<const char*>& notes() {
  static const std::vector<const char*> all = {
      QT_TRANSLATE_NOOP("Kyr_tool",
                        "\"kyr help COMMAND\" or \"kyr COMMAND --help\" explains one of them, "
                        "\"kyr --version\" names the version."),
      QT_TRANSLATE_NOOP(
          "Kyr_tool",
          "FILE may be - for standard input, OUTPUT - for standard output. An option's value may "
          "stand behind = as well; behind -- nothing is an option. Units that are hard to type "
          "have other spellings: um for µm, degC for °C, mm2 for mm²; see kyr units KIND."),
      QT_TRANSLATE_NOOP("Kyr_tool",
                        "An older OUTPUT is replaced as soon as the new one is whole. Where a "
                        "command would keep what is there, --force replaces it."),
      QT_TRANSLATE_NOOP("Kyr_tool",
                        "Exit codes: 0 all is well, 1 a file is at fault, 2 wrong usage, 130 ended "
                        "by the user."),
  };
  return all;
}

void showOverview() {
  print(Kyr::translate("Kyr_tool", "kyr looks into files and converts values.") + "\n\n");
  printSummaries({});
  for (const char* const note : notes()) {
    print('\n' + wrapped(inUsersLanguage(note), 0, 0));
  }
}

bool showHelpOn(const QString& name) {
  if (const Command* const command = findCommand(name)) {
    printCommand(*command);
    return true;
  }
  if (membersOf(name).isEmpty()) {
    return false;
  }
  printSummaries(name);
  return true;
}

QString suggestion(const QString& word, const QStringList& known) {
  constexpr int lettersForAFault = 3;
  constexpr int longest = 40;  // no name is longer
  if (word.size() > longest) {
    return {};
  }
  QString nearest;
  int least = std::max(1, static_cast<int>(word.size()) / lettersForAFault) + 1;
  for (const QString& name : known) {
    const bool begins = word.size() >= 2 && name.startsWith(word);
    const int faults = begins ? 0 : distance(word, name);
    if (faults < least) {
      nearest = name;
      least = faults;
    }
  }
  return nearest.isEmpty() ? QString()
                           : Kyr::translate("Kyr_tool", "; did you mean %1?").arg(nearest);
}

}  // namespace KyrTool
