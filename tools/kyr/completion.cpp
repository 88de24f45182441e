#include "command_table.h"
#include "generate.h"

#include <QStringList>

namespace KyrTool {

namespace {

/// The first words of all commands, each once.
QStringList firstWords() {
  QStringList words;
  for (const Command& command : commands()) {
    words += QString(command.name).section(' ', 0, 0);
  }
  words.removeDuplicates();
  return words;
}

QStringList groups() {
  QStringList found;
  for (const QString& word : firstWords()) {
    found += membersOf(word).isEmpty() ? QStringList() : QStringList(word);
  }
  return found;
}

QString quoted(QString text) {
  return '\'' + text.replace('\'', "'\\''") + '\'';
}

// ---- bash ----

QString bashValues(Completion_t completion, const QStringList& choices) {
  switch (completion) {
    case CompleteFiles:
      return "_kyr_files";
    case CompleteKinds:
      return "_kyr_offer \"$(kyr --complete kinds 2>/dev/null)\"";
    case CompleteUnits:
      return "_kyr_offer \"$(kyr --complete units 2>/dev/null)\"";
    case CompleteNothing:
      break;
  }
  return choices.isEmpty() ? ":" : "_kyr_offer " + quoted(choices.join('\n'));
}

/// The branches for what may stand behind an option.
QString bashOptionBranches() {
  QString branches;
  for (const Command& command : commands()) {
    for (const Option& option : command.options) {
      if (!option.isFlag()) {
        branches += QString("    %1) %2; return ;;\n")
                        .arg(quoted(QString(command.name) + " --" + option.name),
                             bashValues(option.completion, option.choices()));
      }
    }
  }
  return branches;
}

/// The branches for options and arguments.
QString bashCommandBranches() {
  QString branches;
  for (const Command& command : commands()) {
    QStringList options;
    for (const Option& option : optionsOf(command)) {
      options += "--" + QString(option.name);
    }
    branches += QString(
                    "    %1)\n      if [[ $cur == -* && $plain == no ]]; then\n"
                    "        _kyr_offer %2\n      else\n        %3\n      fi ;;\n")
                    .arg(quoted(command.name), quoted(options.join('\n')),
                         bashValues(command.completion, {}));
  }
  return branches;
}

QString bashGroupBranches() {
  QString branches;
  for (const QString& group : groups()) {
    branches += QString("    %1) members=%2 ;;\n").arg(group, quoted(membersOf(group).join('\n')));
  }
  return branches;
}

constexpr const char* bashFrame =
    R"bash(# Completion of kyr for bash; made from its table of commands.

# Offers those of the lines that begin with the word.
_kyr_offer() {
  local line
  while IFS= read -r line; do
    [[ $line == "$cur"* ]] && COMPREPLY+=("$line")
  done <<< "$1"
}

_kyr_files() {
  compopt -o filenames 2>/dev/null
  mapfile -t COMPREPLY < <(compgen -f -- "$cur")
}

_kyr() {
  local cur=${COMP_WORDS[COMP_CWORD]} option=${COMP_WORDS[COMP_CWORD-1]}
  local at=1 command members='' plain=no word
  COMPREPLY=()
  [[ ${COMP_WORDS[1]} == help ]] && (( COMP_CWORD > 1 )) && at=2
  if (( COMP_CWORD == at )); then
    if (( at == 1 )); then _kyr_offer @FIRST@; else _kyr_offer @WORDS@; fi
    return
  fi
  command=${COMP_WORDS[at]}
  case $command in
@GROUPS@  esac
  if [[ -n $members ]]; then
    if (( COMP_CWORD == at + 1 )); then
      _kyr_offer "$members"
      return
    fi
    command+=" ${COMP_WORDS[at+1]}"
  fi
  (( at == 2 )) && return
  for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
    [[ $word == -- ]] && plain=yes
  done
  # bash parts "--option=value" into three words.
  if [[ $cur == '=' ]]; then
    cur=
  elif [[ $option == '=' ]]; then
    option=${COMP_WORDS[COMP_CWORD-2]}
  fi
  [[ $plain == yes ]] && option=
  case "$command $option" in
@OPTIONS@  esac
  case $command in
@COMMANDS@  esac
}

complete -F _kyr kyr
)bash";

// ---- zsh ----

/// A text inside of brackets or behind a colon.
QString zshText(const char* text) {
  QString escaped = QString::fromUtf8(text);
  escaped.replace('\\', "\\\\").replace('[', "\\[").replace(']', "\\]").replace(':', "\\:");
  return escaped;
}

QString zshValues(Completion_t completion, const QStringList& choices) {
  switch (completion) {
    case CompleteFiles:
      return "_files";
    case CompleteKinds:
      return "_kyr_kinds";
    case CompleteUnits:
      return "_kyr_units";
    case CompleteNothing:
      break;
  }
  return choices.isEmpty() ? QString(" ") : '(' + choices.join(' ') + ')';
}

QString zshOption(const Option& option) {
  const QString text = '[' + zshText(option.description) + ']';
  if (option.letter != 0) {
    return QString("'(-%1 --%2)'{-%1,--%2}%3").arg(option.letter).arg(option.name, quoted(text));
  }
  return quoted(option.isFlag() ? "--" + QString(option.name) + text
                                : QString("--%1=%2:%3:%4")
                                      .arg(option.name, text, zshText(option.value),
                                           zshValues(option.completion, option.choices())));
}

QString zshCommandBranches() {
  QString branches;
  for (const Command& command : commands()) {
    branches += QString("    %1)\n      _arguments").arg(quoted(command.name));
    for (const Option& option : optionsOf(command)) {
      branches += " \\\n        " + zshOption(option);
    }
    branches +=
        " \\\n        " + quoted("*:argument:" + zshValues(command.completion, {})) + " ;;\n";
  }
  return branches;
}

QString zshGroupBranches() {
  QString branches;
  for (const QString& group : groups()) {
    branches += QString("    %1) members=(%2) ;;\n").arg(group, membersOf(group).join(' '));
  }
  return branches;
}

constexpr const char* zshFrame = R"zsh(#compdef kyr
# Completion of kyr for zsh; made from its table of commands.

_kyr_kinds() { local -a names; names=(${(f)"$(kyr --complete kinds 2>/dev/null)"}); compadd -a names }
_kyr_units() { local -a names; names=(${(f)"$(kyr --complete units 2>/dev/null)"}); compadd -a names }

_kyr() {
  local command
  local -a members
  if (( CURRENT == 2 )); then
    compadd -- @FIRST@
    return
  fi
  if [[ $words[2] == help ]]; then
    shift words
    (( CURRENT -= 1 ))
    if (( CURRENT == 2 )); then
      compadd -- @WORDS@
      return
    fi
  fi
  command=$words[2]
  case $command in
@GROUPS@  esac
  shift words
  (( CURRENT -= 1 ))
  if (( $#members )); then
    if (( CURRENT == 2 )); then
      compadd -a members
      return
    fi
    command+=" $words[2]"
    shift words
    (( CURRENT -= 1 ))
  fi
  case $command in
@COMMANDS@  esac
}

_kyr "$@"
)zsh";

}  // namespace

QString bashCompletion() {
  const QStringList first = firstWords() + QStringList{"help", "--help", "--version"};
  return QString(bashFrame)
      .replace("@FIRST@", quoted(first.join('\n')))
      .replace("@WORDS@", quoted(firstWords().join('\n')))
      .replace("@GROUPS@", bashGroupBranches())
      .replace("@OPTIONS@", bashOptionBranches())
      .replace("@COMMANDS@", bashCommandBranches());
}

QString zshCompletion() {
  const QStringList first = firstWords() + QStringList{"help", "--help", "--version"};
  return QString(zshFrame)
      .replace("@FIRST@", first.join(' '))
      .replace("@WORDS@", firstWords().join(' '))
      .replace("@GROUPS@", zshGroupBranches())
      .replace("@COMMANDS@", zshCommandBranches());
}

}  // namespace KyrTool
