#!/bin/sh
# The reference to browse. Read by ./dev.

verb_docs() {
  # shellcheck disable=SC2086
  need $docs_packages
  quietly 'The reference' python3 -B "$top/tools/reference/reference.py" "$top/build/docs/html" ||
    return 1
  page=$top/build/docs/html/index.html
  printf 'Open %s\n' "${page#"$PWD/"}"
}
