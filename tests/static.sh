#!/usr/bin/env bash
# Formatting, clang-tidy and cppcheck over the whole tree; silent when there is nothing to say (a quarter of an hour).
#   tests/static.sh               everything
#   tests/static.sh render forge  only the sources of these folders
set -euo pipefail
cd "$(dirname "$0")/.."
build=build/static
status=0

for tool in clang++ clang-format clang-tidy cppcheck; do
    command -v "$tool" >/dev/null || { echo "$tool is missing: apt-get install clang clang-format clang-tidy cppcheck" >&2; exit 2; }
done
mapfile -t sources < <(git ls-files "$@" | grep -E '\.(cpp|h)$')
mapfile -t units < <(printf '%s\n' "${sources[@]}" | grep '\.cpp$')

clang-format --dry-run -Werror "${sources[@]}" || status=1
cmake -S . -B "$build" -G Ninja -DCMAKE_CXX_COMPILER=clang++ -DLUMENFOLD_BENCH=ON -DLUMENFOLD_FORGE=ON >/dev/null
printf '%s\0' "${units[@]}" | xargs -0 -n 1 -P 2 clang-tidy -p "$build" --quiet 2> >(grep -v 'warnings\? generated' >&2) ||
    status=1
cppcheck -q -j 2 --std=c++20 --language=c++ -I . --template=gcc --enable=warning,performance,portability \
    --library=googletest --inline-suppr --suppressions-list=tests/cppcheck.txt --error-exitcode=1 "${units[@]}" ||
    status=1
exit $status
