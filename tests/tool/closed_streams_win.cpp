#include "tool/answers.h"

#include <windows.h>

namespace KyrTest {

void startWithClosed(QProcess& process, const QString& program, const QStringList& words,
                     const QString& closed) {
  process.setCreateProcessArgumentsModifier([closed](QProcess::CreateProcessArguments* arguments) {
    HANDLE* const streams[] = {&arguments->startupInfo->hStdInput,
                               &arguments->startupInfo->hStdOutput,
                               &arguments->startupInfo->hStdError};
    for (const QChar stream : closed) {
      *streams[stream.digitValue()] = INVALID_HANDLE_VALUE;
    }
  });
  process.start(program, words);
}

}  // namespace KyrTest
