#include "tool/answers.h"

namespace KyrTest {

void startWithClosed(QProcess& process, const QString& program, const QStringList& words,
                     const QString& closed) {
  QString command = "exec \"$0\" \"$@\"";
  for (const QChar stream : closed) {
    command += QString(" %1>&-").arg(stream);
  }
  process.start("/bin/sh", QStringList{"-c", command, program} + words);
}

}  // namespace KyrTest
