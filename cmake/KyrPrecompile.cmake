# Other people's headers that most sources include, parsed once. A source names all the same what it
# needs: lint compiles each of them without, and would notice. The target that parses them defines
# nothing of its own, because the compiler takes its result only where all of that is defined, too.
add_library(kyr_headers OBJECT "${CMAKE_CURRENT_LIST_DIR}/precompile.cpp")
target_link_libraries(kyr_headers PRIVATE Qt${KYR_QT}::Core kyr_compile)
target_precompile_headers(kyr_headers PRIVATE
  <algorithm> <array> <cstdint> <cstring> <functional> <limits> <memory> <string> <utility> <vector>
  <QByteArray> <QDir> <QFile> <QString> <QStringList>)

# kyr_precompiled(target): this one takes them from there.
function(kyr_precompiled target)
  target_precompile_headers(${target} REUSE_FROM kyr_headers)
endfunction()
