#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
#
# ./test.sh: installs what is missing, builds and runs every test without a display: all of them with the address and
# undefined-behaviour sanitizers, then those of the whole program once more against the program as it is shipped.
# V=1 shows the builds and every test.
set -euo pipefail
cd "$(dirname "$0")"
trap '[ $? -eq 0 ] || echo "Tests: FAILED"' EXIT

tools/install-packages tools/packages.txt tools/packages-test.txt
tools/build asan
tools/build release wallgrid -DWALLGRID_BUILD_TESTS=OFF -DWALLGRID_BUILD_BENCH=OFF
echo "Looking for the hardening of build/release/bin/wallgrid"
tools/check-hardening

# run_tests CTEST-OPTION...: runs tests of the asan tree; shows only failures and the count unless V=1.
run_tests() {
  local log=build/asan/tests.log
  if [ "${V:-}" = 1 ]; then
    ctest --preset asan --no-tests=error --parallel "$(nproc)" "$@"
  elif ctest --preset asan --no-tests=error --parallel "$(nproc)" "$@" > "$log" 2>&1; then
    grep 'tests passed' "$log"
  else
    grep -vE ' Passed |^ *Start ' "$log"
    return 1
  fi
}

echo "Running all tests with sanitizers"
run_tests
echo "Running the tests of the whole program against build/release/bin/wallgrid"
WALLGRID_PROGRAM=$PWD/build/release/bin/wallgrid run_tests --label-regex '^end_to_end$'
echo "Tests: all passed"
